#pragma once
// Lists of the edit dialogs in the order the catalogue tree sorts titles
// (umlauts transcribed, letter case ignored); equal texts keep their order.

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "base/Hilfen.h"

namespace dv {

// text(w) gives the catalogue text a value is sorted by.
template <class T, class Text>
void sortiereWieTitel(std::vector<T>& v, Text&& text) {
    // The keys and their places are sorted, the values moved once: lists of
    // 30,000 persons are sorted for every film dialog.
    std::vector<std::string> schluessel;
    schluessel.reserve(v.size());
    for (const T& w : v) schluessel.push_back(boxTitelSchluessel(text(w).c_str()));
    std::vector<std::size_t> ordnung(v.size());
    for (std::size_t i = 0; i < ordnung.size(); ++i) ordnung[i] = i;
    std::stable_sort(ordnung.begin(), ordnung.end(),
                     [&](std::size_t a, std::size_t b) { return schluessel[a] < schluessel[b]; });
    std::vector<T> sortiert;
    sortiert.reserve(v.size());
    for (const std::size_t i : ordnung) sortiert.push_back(std::move(v[i]));
    v = std::move(sortiert);
}

}  // namespace dv
