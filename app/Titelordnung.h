#pragma once
// Lists of the edit dialogs in the order the catalogue tree sorts titles
// (umlauts transcribed, letter case ignored); equal texts keep their order.

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/Hilfen.h"

namespace dv {

// text(w) gives the catalogue text a value is sorted by.
template <class T, class Text>
void sortiereWieTitel(std::vector<T>& v, Text&& text) {
    std::vector<std::pair<std::string, T>> mitSchluessel;
    mitSchluessel.reserve(v.size());
    for (T& w : v) {
        std::string schluessel = boxTitelSchluessel(text(w).c_str());
        mitSchluessel.emplace_back(std::move(schluessel), std::move(w));
    }
    std::stable_sort(mitSchluessel.begin(), mitSchluessel.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    v.clear();
    for (auto& [s, w] : mitSchluessel) v.push_back(std::move(w));
}

}  // namespace dv
