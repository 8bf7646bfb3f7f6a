// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The card sound: a short snap of a card laid on the table.

#include <cstdint>
#include <vector>

namespace lesta::carta {

inline constexpr int frequenza = 44100;

// Mono 16-bit samples at `frequenza`: a click of filtered noise with a soft
// low thump under it, about 60 ms, always the same.
std::vector<std::int16_t> campioni();

}  // namespace lesta::carta
