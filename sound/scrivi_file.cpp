// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/scrivi_file.h"

#include <fstream>

namespace lesta {

bool scrivi_file(const std::filesystem::path& percorso, const std::vector<std::uint8_t>& byte) {
    std::ofstream out(percorso, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(byte.data()), static_cast<std::streamsize>(byte.size()));
    out.close();
    return static_cast<bool>(out);
}

}  // namespace lesta
