// The settings file: its exact bytes, what damaged files give, and the play
// rate menu that writes it.

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <random>

#include "banco.h"
#include "table/impostazioni.h"

namespace lesta {
namespace {

using prova::Banco;
using prova::CartellaTemporanea;

std::string leggi_tutto(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void scrivi_tutto(const std::filesystem::path& p, std::string_view testo) {
    std::ofstream(p, std::ios::binary) << testo;
}

const std::string file_della_partita = " 2 \r\n 101 \r\n 75 \r\n";

TEST(FileImpostazioni, MiddleSequentialAndThreeQuartersAreTheEighteenBytesOfTheGame) {
    const std::string atteso("\x20\x32\x20\x0D\x0A\x20\x31\x30\x31\x20\x0D\x0A\x20\x37\x35\x20\x0D\x0A", 18);
    EXPECT_EQ(scrivi_impostazioni({2, 101, 0.75f}), atteso);
    EXPECT_EQ(file_della_partita, atteso);

    const Impostazioni lette = leggi_impostazioni(atteso);
    EXPECT_EQ(lette.velocita, 2);
    EXPECT_EQ(lette.canzone, 101);
    EXPECT_FLOAT_EQ(lette.scala, 0.75f);
}

TEST(FileImpostazioni, WhatIsReadIsWrittenBackUnchanged) {
    for (std::string_view testo : {" 3 \r\n 0 \r\n 75 \r\n", " 1 \r\n 7 \r\n 74 \r\n", " 2 \r\n 100 \r\n 74.5 \r\n",
                                   " 3 \r\n 1 \r\n 25 \r\n", " 1 \r\n 0 \r\n 100 \r\n", " 2 \r\n 28 \r\n 52.6 \r\n"}) {
        EXPECT_EQ(scrivi_impostazioni(leggi_impostazioni(testo)), testo) << testo;
    }
}

// A scale written by hand with more digits than the game keeps is written
// back, when the player changes the rate, as the very scale that was read.
TEST(FileImpostazioni, EveryScaleTheFileCanGiveIsWrittenBackAsItself) {
    const auto torna_uguale = [](const std::string& percento) {
        const Impostazioni lette = leggi_impostazioni(" 2 \r\n 0 \r\n " + percento + " \r\n");
        return leggi_impostazioni(scrivi_impostazioni(lette)).scala == lette.scala;
    };
    for (const char* percento : {"52.6", "25.0000019", "25.0000114", "33.3333333", "66.666666666666", "99.9999999"})
        EXPECT_TRUE(torna_uguale(percento)) << percento;

    // Every float from 25 to 100 per cent, in steps of 101 of them.
    for (auto bit = std::bit_cast<std::uint32_t>(25.0f); bit <= std::bit_cast<std::uint32_t>(100.0f); bit += 101) {
        std::array<char, 32> percento{};
        std::snprintf(percento.data(), percento.size(), "%.9g", std::bit_cast<float>(bit));
        ASSERT_TRUE(torna_uguale(percento.data())) << percento.data();
    }
}

// Whatever the file holds, the game starts with every field in range and no
// message; a field that cannot be read takes its default alone.
TEST(FileImpostazioni, DamagedFilesGiveTheDefaultsFieldByField) {
    struct Caso {
        std::string_view nome, testo;
        int velocita, canzone;
        float scala;
    };
    const Caso casi[] = {
        {"commas for blanks", "3,12,80", 3, 12, 0.80f},
        {"line feeds alone, and a fourth line ignored", "1\n5\n60\n9\n", 1, 5, 0.60f},
        {"empty", "", 2, 0, 0.75f},
        {"truncated inside the music", " 3 \r\n 10", 3, 10, 0.75f},
        {"numbers glued to words", " 2x \r\n 7song \r\n 75% \r\n", 2, 0, 0.75f},
        {"negative", " -1 \r\n -5 \r\n -75 \r\n", 2, 0, 0.75f},
        {"huge", " 99999999999999999999 \r\n 70000 \r\n 1e400 \r\n", 2, 0, 0.75f},
        {"fractions where whole numbers belong", " 2.5 \r\n 3.5 \r\n 75 \r\n", 2, 0, 0.75f},
        {"just out of range", " 0 \r\n 102 \r\n 24 \r\n", 2, 0, 0.75f},
        {"not-a-number", " nan \r\n nan \r\n nan \r\n", 2, 0, 0.75f},
        {"a bad field keeps the others", " 3 \r\n ? \r\n 60 \r\n", 3, 0, 0.60f},
        {"sign and blanks", "\t+3\t \r\n   +101 \r\n +80 ", 3, 101, 0.80f},
    };
    for (const auto& caso : casi) {
        const Impostazioni lette = leggi_impostazioni(caso.testo);
        EXPECT_EQ(lette.velocita, caso.velocita) << caso.nome;
        EXPECT_EQ(lette.canzone, caso.canzone) << caso.nome;
        EXPECT_FLOAT_EQ(lette.scala, caso.scala) << caso.nome;
    }
}

TEST(FileImpostazioni, AnyBytesAtAllGiveFieldsInRange) {
    std::mt19937 g(7);
    const std::string alfabeto = " \r\n,.-+e0123456789x\0\xff";
    for (int prova = 0; prova < 20000; ++prova) {
        std::string testo(g() % 40, ' ');
        for (char& c : testo) c = (g() % 3 == 0) ? static_cast<char>(g()) : alfabeto[g() % alfabeto.size()];
        const Impostazioni lette = leggi_impostazioni(testo);
        ASSERT_TRUE(lette.velocita >= 1 && lette.velocita <= 3) << testo;
        ASSERT_TRUE(lette.canzone >= 0 && lette.canzone <= 101) << testo;
        ASSERT_TRUE(lette.scala >= 0.25f && lette.scala <= 1.0f) << testo;
    }
}

TEST(FileImpostazioni, MissingOrBinaryFileReadsAsDefaults) {
    CartellaTemporanea cartella;
    const auto file = cartella.percorso() / "Config.brx";
    const Impostazioni mancante = Set_Read(file);
    EXPECT_EQ(mancante.velocita, 2);
    EXPECT_EQ(mancante.canzone, 0);
    EXPECT_FLOAT_EQ(mancante.scala, 0.75f);

    std::string binario(100000, '\0');
    std::mt19937 g(3);
    for (char& c : binario) c = static_cast<char>(g());
    scrivi_tutto(file, binario);
    const Impostazioni lette = Set_Read(file);
    EXPECT_TRUE(lette.velocita >= 1 && lette.velocita <= 3);
    EXPECT_TRUE(lette.scala >= 0.25f && lette.scala <= 1.0f);

    // A folder where the file should be is no file either.
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    EXPECT_EQ(Set_Read(file).velocita, 2);
}

TEST(FileImpostazioni, WritingWhereNothingCanBeWrittenFailsQuietly) {
    EXPECT_FALSE(Set_Write("/nonexistent-folder/Config.brx", {1, 0, 0.75f}));
}

// ---- the settings as the table window uses them ----

TEST(MenuVelocita, LoadChecksTheFilesSpeedAndUsesItTimesTen) {
    Banco b;
    scrivi_tutto(b.cartella.percorso() / "Config.brx", " 3 \r\n 0 \r\n 75 \r\n");
    b.frm.Form_Load();
    EXPECT_EQ(b.frm.velocita, 30);
    EXPECT_EQ(b.frm.canzone, 0);
    EXPECT_TRUE(b.finestra.spuntata(Voce::velocita_gioco, 3));
    EXPECT_FALSE(b.finestra.spuntata(Voce::velocita_gioco, 1));
    EXPECT_FALSE(b.finestra.spuntata(Voce::velocita_gioco, 2));
    // Loading writes nothing.
    EXPECT_EQ(leggi_tutto(b.cartella.percorso() / "Config.brx"), " 3 \r\n 0 \r\n 75 \r\n");
}

TEST(MenuVelocita, AChoiceIsARadioGroupAndIsSavedAtOnce) {
    Banco b;
    scrivi_tutto(b.cartella.percorso() / "Config.brx", " 2 \r\n 0 \r\n 74.5 \r\n 9 \r\n");
    b.frm.Form_Load();
    for (int scelta : {1, 3, 3, 2}) {
        b.frm.velocita_gioco_Click(scelta);
        EXPECT_EQ(b.frm.velocita, 10 * scelta);
        for (int i = 1; i <= 3; ++i) EXPECT_EQ(b.finestra.spuntata(Voce::velocita_gioco, i), i == scelta);
        // The scale goes back unchanged and the fourth line is dropped.
        EXPECT_EQ(leggi_tutto(b.cartella.percorso() / "Config.brx"),
                  " " + std::to_string(scelta) + " \r\n 0 \r\n 74.5 \r\n");
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
