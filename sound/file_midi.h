// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Standard MIDI Files, written from notes: the songs of the music folder are
// made this way at build time, and the tests make short songs of their own.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sound/scrivi_file.h"

namespace lesta::midi {

// One track of a song. Times are in ticks from the start of the song; the
// events may be added in any order and are sorted when the file is written.
class Traccia {
public:
    explicit Traccia(std::string_view nome = {});

    // A note on `canale` (0..15) from `inizio` for `durata` ticks.
    void nota(int canale, std::uint32_t inizio, std::uint32_t durata, int altezza, int forza);
    void programma(int canale, std::uint32_t tempo, int strumento);
    void controllo(int canale, std::uint32_t tempo, int numero, int valore);
    // Tempo in microseconds per quarter note.
    void tempo(std::uint32_t quando, std::uint32_t microsecondi_per_quarto);
    // Time signature: numeratore / 2^esponente.
    void metro(std::uint32_t quando, int numeratore, int esponente_denominatore);

    // The track's bytes without the chunk header, ending with End of Track.
    std::vector<std::uint8_t> corpo() const;

private:
    struct Evento {
        std::uint32_t tempo;
        int ordine;  // at the same tick: meta first, then note-offs, then the rest
        std::vector<std::uint8_t> dati;
    };
    std::vector<Evento> eventi_;
};

// A format 1 file with `divisione` ticks per quarter note.
std::vector<std::uint8_t> file_smf(const std::vector<Traccia>& tracce, std::uint16_t divisione);

}  // namespace lesta::midi
