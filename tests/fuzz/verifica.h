// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a fuzz target does when the game breaks one of its promises.

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace lesta::fuzz {

// Stops the run with the input that broke a promise, shown byte by byte.
inline void verifica(bool vero, const char* promessa, std::string_view dati) {
    if (vero) return;
    std::fprintf(stderr, "%s\nfor the %zu bytes: \"", promessa, dati.size());
    for (unsigned char c : dati) std::fprintf(stderr, c >= 0x20 && c < 0x7f && c != '\\' ? "%c" : "\\x%02x", c);
    std::fprintf(stderr, "\"\n");
    std::abort();
}

}  // namespace lesta::fuzz
