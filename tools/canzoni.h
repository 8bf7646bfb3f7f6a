// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The songs that come with the game, transcribed note by note, and their
// making into Standard MIDI Files: the melody, chords and a bass, arranged in
// the manner of a street band.
//
// The notation. A melody is a row of notes separated by blanks, with "|"
// between bars: a note is its name, an optional '#' or 'b', its octave
// (C4 is middle C) and, after ':', its length in units of the song; "r:n" is
// a rest. Every bar is full, so a pickup is written as a bar that begins with
// a rest. The chords give one chord per bar: a root with an optional '#' or
// 'b' and "" (major), "m" (minor), "7" (dominant seventh) or "dim"; "-" is a
// bar without accompaniment.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lesta::canzoni {

struct Sezione {
    char nome;
    std::string_view melodia;
    std::string_view accordi;
};

struct Canzone {
    std::string_view titolo;  // also the file's name, before ".mid"
    std::string_view origine;
    int numeratore, denominatore;  // the time signature
    int unita;                     // a unit of the notation is 1/unita of a whole note
    int quarti_al_minuto;
    int strumento_melodia, strumento_accordi, strumento_basso;  // General MIDI programs, 0-based
    std::vector<Sezione> sezioni;
    std::string_view forma;  // the sections in the order they are played
};

// A note of the melody or of the accompaniment, in units from the start.
struct Nota {
    int inizio, durata;
    int altezza;  // MIDI note number
};

// A song made ready for writing: its melody and chords in time.
struct Partitura {
    std::vector<Nota> melodia;
    struct Accordo {
        int inizio;
        int radice;                   // pitch class 0..11, C = 0
        std::vector<int> intervalli;  // from the root, in semitones
    };
    std::vector<Accordo> accordi;  // one per bar that has one
    int battute = 0;
    int unita_per_battuta = 0;
    std::vector<std::string> errori;  // empty when the song is sound
};

const std::vector<Canzone>& tutte();

// Reads a song's notation in the order of its form. Each fault found (a note
// that cannot be read, a bar too long or too short, chords that do not match
// the bars) is told in `errori`.
Partitura leggi(const Canzone& canzone);

// How long the song plays, in seconds.
double durata_secondi(const Canzone& canzone, const Partitura& partitura);

// The Standard MIDI File of the song.
std::vector<std::uint8_t> file_midi(const Canzone& canzone);

}  // namespace lesta::canzoni
