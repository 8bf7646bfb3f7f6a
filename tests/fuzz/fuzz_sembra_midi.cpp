// SPDX-License-Identifier: GPL-3.0-or-later
// A song file as anyone may put it in the music folder: whatever its bytes,
// the first look at it is safe, and a file taken for a song is still taken
// with more bytes after it, which only the synthesizer reads.

#include <cstdint>
#include <string>
#include <string_view>

#include "sound/sembra_midi.h"
#include "tests/fuzz/file_in_memoria.h"
#include "tests/fuzz/verifica.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const lesta::fuzz::FileInMemoria file("canzone.mid");
    const std::string_view byte(reinterpret_cast<const char*>(dati), quanti);

    file.scrivi(byte);
    if (!lesta::sembra_midi(file.percorso())) return 0;

    file.scrivi(std::string(byte) + std::string(byte));
    lesta::fuzz::verifica(lesta::sembra_midi(file.percorso()), "a song with more bytes after it is no song any more",
                          byte);
    return 0;
}
