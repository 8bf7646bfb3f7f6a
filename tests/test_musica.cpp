// SPDX-License-Identifier: GPL-3.0-or-later
// The music player: the song menu read from the music folder, the start of
// the music at load, the menu's three kinds of choice, the sequential walk,
// the song frame; and the MIDI writing and song notation behind the game's songs.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <tuple>

#include "banco.h"
#include "sound/file_midi.h"
#include "tools/canzoni.h"

namespace lesta {
namespace {

using Parole = std::vector<std::string>;

const Parole play = {"close", "Open", "Play"};

struct BancoMusica : prova::Banco<> {
    std::filesystem::path cartella_musica() const { return cartella.percorso() / "music"; }
    // Files in the music folder, a name ending in '/' a folder, "" none, and
    // the menu filled; without names, no folder.
    void crea(const Parole& nomi) {
        if (!nomi.empty()) std::filesystem::create_directories(cartella_musica());
        for (const auto& n : nomi) {
            if (n.ends_with('/'))
                std::filesystem::create_directory(cartella_musica() / n);
            else if (!n.empty())
                std::ofstream(cartella_musica() / n) << "MThd";
        }
        frm.riempi_canzoni();
    }
    // n of these songs in the menu, in the folder's order. The song titled "a"
    // is opened as a.mid, the file rebuilt from its title.
    void canzoni(int n) { crea(Parole(std::begin(di_prova), std::begin(di_prova) + n)); }
    static constexpr const char* di_prova[] = {"uno.mid", "due.mid", "a.midi.mid"};
    std::string titolo(int k) const { return frm.canzoni.at(static_cast<std::size_t>(k)); }
    std::string file_di(int k) const { return (cartella_musica() / (titolo(k) + ".mid")).string(); }
    Parole titoli() const { return {frm.canzoni.begin() + 1, frm.canzoni.end()}; }
    std::string bottone() const { return finestra.captions[static_cast<std::size_t>(Controllo::CmdSong)]; }
    bool quadro(float x = 12, float y = 300) const {
        return finestra.figura_a(x, y) == static_cast<int>(Figura::Quadro);
    }
    // The checked entries of the music menu.
    std::set<std::string> spuntate() const {
        std::set<std::string> s;
        if (finestra.spuntata(Voce::nomusic, 0)) s.insert("None");
        if (finestra.spuntata(Voce::All, 0)) s.insert("All");
        for (int k = 1; k < static_cast<int>(frm.canzoni.size()); ++k)
            if (finestra.spuntata(Voce::canzoni, k)) s.insert(std::to_string(k));
        return s;
    }
    // The settings file's words.
    Parole impostazioni() const {
        std::ifstream in(cartella.percorso() / "Config.brx");
        return {std::istream_iterator<std::string>(in), {}};
    }
};

// ---- the song menu from the folder ----

// Each file with the title it gets, or nullptr where the list ends: the
// titles follow the folder's own order up to the first name without ".mid".
TEST(ElencoCanzoni, TitlesUpToTheFirstMidInTheFolderOrder) {
    using Voci = std::vector<std::pair<std::string, const char*>>;
    const Voci casi[] = {
        {{"Santa Lucia.mid", "Santa Lucia"},
         {"a.midi.mid", "a"},
         {"Luna Rossa .mid", "Luna Rossa "},
         {"MiXeD cAsE.mid", "MiXeD cAsE"},
         {"b.mid.bak", "b"},
         {".nascosto", nullptr},
         {"finta.mid/", nullptr}},
        {{"c1.mid", "c1"},
         {"c2.mid", "c2"},
         {"c3.mid", "c3"},
         {"c4.mid", "c4"},
         {"c5.mid", "c5"},
         {"c6.mid", "c6"},
         {"c7.mid", "c7"},
         {"LEGGIMI.MID", nullptr}},
        {{"Canzone.MID", nullptr}},
        {{"leggimi.txt", nullptr}},
        {{"mid", nullptr}},
        {{"", nullptr}},
        {},
    };
    for (const auto& caso : casi) {
        BancoMusica b;
        Parole nomi;
        for (const auto& v : caso) nomi.push_back(v.first);
        b.crea(nomi);
        Parole attesi;
        std::error_code manca;
        for (const auto& voce : std::filesystem::directory_iterator(b.cartella_musica(), manca)) {
            const auto nome = voce.path().filename().string();
            if (nome[0] == '.' || !voce.is_regular_file()) continue;  // not counted at all
            const auto v = std::find_if(caso.begin(), caso.end(), [&](const auto& p) { return p.first == nome; });
            if (v->second == nullptr) break;
            attesi.push_back(v->second);
        }
        EXPECT_EQ(b.titoli(), attesi) << caso.size();
        // The window has the same entries, numbered from 1.
        EXPECT_EQ(b.finestra.voci_canzoni, attesi.empty() ? Parole{} : b.frm.canzoni) << caso.size();
    }
}

// 101 stands for sequential mode in the settings, so no song may have it.
TEST(ElencoCanzoni, AHundredSongsAtMost) {
    BancoMusica b;
    Parole nomi;
    for (int i = 0; i < 105; ++i) nomi.push_back("brano " + std::to_string(i) + ".mid");
    b.crea(nomi);
    EXPECT_EQ(b.titoli().size(), 100u);
    EXPECT_EQ(b.finestra.voci_canzoni.size(), 101u);
}

// ---- the start of the music at load ----

// The number stored in the settings: the song played and the marks. A number
// outside the list means no music, and the file keeps it until the user
// chooses; the frame waits for the first hand in any case.
TEST(AvvioMusica, TheStoredNumberChoosesTheStart) {
    const struct {
        int numero, canzoni, suona;
        std::set<std::string> spuntate;
    } casi[] = {
        {0, 3, 0, {"None"}}, {2, 3, 2, {"2"}},      {101, 3, 1, {"All", "1"}}, {101, 0, 0, {"All"}},
        {4, 3, 0, {"None"}}, {100, 3, 0, {"None"}}, {-1, 3, 0, {"None"}},      {-32768, 3, 0, {"None"}},
    };
    for (const auto& c : casi) {
        BancoMusica b;
        b.canzoni(c.canzoni);
        std::ofstream(b.cartella.percorso() / "Config.brx", std::ios::binary)
            << " 2 \r\n " << c.numero << " \r\n 75 \r\n";
        b.frm.canzone = static_cast<std::int16_t>(c.numero);
        b.frm.avvia_musica();
        EXPECT_EQ(b.frm.canzone, c.suona) << c.numero;
        EXPECT_EQ(b.musica.parole, c.suona ? play : Parole{}) << c.numero;
        EXPECT_EQ(b.musica.aperti, c.suona ? Parole{b.file_di(c.suona)} : Parole{}) << c.numero;
        EXPECT_EQ(b.spuntate(), c.spuntate) << c.numero;
        EXPECT_EQ(b.bottone(), b.titolo(c.suona)) << c.numero;
        EXPECT_FALSE(b.frm.Visible(Controllo::CmdSong) || b.quadro()) << c.numero;
        EXPECT_EQ(b.impostazioni(), (Parole{"2", std::to_string(c.numero), "75"})) << c.numero;
        // The end of a song starts another only in the walk, and only with songs.
        b.frm.MMC1_Done(1);
        EXPECT_EQ(b.musica.aperti.size(), c.suona ? 1u + (c.numero == 101) : 0u) << c.numero;
    }
}

// ---- choosing a song ----

TEST(SceltaCanzone, PlaysItStoresItAndPutsTheTitleOnTheButton) {
    BancoMusica b;
    b.canzoni(3);
    b.frm.canzone = 0;
    b.frm.avvia_musica();
    for (int k : {0, 4, -1}) b.frm.canzoni_Click(k);  // not in the menu: nothing
    EXPECT_TRUE(b.musica.parole.empty());
    for (int k : {3, 3, 1}) {
        b.frm.canzoni_Click(k);
        EXPECT_EQ(Parole(b.musica.parole.end() - 3, b.musica.parole.end()), play);
        EXPECT_EQ(b.musica.aperti.back(), b.file_di(k));
        EXPECT_EQ(b.spuntate(), std::set<std::string>{std::to_string(k)});
        EXPECT_EQ(b.impostazioni().at(1), std::to_string(k));
        EXPECT_EQ(b.bottone(), b.titolo(k));
    }
    EXPECT_EQ(b.musica.aperti.size(), 3u);
    // Coming from "None" the frame waits for the next hand.
    EXPECT_FALSE(b.frm.Visible(Controllo::CmdSong));
    // Its end only puts the title back; other codes of the control are no end.
    b.finestra.caption(Controllo::CmdSong, "altro");
    for (int codice : {0, 2, 4, 8}) b.frm.MMC1_Done(codice);
    EXPECT_EQ(b.bottone(), "altro");
    b.frm.MMC1_Done(1);
    EXPECT_EQ(b.bottone(), b.titolo(1));
    EXPECT_EQ(b.musica.aperti.size(), 3u);
}

// ---- the sequential walk, in its frame ----

// Chosen while a song plays, SEQUENTIAL MODE walks the songs from the first,
// the last followed by the first, and keeps "all songs" in the file; a speed
// change during the walk stores the song that plays, yet the walk goes on.
// The frame is painted at once, from x = 10 to about 163 and y = 244 to 356,
// with the title button centred in it. "None" then stops the walk and paints
// over only the frame, in whatever the window's ground is now.
TEST(Sequenziale, WalksTheSongsInTurnInTheFrameUntilNone) {
    const struct {
        int n;
        std::vector<int> ordine;
        Colore fondo;
    } casi[] = {{3, {1, 2, 3, 1, 2, 3}, rosa_pannello}, {1, {1, 1, 1}, verde_tavolo}};
    for (const auto& [n, ordine, fondo] : casi) {
        BancoMusica b;
        b.canzoni(n);
        b.finestra.BackColor(fondo);
        b.finestra.BoxFilled(0, 0, 800, 600, giallo);
        b.frm.canzoni_Click(n);
        b.musica.parole.clear();
        b.musica.aperti.clear();
        b.frm.All_Click(0);
        EXPECT_EQ(b.musica.parole, play);
        EXPECT_TRUE(b.quadro(10.5f, 244.5f) && b.quadro(162.5f, 355.5f) && !b.quadro(9, 300) && !b.quadro(164, 300));
        const Rett bottone = b.finestra.controlli[static_cast<std::size_t>(Controllo::CmdSong)].r;
        EXPECT_TRUE(b.frm.Visible(Controllo::CmdSong));
        EXPECT_NEAR(bottone.left + bottone.width / 2, 86.6, 0.5);
        EXPECT_NEAR(bottone.top + bottone.height / 2, 300, 1e-3);
        Parole attesi;
        for (int k : ordine) {
            if (!attesi.empty()) b.frm.MMC1_Done(1);
            attesi.push_back(b.file_di(k));
            EXPECT_EQ(b.musica.aperti, attesi);
            EXPECT_EQ(b.frm.canzone, k);
            EXPECT_EQ(b.spuntate(), (std::set<std::string>{"All", std::to_string(k)}));
            EXPECT_EQ(b.bottone(), b.titolo(k));
            EXPECT_EQ(b.impostazioni().at(1), "101");
        }
        b.frm.velocita_gioco_Click(1);
        EXPECT_EQ(b.impostazioni(), (Parole{"1", std::to_string(n), "75"}));
        b.frm.MMC1_Done(1);
        EXPECT_EQ(b.musica.aperti.back(), b.file_di(1));

        b.frm.nomusic_Click(0);
        EXPECT_EQ(b.musica.parole.back(), "close");
        EXPECT_EQ(b.spuntate(), std::set<std::string>{"None"});
        EXPECT_EQ(b.impostazioni().at(1), "0");
        EXPECT_FALSE(b.frm.Visible(Controllo::CmdSong));
        for (auto [x, y, colore] : {std::tuple{10.5f, 244.5f, fondo},
                                    {162.5f, 355.5f, fondo},
                                    {8.0f, 300.0f, giallo},
                                    {165.0f, 300.0f, giallo},
                                    {80.0f, 242.0f, giallo},
                                    {80.0f, 358.0f, giallo}}) {
            EXPECT_EQ(b.finestra.Point(x, y), colore) << x << "," << y;
        }
        // A late end of play changes nothing.
        const auto aperti = b.musica.aperti.size();
        b.frm.MMC1_Done(1);
        EXPECT_EQ(b.musica.aperti.size(), aperti);
        EXPECT_EQ(b.frm.canzone, 0);
    }
}

// With no song at all, SEQUENTIAL MODE is kept in the file but shows nothing
// on the table: no frame, no title button, now or at a later hand.
TEST(Sequenziale, WithNoSongsShowsNothing) {
    BancoMusica b;
    b.crea({});
    b.finestra.BackColor(verde_tavolo);
    b.frm.All_Click(0);
    EXPECT_EQ(b.impostazioni().at(1), "101");
    EXPECT_EQ(b.spuntate(), std::set<std::string>{"All"});
    EXPECT_TRUE(b.musica.aperti.empty());
    EXPECT_FALSE(b.quadro());
    EXPECT_FALSE(b.frm.Visible(Controllo::CmdSong));
    EXPECT_EQ(b.frm.canzone, 0);
}

TEST(FileMidi, VariableQuantitiesAndRepeatedNotes) {
    midi::Traccia t;
    t.nota(0, 0, 480, 60, 100);
    t.nota(0, 480, 480, 60, 100);  // the same key struck again at once
    t.nota(3, 200480, 10, 72, 0);  // a long pause; force 0 still sounds
    // 199520 ticks later: 0x30B60 in three groups of seven bits
    EXPECT_EQ(t.corpo(), (std::vector<std::uint8_t>{0x00, 0x90, 60,   100,  0x83, 0x60, 0x80, 60,   64,   0x00, 0x90,
                                                    60,   100,  0x83, 0x60, 0x80, 60,   64,   0x8C, 0x96, 0x60, 0x93,
                                                    72,   1,    0x0A, 0x83, 72,   64,   0x00, 0xFF, 0x2F, 0x00}));
}

// The build makes the songs only if they read without a fault: the reading
// must find each kind of fault.
TEST(CanzoniDelGioco, TheNotationTellsItsFaults) {
    const auto p = canzoni::leggi(
        {"prova",
         "",
         3,
         4,
         8,
         100,
         0,
         0,
         0,
         {{'A', "C4:2 D4:2 E4:2 | F4:2 G4:3 | H4:6 | C4:6", "C | C | Xm | C"}, {'B', "C4:6 | C4:6", "C"}},
         "ABQ"});
    for (const char* parte : {"bar 2: 5 units instead of 6", "cannot read \"H4:6\"", "cannot read chord \"Xm\"",
                              "section B: 2 bars, 1 chords", "no section Q"}) {
        EXPECT_TRUE(std::any_of(p.errori.begin(), p.errori.end(), [&](const std::string& e) {
            return e.find(parte) != std::string::npos;
        })) << parte;
    }
    // Sharps, flats and rests; a seventh chord in the second bar.
    const auto q =
        canzoni::leggi({"prova", "", 3, 4, 8, 100, 0, 0, 0, {{'A', "C4:2 D#4:2 Eb4:2 | r:6", "C | G7"}}, "A"});
    ASSERT_TRUE(q.errori.empty() && q.melodia.size() == 3 && q.accordi.size() == 2);
    EXPECT_EQ(std::tuple(q.melodia[0].altezza, q.melodia[1].altezza, q.melodia[2].altezza, q.melodia[2].inizio),
              std::tuple(60, 63, 63, 4));
    EXPECT_EQ(std::tuple(q.accordi[1].radice, q.accordi[1].inizio, q.accordi[1].intervalli),
              std::tuple(7, 6, std::vector<int>{0, 4, 7, 10}));
}

}  // namespace
}  // namespace lesta
