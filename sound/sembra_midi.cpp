// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/sembra_midi.h"

#include <cstdint>
#include <fstream>
#include <optional>
#include <string_view>
#include <vector>

namespace lesta {
namespace {

// A song of ours is a few kilobytes; a file much larger than any song is
// not read.
constexpr std::size_t massimo_byte = 16u << 20;

class Lettore {
public:
    explicit Lettore(std::string_view byte) : b_(byte) {}
    bool finito() const { return pos_ >= b_.size(); }
    std::size_t pos() const { return pos_; }
    std::optional<std::uint8_t> byte() {
        if (finito()) return std::nullopt;
        return static_cast<std::uint8_t>(b_[pos_++]);
    }
    // A number of `n` bytes, the most significant first.
    std::optional<std::uint32_t> grande(int n) {
        std::uint32_t v = 0;
        for (int i = 0; i < n; ++i) {
            const auto c = byte();
            if (!c) return std::nullopt;
            v = v << 8 | *c;
        }
        return v;
    }
    // A variable-length quantity: at most four bytes, seven bits each.
    std::optional<std::uint32_t> variabile() {
        std::uint32_t v = 0;
        for (int i = 0; i < 4; ++i) {
            const auto c = byte();
            if (!c) return std::nullopt;
            v = v << 7 | (*c & 0x7Fu);
            if ((*c & 0x80u) == 0) return v;
        }
        return std::nullopt;
    }
    bool salta(std::uint32_t n) {
        if (n > b_.size() - pos_) return false;
        pos_ += n;
        return true;
    }
    // The next `n` bytes, or fewer at the end.
    std::string_view prendi(std::uint32_t n) {
        const std::string_view parte = b_.substr(pos_, n);
        pos_ += parte.size();
        return parte;
    }

private:
    std::string_view b_;
    std::size_t pos_ = 0;
};

// The events of one track chunk, up to its End of Track or its end. Running
// status carries over channel messages only.
bool traccia_intera(std::string_view traccia, bool& nota) {
    Lettore l(traccia);
    std::uint8_t stato = 0;
    while (!l.finito()) {
        if (!l.variabile()) return false;  // the time before the event
        const auto primo = l.byte();
        if (!primo) return false;
        if (*primo == 0xFF) {  // meta event: type, length, data
            const auto tipo = l.byte();
            const auto lunghezza = l.variabile();
            if (!tipo || !lunghezza || !l.salta(*lunghezza)) return false;
            if (*tipo == 0x2F) return true;  // End of Track
            stato = 0;
        } else if (*primo == 0xF0 || *primo == 0xF7) {  // system exclusive
            const auto lunghezza = l.variabile();
            if (!lunghezza || !l.salta(*lunghezza)) return false;
            stato = 0;
        } else {
            std::optional<std::uint8_t> dato;
            if (*primo & 0x80u) {
                if (*primo >= 0xF0) return false;  // no system messages in a file
                stato = *primo;
                dato = l.byte();
            } else {
                if (stato == 0) return false;  // running status with none to run
                dato = primo;
            }
            const std::uint8_t tipo = stato & 0xF0u;
            const bool un_dato = tipo == 0xC0 || tipo == 0xD0;
            const std::optional<std::uint8_t> secondo = un_dato ? std::optional<std::uint8_t>(0) : l.byte();
            if (!dato || !secondo || (*dato & 0x80u) || (*secondo & 0x80u)) return false;
            if (tipo == 0x90 && *secondo > 0) nota = true;
        }
    }
    return true;
}

}  // namespace

bool sembra_midi(const std::string& percorso) {
    std::ifstream in(percorso, std::ios::binary | std::ios::ate);
    const std::streamoff misura = in.tellg();
    if (!in || misura < 0 || static_cast<std::uint64_t>(misura) > massimo_byte) return false;
    std::vector<char> contenuto(static_cast<std::size_t>(misura));
    in.seekg(0);
    in.read(contenuto.data(), misura);
    if (in.gcount() != misura) return false;
    Lettore file(std::string_view(contenuto.data(), contenuto.size()));

    if (file.prendi(4) != "MThd") return false;
    const auto lunghezza = file.grande(4);
    if (!lunghezza || *lunghezza < 6 || !file.grande(2)) return false;  // the format
    const auto tracce = file.grande(2);
    if (!tracce || *tracce == 0 || !file.salta(*lunghezza - 4)) return false;

    // Chunks of other kinds between the tracks are passed over.
    bool nota = false;
    for (std::uint32_t trovate = 0; trovate < *tracce;) {
        const std::string_view tipo = file.prendi(4);
        const auto quanti = file.grande(4);
        if (tipo.size() != 4 || !quanti) return false;
        const std::size_t inizio = file.pos();
        if (!file.salta(*quanti)) return false;
        if (tipo != "MTrk") continue;
        if (!traccia_intera(std::string_view(contenuto.data() + inizio, *quanti), nota)) return false;
        ++trovate;
    }
    return nota;
}

}  // namespace lesta
