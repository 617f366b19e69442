# DORVANO: the two everyday commands are `make run` and `make test`.
# Both install what is missing (Debian 12 packages), configure and build first.

BUILD_DIR   ?= build
BUILD_TYPE  ?= RelWithDebInfo
CMAKE_FLAGS ?=
JOBS        ?= $(shell nproc)

.PHONY: all deps configure build run test bench sanitize fuzz format clean install package demo

all: build

deps:
	./scripts/install-deps

configure: deps
	cmake -S . -B $(BUILD_DIR) -G Ninja -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) $(CMAKE_FLAGS)

build: configure
	cmake --build $(BUILD_DIR) -j $(JOBS)

# Starts the desktop program on the default program folder.
run: build
	$(BUILD_DIR)/bin/dorvano

test: build
	ctest --test-dir $(BUILD_DIR) --output-on-failure -j $(JOBS)

# Installs both programs with desktop entry, icons, metainfo, MIME type and manual
# pages below PREFIX, inside DESTDIR when given (a staging folder for packagers).
PREFIX      ?= /usr/local
DESTDIR     ?=
install: build
	DESTDIR="$(DESTDIR)" cmake --install $(BUILD_DIR) --prefix "$(PREFIX)"

# The Debian package dorvano_<version>_<arch>.deb in the build folder.
package: build
	cd $(BUILD_DIR) && cpack

# A generated sample collection (300 boxes with painted covers, tags, watch lists)
# in a new folder below /tmp, opened in the desktop program.
demo: configure
	cmake --build $(BUILD_DIR) -j $(JOBS) --target dorvano dorvano-cli dorvano-generator
	./scripts/demo $(BUILD_DIR)

# Builds and runs every benchmark (bench/*.cpp) on generated collections.
bench: configure
	cmake --build $(BUILD_DIR) -j $(JOBS)
	@set -e; for b in $(BUILD_DIR)/bin/bench_*; do echo "== $$b"; $$b; done

# Every test under AddressSanitizer and UndefinedBehaviorSanitizer.
sanitize:
	$(MAKE) test BUILD_DIR=build-asan BUILD_TYPE=Debug CMAKE_FLAGS="-DDORVANO_SANITIZE=ON -DDORVANO_BENCH=OFF"

# Every reader of outside bytes under libFuzzer (clang, ASan, UBSan), each target
# for FUZZ_ZEIT seconds on seed files the program writes itself. Only the
# libraries the targets need are built.
FUZZ_DIR   ?= build-fuzz
FUZZ_ZEIT  ?= 60
fuzz: deps
	CC=clang CXX=clang++ cmake -S . -B $(FUZZ_DIR) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
		-DDORVANO_FUZZ=ON -DDORVANO_TESTS=OFF -DDORVANO_BENCH=OFF
	cmake --build $(FUZZ_DIR) -j $(JOBS) --target fuzz_alle
	./scripts/fuzz $(FUZZ_DIR) $(FUZZ_ZEIT)

# Formats every C++ file with the committed .clang-format (CI fails on a difference).
format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD_DIR) build-asan $(FUZZ_DIR)
