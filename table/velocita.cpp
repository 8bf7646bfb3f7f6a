// SPDX-License-Identifier: GPL-3.0-or-later
// The play rate menu and the settings file, as the table window uses them.

#include <system_error>

#include "match/frmlesta.h"
#include "table/impostazioni.h"

namespace lesta {

void Frmlesta::Set_Read() {
    const Impostazioni lette = lesta::Set_Read(posto_impostazioni.da_leggere);
    velocita = lette.velocita;
    canzone = lette.canzone;
    scala = lette.scala;
}

// The menu's choice holds for this run even when the file cannot be written.
// The player's settings folder is made at the first choice written there.
void Frmlesta::Set_Write() {
    const std::filesystem::path& file = posto_impostazioni.da_scrivere;
    std::error_code ignorato;
    std::filesystem::create_directories(file.parent_path(), ignorato);
    lesta::Set_Write(file, {static_cast<std::uint8_t>(velocita / 10), canzone, scala});
}

void Frmlesta::spunta_velocita_gioco(int indice, bool spuntata) {
    spunta_velocita[static_cast<std::size_t>(indice)] = spuntata;
    finestra.spunta(Voce::velocita_gioco, indice, spuntata);
}

void Frmlesta::velocita_gioco_Click(int indice) {
    for (int i = 1; i <= 3; ++i) spunta_velocita_gioco(i, false);
    velocita = static_cast<std::uint8_t>(indice);
    spunta_velocita_gioco(indice, true);
    velocita = static_cast<std::uint8_t>(velocita * 10);
    Set_Write();
}

}  // namespace lesta
