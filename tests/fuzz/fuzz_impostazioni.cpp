// SPDX-License-Identifier: GPL-3.0-or-later
// The settings file as anyone may leave it beside the program: whatever its
// bytes, the game starts with every setting in range, the file reads as its
// text does, and what the game writes back reads back the same.

#include <cstdint>
#include <string>
#include <string_view>

#include "match/geometria.h"
#include "table/impostazioni.h"
#include "tests/fuzz/file_in_memoria.h"
#include "tests/fuzz/verifica.h"

namespace {

using lesta::Impostazioni;
using lesta::fuzz::verifica;

bool in_campo(const Impostazioni& s) {
    return s.velocita >= 1 && s.velocita <= 3 && s.canzone >= 0 && s.canzone <= 101 && lesta::scala_giocabile(s.scala);
}

bool uguali(const Impostazioni& a, const Impostazioni& b) {
    return a.velocita == b.velocita && a.canzone == b.canzone && a.scala == b.scala;
}

// A real settings file is some twenty bytes; the reader promises only the
// first few kilobytes, so longer files are held to the range alone.
constexpr std::size_t file_intero = 4096;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const lesta::fuzz::FileInMemoria file("Config.brx");
    const std::string_view testo(reinterpret_cast<const char*>(dati), quanti);

    const Impostazioni lette = lesta::leggi_impostazioni(testo);
    verifica(in_campo(lette), "a setting out of range", testo);

    file.scrivi(testo);
    const Impostazioni dal_file = lesta::Set_Read(file.percorso());
    verifica(in_campo(dal_file), "a setting out of range in the file", testo);
    if (quanti <= file_intero) verifica(uguali(dal_file, lette), "the file reads unlike its text", testo);

    // What the game writes back, from memory or through the file, reads back
    // as the same settings.
    verifica(uguali(lesta::leggi_impostazioni(lesta::scrivi_impostazioni(lette)), lette),
             "the settings written do not read back the same", testo);
    verifica(lesta::Set_Write(file.percorso(), dal_file), "the file cannot be written", testo);
    verifica(uguali(lesta::Set_Read(file.percorso()), dal_file), "the file written does not read back the same", testo);
    return 0;
}
