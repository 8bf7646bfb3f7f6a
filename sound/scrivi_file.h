// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Writes the bytes of a sound file made by our own code.

#include <cstdint>
#include <filesystem>
#include <vector>

namespace lesta {

// Writes the bytes to a file; false if the file cannot be written.
bool scrivi_file(const std::filesystem::path& percorso, const std::vector<std::uint8_t>& byte);

}  // namespace lesta
