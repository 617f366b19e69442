// The benchmarks' main: the heap prepared as the programs prepare it, so the
// figures are those of the real processes.
#include <benchmark/benchmark.h>

#include <cstddef>

#include "platform/Speicher.h"

int main(int argc, char** argv) {
    dv::bereiteHeapVor(std::size_t{128} << 20);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
