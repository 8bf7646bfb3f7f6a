// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/file_wav.h"

namespace lesta::wav {
namespace {

void piccolo_endian(std::vector<std::uint8_t>& out, std::uint32_t v, int byte) {
    for (int i = 0; i < byte; ++i) out.push_back(static_cast<std::uint8_t>((v >> (8 * i)) & 0xFF));
}

void testo(std::vector<std::uint8_t>& out, const char (&quattro)[5]) {
    for (int i = 0; i < 4; ++i) out.push_back(static_cast<std::uint8_t>(quattro[i]));
}

}  // namespace

std::vector<std::uint8_t> file_wav(const std::vector<std::int16_t>& campioni, int frequenza, int canali) {
    const auto dati = static_cast<std::uint32_t>(campioni.size() * 2);
    const auto blocco = static_cast<std::uint32_t>(canali * 2);
    std::vector<std::uint8_t> out;
    out.reserve(44 + dati);
    testo(out, "RIFF");
    piccolo_endian(out, 36 + dati, 4);
    testo(out, "WAVE");
    testo(out, "fmt ");
    piccolo_endian(out, 16, 4);
    piccolo_endian(out, 1, 2);  // PCM
    piccolo_endian(out, static_cast<std::uint32_t>(canali), 2);
    piccolo_endian(out, static_cast<std::uint32_t>(frequenza), 4);
    piccolo_endian(out, static_cast<std::uint32_t>(frequenza) * blocco, 4);
    piccolo_endian(out, blocco, 2);
    piccolo_endian(out, 16, 2);
    testo(out, "data");
    piccolo_endian(out, dati, 4);
    for (std::int16_t c : campioni) piccolo_endian(out, static_cast<std::uint16_t>(c), 2);
    return out;
}

}  // namespace lesta::wav
