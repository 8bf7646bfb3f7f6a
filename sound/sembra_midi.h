// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A look at a song file from the music folder, which may hold anything that
// anyone put there under a name ending in ".mid", before it is opened.

#include <string>

namespace lesta {

// Whether the file is a Standard MIDI File that plays: a header chunk that
// announces one track or more, every announced track there in full, each
// track's events whole up to its End of Track or the end of its chunk, and
// at least one note sounded. The synthesizer reads a song only when it
// starts to play it, and a file it cannot read would end at once and bring
// the end of a song that never sounded; such a file is not opened at all.
// Bytes after the last announced track are not looked at.
bool sembra_midi(const std::string& percorso);

}  // namespace lesta
