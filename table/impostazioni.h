// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The settings file Config.brx (where it lives: table/posto_impostazioni.h):
// three numbers, one a line, each with a blank before and after it and the
// line ended by CR LF:
//   line 1  the play rate, 1 "Low", 2 "Middle", 3 "High"
//   line 2  the music: 0 none, 1..n a song, 101 all songs in turn
//   line 3  the card scale in per cent
// Nothing else lasts from one run to the next.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace lesta {

struct Impostazioni {
    std::uint8_t velocita = 2;  // as in the file: 1, 2 or 3
    std::int16_t canzone = 0;   // 0, 1..100, or 101
    float scala = 0.75f;        // a fraction: 75 in the file is 0.75
};

// Reads the file's text as three reads, one for each field in turn. A read
// skips the blanks and takes one item, which ends at a blank, a comma or the
// end of a line (CR, LF or CR LF); the blanks after it and the comma or line
// end that closes it are passed. So " 2 \r\n 101 \r\n 75 \r\n", "2,101,75"
// and " 2 \r 101 \r 75 \r" read alike, and "2 101" on a line is two reads.
// An empty line, an empty item between commas, or an item that is not a
// number is a read that gets no number: its field is left as a missing one
// is, and the fields after it keep their own reads. Nothing after the third
// read is looked at. A field whose read gets no number in range is left at
// the default, so that the game always starts with no message:
//   rate    anything but 1, 2 or 3          gives 2, "Middle"
//   music   anything but 0..101, or 1..100 with a fraction, gives 0, no music
//   scale   one at which a hand card cannot be played by a click on it gives
//           75 per cent. The hit areas of the hand do not move with the
//           cards (match/geometria.h), so this leaves 58.54 to 78.89 per
//           cent: below, the cards stand off their areas, or a click on a
//           card plays its neighbour; above, the same on the other side.
Impostazioni leggi_impostazioni(std::string_view testo);

// The file's text for these settings, e.g. " 2 \r\n 101 \r\n 75 \r\n".
std::string scrivi_impostazioni(const Impostazioni& impostazioni);

// Reads the file; a missing or unreadable file reads as empty, and so gives
// the defaults above. At most the first few kilobytes are looked at.
Impostazioni Set_Read(const std::filesystem::path& file);

// Rewrites the file whole. Returns false if it could not be written; the
// game goes on with the settings it has in memory.
bool Set_Write(const std::filesystem::path& file, const Impostazioni& impostazioni);

}  // namespace lesta
