#include "sound/sembra_midi.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <fstream>

namespace lesta {

bool sembra_midi(const std::string& percorso) {
    std::ifstream in(percorso, std::ios::binary);
    std::array<unsigned char, 22> testa{};
    in.read(reinterpret_cast<char*>(testa.data()), static_cast<std::streamsize>(testa.size()));
    if (in.gcount() < 22) return false;
    const auto grande = [&testa](std::size_t da, int byte) {
        std::uint32_t v = 0;
        for (int i = 0; i < byte; ++i) v = v << 8 | testa[da + static_cast<std::size_t>(i)];
        return v;
    };
    if (std::memcmp(testa.data(), "MThd", 4) != 0) return false;
    const std::uint32_t lunghezza = grande(4, 4);
    if (lunghezza < 6 || grande(10, 2) == 0) return false;
    // The header may claim up to 4 GiB: the first track is looked for where
    // it says, past the end of any real file, and is not found.
    in.seekg(std::streamoff{8} + lunghezza);
    char traccia[4] = {};
    in.read(traccia, 4);
    return in.gcount() == 4 && std::memcmp(traccia, "MTrk", 4) == 0;
}

}  // namespace lesta
