#pragma once
// A first look at a song file from the music folder, which may hold anything
// that anyone put there under a name ending in ".mid".

#include <string>

namespace lesta {

// Whether the file begins as a Standard MIDI File: a header chunk of at least
// six bytes that announces one track or more, and a first track chunk after
// it. The synthesizer reads a song only when it starts to play it, and would
// take any file that ends in ".mid"; what it cannot read is not opened.
bool sembra_midi(const std::string& percorso);

}  // namespace lesta
