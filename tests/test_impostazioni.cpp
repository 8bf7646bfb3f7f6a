// SPDX-License-Identifier: GPL-3.0-or-later
// The settings file: its exact bytes, what damaged files give, and the play
// rate menu that writes it.

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>

#include "banco.h"
#include "table/impostazioni.h"

namespace lesta {
namespace {

using prova::Banco;
using prova::CartellaTemporanea;
using prova::leggi_tutto;
using prova::scrivi_tutto;

// A scale written by hand with more digits than the game keeps is written
// back, when the player changes the rate, as the very scale that was read.
TEST(FileImpostazioni, EveryScaleTheFileCanGiveIsWrittenBackAsItself) {
    const auto torna_uguale = [](const std::string& percento) {
        const Impostazioni lette = leggi_impostazioni(" 2 \r\n 0 \r\n " + percento + " \r\n");
        return leggi_impostazioni(scrivi_impostazioni(lette)).scala == lette.scala;
    };
    for (const char* percento : {"62.6", "60.0000019", "60.0000114", "63.3333333", "66.666666666666", "78.8000011"})
        EXPECT_TRUE(torna_uguale(percento)) << percento;

    // Every float of the playable scales, in steps of 11 of them.
    for (auto bit = std::bit_cast<std::uint32_t>(58.6f); bit <= std::bit_cast<std::uint32_t>(78.8f); bit += 11) {
        std::array<char, 32> percento{};
        std::snprintf(percento.data(), percento.size(), "%.9g", std::bit_cast<float>(bit));
        ASSERT_TRUE(torna_uguale(percento.data())) << percento.data();
    }
}

// Each text with the settings it gives. Whatever the file holds, the game
// starts with every field in range and no message; a field that cannot be
// read takes its default alone. The game's own files, named "", are written
// back byte for byte; the first is the one left at Middle, sequential mode,
// 75 per cent.
TEST(FileImpostazioni, EachTextGivesItsSettingsAndTheGamesOwnAreWrittenBackUnchanged) {
    struct Caso {
        std::string_view nome, testo;
        int velocita, canzone;
        float scala;
    };
    const Caso casi[] = {
        {"", std::string_view("\x20\x32\x20\x0D\x0A\x20\x31\x30\x31\x20\x0D\x0A\x20\x37\x35\x20\x0D\x0A", 18), 2, 101,
         0.75f},
        {"", " 3 \r\n 0 \r\n 75 \r\n", 3, 0, 0.75f},
        {"", " 1 \r\n 7 \r\n 74 \r\n", 1, 7, 0.74f},
        {"", " 2 \r\n 100 \r\n 74.5 \r\n", 2, 100, 0.745f},
        {"", " 3 \r\n 1 \r\n 60 \r\n", 3, 1, 0.60f},
        {"", " 2 \r\n 28 \r\n 62.6 \r\n", 2, 28, 0.626f},
        {"a blank line is a read that gets no number", " 3 \r\n\r\n 70 \r\n", 3, 0, 0.70f},
        {"so is a line of words", " 3 \r\n song \r\n 70 \r\n", 3, 0, 0.70f},
        {"commas end numbers, and nothing after the third is read", "3,12,70\n 5 9 \n 61 x\n", 3, 12, 0.70f},
        {"one line with commas", "2,101,75", 2, 101, 0.75f},
        {"carriage returns alone end lines", " 3 \r 0 \r 60 \r", 3, 0, 0.60f},
        {"blanks end numbers", "1 7\r\n 74 \r\n", 1, 7, 0.74f},
        {"blanks before a comma", "3 , 12 ,70", 3, 12, 0.70f},
        {"an empty item is a read that gets no number", "3,,70", 3, 0, 0.70f},
        {"a comma at a line's end leaves an empty item", "2,\r\n101\r\n75\r\n", 2, 0, 0.75f},
        {"a line feed and then a carriage return are two line ends", " 3 \n\r 70 \n", 3, 0, 0.70f},
        {"line feeds alone, and a fourth line ignored", "1\n5\n60\n9\n", 1, 5, 0.60f},
        {"empty", "", 2, 0, 0.75f},
        {"truncated inside the music", " 3 \r\n 10", 3, 10, 0.75f},
        {"numbers glued to words", " 2x \r\n 7song \r\n 75% \r\n", 2, 0, 0.75f},
        {"negative", " -1 \r\n -5 \r\n -75 \r\n", 2, 0, 0.75f},
        {"huge", " 99999999999999999999 \r\n 70000 \r\n 1e400 \r\n", 2, 0, 0.75f},
        {"fractions where whole numbers belong", " 2.5 \r\n 3.5 \r\n 75 \r\n", 2, 0, 0.75f},
        {"just out of range", " 0 \r\n 102 \r\n 58.5 \r\n", 2, 0, 0.75f},
        {"just out of range above", " 4 \r\n 1e3 \r\n 78.9 \r\n", 2, 0, 0.75f},
        // At 25 no hand card can be clicked, at 40 slot 1 cannot and a click
        // on its right edge plays slot 2; at 80 a click on the left edge of
        // the middle card plays the first.
        {"at 25", " 1 \r\n 0 \r\n 25 \r\n", 1, 0, 0.75f},
        {"at 40", " 1 \r\n 0 \r\n 40 \r\n", 1, 0, 0.75f},
        {"at 80", " 1 \r\n 0 \r\n 80 \r\n", 1, 0, 0.75f},
        {"not-a-number", " nan \r\n nan \r\n nan \r\n", 2, 0, 0.75f},
        {"a bad field keeps the others", " 3 \r\n ? \r\n 60 \r\n", 3, 0, 0.60f},
        {"sign and blanks", "\t+3\t \r\n   +101 \r\n +78 ", 3, 101, 0.78f},
    };
    for (const auto& caso : casi) {
        SCOPED_TRACE(caso.nome.empty() ? caso.testo : caso.nome);
        const Impostazioni lette = leggi_impostazioni(caso.testo);
        EXPECT_EQ(lette.velocita, caso.velocita);
        EXPECT_EQ(lette.canzone, caso.canzone);
        EXPECT_FLOAT_EQ(lette.scala, caso.scala);
        if (caso.nome.empty()) {
            EXPECT_EQ(scrivi_impostazioni(lette), caso.testo);
        }
    }
}

// (Any bytes at all give fields in range: the fuzz target holds the reader to it.)
TEST(FileImpostazioni, AMissingFileOrAFolderInItsPlaceReadsAsDefaults) {
    CartellaTemporanea cartella;
    const auto file = cartella.percorso() / "Config.brx";
    for (bool cartella_al_posto : {false, true}) {
        if (cartella_al_posto) std::filesystem::create_directory(file);
        const Impostazioni lette = Set_Read(file);
        EXPECT_TRUE(lette.velocita == 2 && lette.canzone == 0) << cartella_al_posto;
        EXPECT_FLOAT_EQ(lette.scala, 0.75f) << cartella_al_posto;
    }
}

TEST(FileImpostazioni, WritingWhereNothingCanBeWrittenFailsQuietly) {
    EXPECT_FALSE(Set_Write("/nonexistent-folder/Config.brx", {1, 0, 0.75f}));
}

// ---- the settings as the table window uses them ----

// Load takes the file's speed times ten and writes nothing; each choice is a
// radio group, saved at once with the scale unchanged and no fourth line.
TEST(MenuVelocita, LoadUsesTheFilesSpeedAndEachChoiceIsSavedAtOnce) {
    Banco b;
    const auto file = b.cartella.percorso() / "Config.brx";
    scrivi_tutto(file, " 3 \r\n 0 \r\n 74.5 \r\n 9 \r\n");
    b.frm.Form_Load();
    for (int scelta : {0, 1, 3, 3, 2}) {  // 0: just loaded
        if (scelta != 0) b.frm.velocita_gioco_Click(scelta);
        const int attesa = scelta == 0 ? 3 : scelta;
        EXPECT_EQ(b.frm.velocita, 10 * attesa);
        for (int i = 1; i <= 3; ++i)
            EXPECT_EQ(b.finestra.spuntata(Voce::velocita_gioco, i), i == attesa) << scelta << i;
        EXPECT_EQ(leggi_tutto(file), scelta == 0 ? " 3 \r\n 0 \r\n 74.5 \r\n 9 \r\n"
                                                 : " " + std::to_string(scelta) + " \r\n 0 \r\n 74.5 \r\n");
    }
}

TEST(MenuVelocita, AFileThatCannotBeWrittenKeepsTheChoiceForTheRun) {
    Banco b;
    b.frm.Form_Load();
    // A folder in the file's place cannot be written, not even by root.
    std::filesystem::create_directory(b.cartella.percorso() / "Config.brx");
    b.frm.velocita_gioco_Click(3);
    EXPECT_EQ(b.frm.velocita, 30);
    EXPECT_TRUE(b.finestra.spuntata(Voce::velocita_gioco, 3));
    EXPECT_TRUE(std::filesystem::is_directory(b.cartella.percorso() / "Config.brx"));
}

}  // namespace
}  // namespace lesta
