// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/file_midi.h"

#include <algorithm>

namespace lesta::midi {
namespace {

void quantita_variabile(std::vector<std::uint8_t>& out, std::uint32_t v) {
    std::uint8_t gruppi[5];
    int n = 0;
    do {
        gruppi[n++] = static_cast<std::uint8_t>(v & 0x7F);
        v >>= 7;
    } while (v != 0);
    while (n > 1) out.push_back(static_cast<std::uint8_t>(gruppi[--n] | 0x80));
    out.push_back(gruppi[0]);
}

void grande_endian(std::vector<std::uint8_t>& out, std::uint32_t v, int byte) {
    for (int i = byte - 1; i >= 0; --i) out.push_back(static_cast<std::uint8_t>((v >> (8 * i)) & 0xFF));
}

std::uint8_t sette_bit(int v) { return static_cast<std::uint8_t>(std::clamp(v, 0, 127)); }
std::uint8_t canale_di(int c) { return static_cast<std::uint8_t>(c & 0x0F); }

}  // namespace

Traccia::Traccia(std::string_view nome) {
    if (nome.empty()) return;
    std::vector<std::uint8_t> dati{0xFF, 0x03};
    quantita_variabile(dati, static_cast<std::uint32_t>(nome.size()));
    dati.insert(dati.end(), nome.begin(), nome.end());
    eventi_.push_back({0, 0, std::move(dati)});
}

void Traccia::nota(int canale, std::uint32_t inizio, std::uint32_t durata, int altezza, int forza) {
    const auto c = canale_di(canale);
    eventi_.push_back(
        {inizio, 2, {static_cast<std::uint8_t>(0x90 | c), sette_bit(altezza), sette_bit(std::max(1, forza))}});
    // A note-off sorts before a note-on at the same tick, so that a repeated
    // note is struck again instead of being cut.
    eventi_.push_back({inizio + durata, 1, {static_cast<std::uint8_t>(0x80 | c), sette_bit(altezza), 64}});
}

void Traccia::programma(int canale, std::uint32_t tempo, int strumento) {
    eventi_.push_back({tempo, 2, {static_cast<std::uint8_t>(0xC0 | canale_di(canale)), sette_bit(strumento)}});
}

void Traccia::controllo(int canale, std::uint32_t tempo, int numero, int valore) {
    eventi_.push_back(
        {tempo, 2, {static_cast<std::uint8_t>(0xB0 | canale_di(canale)), sette_bit(numero), sette_bit(valore)}});
}

void Traccia::tempo(std::uint32_t quando, std::uint32_t microsecondi_per_quarto) {
    std::vector<std::uint8_t> dati{0xFF, 0x51, 0x03};
    grande_endian(dati, microsecondi_per_quarto, 3);
    eventi_.push_back({quando, 0, std::move(dati)});
}

void Traccia::metro(std::uint32_t quando, int numeratore, int esponente_denominatore) {
    eventi_.push_back({quando,
                       0,
                       {0xFF, 0x58, 0x04, static_cast<std::uint8_t>(numeratore),
                        static_cast<std::uint8_t>(esponente_denominatore), 24, 8}});
}

std::vector<std::uint8_t> Traccia::corpo() const {
    std::vector<const Evento*> ordinati;
    ordinati.reserve(eventi_.size());
    for (const auto& e : eventi_) ordinati.push_back(&e);
    std::stable_sort(ordinati.begin(), ordinati.end(), [](const Evento* a, const Evento* b) {
        return a->tempo != b->tempo ? a->tempo < b->tempo : a->ordine < b->ordine;
    });

    std::vector<std::uint8_t> out;
    std::uint32_t adesso = 0;
    for (const Evento* e : ordinati) {
        quantita_variabile(out, e->tempo - adesso);
        adesso = e->tempo;
        out.insert(out.end(), e->dati.begin(), e->dati.end());
    }
    out.insert(out.end(), {0x00, 0xFF, 0x2F, 0x00});
    return out;
}

std::vector<std::uint8_t> file_smf(const std::vector<Traccia>& tracce, std::uint16_t divisione) {
    std::vector<std::uint8_t> out{'M', 'T', 'h', 'd'};
    grande_endian(out, 6, 4);
    grande_endian(out, 1, 2);
    grande_endian(out, static_cast<std::uint32_t>(tracce.size()), 2);
    grande_endian(out, divisione, 2);
    for (const auto& t : tracce) {
        const auto corpo = t.corpo();
        out.insert(out.end(), {'M', 'T', 'r', 'k'});
        grande_endian(out, static_cast<std::uint32_t>(corpo.size()), 4);
        out.insert(out.end(), corpo.begin(), corpo.end());
    }
    return out;
}

}  // namespace lesta::midi
