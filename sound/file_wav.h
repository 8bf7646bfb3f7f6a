// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Wave files of 16-bit samples: the card sound is made this way at build
// time, and the tests make sounds of their own.

#include <cstdint>
#include <vector>

#include "sound/scrivi_file.h"

namespace lesta::wav {

// A RIFF/WAVE file of 16-bit PCM samples, interleaved when `canali` > 1.
std::vector<std::uint8_t> file_wav(const std::vector<std::int16_t>& campioni, int frequenza, int canali);

}  // namespace lesta::wav
