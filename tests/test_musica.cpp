// The music player: the song menu read from the music folder, the start of
// the music at load, the menu's three kinds of choice, the sequential walk,
// the song frame; and the songs that come with the game, as MIDI files.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <random>
#include <set>
#include <stdexcept>

#include "banco.h"
#include "sound/file_midi.h"
#include "tools/canzoni.h"

namespace lesta {
namespace {

using prova::CartellaTemporanea;

// A media control that writes down what it is told.
class MediaRegistrata final : public Media {
public:
    struct Comando {
        std::string parola;
        std::string file;  // the file name at the time of the command
    };

    void FileName(const std::string& percorso) override { file_ = percorso; }
    void Command(std::string_view comando) override { comandi.push_back({std::string(comando), file_}); }
    void From(int posizione) override { comandi.push_back({"From " + std::to_string(posizione), file_}); }
    void Wait(bool) override {}

    // The files opened, in order.
    std::vector<std::string> aperti() const {
        std::vector<std::string> out;
        for (const auto& c : comandi) {
            if (c.parola == "Open") out.push_back(c.file);
        }
        return out;
    }
    std::vector<std::string> parole() const {
        std::vector<std::string> out;
        for (const auto& c : comandi) out.push_back(c.parola);
        return out;
    }

    std::vector<Comando> comandi;

private:
    std::string file_;
};

struct BancoMusica {
    BancoMusica() { orologio.al_timer2 = [this] { frm.Timer2_Timer(); }; }

    CartellaTemporanea cartella;
    FinestraRaster finestra;
    OrologioVirtuale orologio;
    CasualeFisso casuale{1};
    MediaRegistrata musica, suono;
    ProgrammaFinto programma;
    ModLesta mod;
    Frmlesta frm{Piattaforma{finestra, orologio, casuale, musica, suono, programma}, mod, cartella.percorso()};

    std::filesystem::path cartella_musica() const { return cartella.percorso() / "music"; }

    void crea_file(const std::string& nome) {
        std::filesystem::create_directories(cartella_musica());
        std::ofstream(cartella_musica() / nome) << "MThd";
    }
    // A folder of songs, filled and entered in the menu.
    void canzoni(std::initializer_list<std::string> titoli) {
        std::filesystem::create_directories(cartella_musica());
        for (const auto& t : titoli) crea_file(t + ".mid");
        frm.riempi_canzoni();
    }
    std::string file_di(const std::string& titolo) const { return (cartella_musica() / (titolo + ".mid")).string(); }
    std::string file_di(int k) const { return file_di(frm.canzoni[static_cast<std::size_t>(k)]); }

    std::string titolo_sul_bottone() const { return finestra.captions[static_cast<std::size_t>(Controllo::CmdSong)]; }

    // The check marks of the music menu, as the window has them: "None",
    // "SEQUENTIAL MODE" and the songs, each by its number.
    std::set<std::string> spuntate() const {
        std::set<std::string> s;
        if (finestra.spuntata(Voce::nomusic, 0)) s.insert("None");
        if (finestra.spuntata(Voce::All, 0)) s.insert("All");
        for (int k = 1; k < static_cast<int>(frm.canzoni.size()); ++k) {
            if (finestra.spuntata(Voce::canzoni, k)) s.insert(std::to_string(k));
        }
        return s;
    }

    // The settings file's lines, without their blanks.
    std::vector<std::string> impostazioni() const {
        std::ifstream in(cartella.percorso() / "Config.brx", std::ios::binary);
        std::vector<std::string> righe;
        for (std::string r; std::getline(in, r);) {
            std::string pulita;
            for (char ch : r) {
                if (ch != ' ' && ch != '\r') pulita += ch;
            }
            righe.push_back(pulita);
        }
        return righe;
    }
};

// The names of a folder's plain files in the order the system lists them.
std::vector<std::string> ordine_della_cartella(const std::filesystem::path& p) {
    std::vector<std::string> nomi;
    for (const auto& voce : std::filesystem::directory_iterator(p)) {
        if (voce.is_regular_file()) nomi.push_back(voce.path().filename().string());
    }
    return nomi;
}

std::vector<std::string> titoli(const Frmlesta& frm) { return {frm.canzoni.begin() + 1, frm.canzoni.end()}; }

const std::vector<std::string> play_di_un_brano = {"close", "Open", "Play"};

// ---- the song menu from the folder ----

TEST(ElencoCanzoni, TitlesAreTheNamesUpToTheFirstMidInTheFolderOrder) {
    BancoMusica b;
    for (const char* nome : {"Santa Lucia.mid", "a.midi.mid", "Luna Rossa .mid", "MiXeD cAsE.mid", "b.mid.bak"}) {
        b.crea_file(nome);
    }
    b.frm.riempi_canzoni();

    std::vector<std::string> attesi;
    for (const auto& nome : ordine_della_cartella(b.cartella_musica())) attesi.push_back(nome.substr(0, nome.find(".mid")));
    EXPECT_EQ(titoli(b.frm), attesi);
    EXPECT_EQ(b.frm.canzoni.size(), 6u);
    EXPECT_EQ(b.frm.canzoni[0], "");
    // Titles keep case and spaces; a second ".mid" is cut off with the rest.
    const std::set<std::string> insieme(attesi.begin(), attesi.end());
    EXPECT_EQ(insieme, (std::set<std::string>{"Santa Lucia", "a", "Luna Rossa ", "MiXeD cAsE", "b"}));

    // The window has the same entries, numbered from 1, none checked.
    ASSERT_EQ(b.finestra.voci_canzoni.size(), 6u);
    for (int k = 1; k <= 5; ++k) EXPECT_EQ(b.finestra.voci_canzoni[static_cast<std::size_t>(k)], b.frm.canzoni[static_cast<std::size_t>(k)]);
    EXPECT_EQ(b.frm.spunta_canzoni, std::vector<bool>(6, false));
}

TEST(ElencoCanzoni, ANameWithoutMidEndsTheListWhereverItStands) {
    BancoMusica b;
    for (int i = 0; i < 12; ++i) b.crea_file("canzone " + std::to_string(i) + ".mid");
    b.crea_file("LEGGIMI.MID");  // capitals: no ".mid" in it
    b.frm.riempi_canzoni();

    std::vector<std::string> attesi;
    for (const auto& nome : ordine_della_cartella(b.cartella_musica())) {
        if (nome == "LEGGIMI.MID") break;
        attesi.push_back(nome.substr(0, nome.size() - 4));
    }
    EXPECT_EQ(titoli(b.frm), attesi);
    EXPECT_EQ(b.finestra.voci_canzoni.size(), attesi.size() + (attesi.empty() ? 0 : 1));
}

TEST(ElencoCanzoni, AFirstNameWithoutMidLeavesTheListEmpty) {
    for (const char* nome : {"Canzone.MID", "leggimi.txt", "canzone.mp3", "mid"}) {
        BancoMusica b;
        b.crea_file(nome);
        b.frm.riempi_canzoni();
        EXPECT_TRUE(titoli(b.frm).empty()) << nome;
        EXPECT_TRUE(b.finestra.voci_canzoni.empty()) << nome;
    }
}

TEST(ElencoCanzoni, HiddenFilesAndFoldersAreNotCounted) {
    BancoMusica b;
    b.crea_file("uno.mid");
    b.crea_file(".nascosto");  // would end the list if it counted
    std::filesystem::create_directories(b.cartella_musica() / "cartella");
    std::filesystem::create_directories(b.cartella_musica() / "finta.mid");  // would be a song
    std::filesystem::create_directory_symlink(b.cartella_musica() / "cartella", b.cartella_musica() / "collegamento");
    b.frm.riempi_canzoni();
    EXPECT_EQ(titoli(b.frm), std::vector<std::string>{"uno"});
}

TEST(ElencoCanzoni, NoFolderAnEmptyOneOrAFileInItsPlaceGiveNoSongs) {
    BancoMusica senza;
    senza.frm.riempi_canzoni();
    EXPECT_TRUE(titoli(senza.frm).empty());

    BancoMusica vuota;
    std::filesystem::create_directories(vuota.cartella_musica());
    vuota.frm.riempi_canzoni();
    EXPECT_TRUE(titoli(vuota.frm).empty());

    BancoMusica file;
    std::ofstream(file.cartella.percorso() / "music") << "not a folder";
    file.frm.riempi_canzoni();
    EXPECT_TRUE(titoli(file.frm).empty());

    for (auto* b : {&senza, &vuota, &file}) {
        EXPECT_EQ(b->frm.canzoni.size(), 1u);
        EXPECT_EQ(b->frm.spunta_canzoni.size(), 1u);
        EXPECT_TRUE(b->finestra.voci_canzoni.empty());
    }
}

// 101 stands for sequential mode in the settings, so no song may have it.
TEST(ElencoCanzoni, AHundredSongsAtMost) {
    BancoMusica b;
    for (int i = 0; i < 105; ++i) b.crea_file("brano " + std::to_string(i) + ".mid");
    b.frm.riempi_canzoni();
    EXPECT_EQ(titoli(b.frm).size(), 100u);
    EXPECT_EQ(b.finestra.voci_canzoni.size(), 101u);
}

// ---- the start of the music at load ----

TEST(AvvioMusica, ZeroChecksNoneAndSendsNothing) {
    BancoMusica b;
    b.canzoni({"uno", "due"});
    b.frm.canzone = 0;
    b.frm.avvia_musica();
    EXPECT_EQ(b.spuntate(), std::set<std::string>{"None"});
    EXPECT_TRUE(b.musica.comandi.empty());
    EXPECT_FALSE(b.frm.Visible(Controllo::CmdSong));
}

TEST(AvvioMusica, ASongNumberPlaysThatSongWithItsTitleButNoFrameYet) {
    BancoMusica b;
    b.canzoni({"uno", "due", "tre"});
    b.frm.canzone = 2;
    b.frm.avvia_musica();

    EXPECT_EQ(b.musica.parole(), play_di_un_brano);
    EXPECT_EQ(b.musica.aperti(), std::vector<std::string>{b.file_di(2)});
    EXPECT_EQ(b.spuntate(), std::set<std::string>{"2"});
    EXPECT_EQ(b.frm.canzone, 2);
    EXPECT_EQ(b.titolo_sul_bottone(), b.frm.canzoni[2]);
    // The frame waits for the first activation.
    EXPECT_FALSE(b.frm.Visible(Controllo::CmdSong));
    EXPECT_NE(b.finestra.figura_a(12, 300), static_cast<int>(Figura::Quadro));
}

TEST(AvvioMusica, HundredAndOneStartsTheWalkAtSongOne) {
    BancoMusica b;
    b.canzoni({"uno", "due", "tre"});
    b.frm.canzone = 101;
    b.frm.avvia_musica();
    EXPECT_EQ(b.musica.aperti(), std::vector<std::string>{b.file_di(1)});
    EXPECT_EQ(b.spuntate(), (std::set<std::string>{"All", "1"}));
    EXPECT_EQ(b.frm.canzone, 1);
    EXPECT_EQ(b.titolo_sul_bottone(), b.frm.canzoni[1]);
}

// A song that is no longer in the folder, or a number below 0: no music, and
// the file is left as it is until the user chooses.
TEST(AvvioMusica, ANumberOutsideTheListMeansNoMusic) {
    for (int numero : {4, 100, -1, -32768}) {
        BancoMusica b;
        b.canzoni({"uno", "due", "tre"});
        std::ofstream(b.cartella.percorso() / "Config.brx", std::ios::binary) << " 2 \r\n 4 \r\n 75 \r\n";
        b.frm.canzone = static_cast<std::int16_t>(numero);
        b.frm.avvia_musica();
        EXPECT_EQ(b.frm.canzone, 0) << numero;
        EXPECT_EQ(b.spuntate(), std::set<std::string>{"None"}) << numero;
        EXPECT_TRUE(b.musica.comandi.empty()) << numero;
        EXPECT_EQ(b.impostazioni(), (std::vector<std::string>{"2", "4", "75"})) << numero;
    }
}

TEST(AvvioMusica, HundredAndOneWithNoSongsPlaysNothing) {
    BancoMusica b;
    b.frm.riempi_canzoni();
    b.frm.canzone = 101;
    b.frm.avvia_musica();
    EXPECT_EQ(b.spuntate(), std::set<std::string>{"All"});
    EXPECT_EQ(b.frm.canzone, 0);
    EXPECT_TRUE(b.musica.aperti().empty());
    EXPECT_EQ(b.titolo_sul_bottone(), "");
    // Nothing happens at the end of a song either.
    b.frm.MMC1_Done(1);
    EXPECT_EQ(b.frm.canzone, 0);
    EXPECT_TRUE(b.musica.aperti().empty());
}

// ---- choosing a song ----

TEST(SceltaCanzone, PlaysItWritesItAndPutsTheTitleOnTheButton) {
    BancoMusica b;
    b.canzoni({"uno", "due", "tre"});
    b.frm.canzone = 0;
    b.frm.avvia_musica();
    b.frm.canzoni_Click(3);

    EXPECT_EQ(b.musica.parole(), play_di_un_brano);
    EXPECT_EQ(b.musica.aperti(), std::vector<std::string>{b.file_di(3)});
    EXPECT_EQ(b.spuntate(), std::set<std::string>{"3"});
    EXPECT_EQ(b.frm.canzone, 3);
    EXPECT_EQ(b.impostazioni().at(1), "3");
    EXPECT_EQ(b.titolo_sul_bottone(), b.frm.canzoni[3]);
    // Coming from "None" the frame is not painted: that waits for the next hand.
    EXPECT_FALSE(b.frm.Visible(Controllo::CmdSong));
}

TEST(SceltaCanzone, TheSongThatPlaysStartsAgainAndAnotherReplacesIt) {
    BancoMusica b;
    b.canzoni({"uno", "due", "tre"});
    b.frm.canzoni_Click(2);
    b.frm.canzoni_Click(2);
    b.frm.canzoni_Click(1);
    EXPECT_EQ(b.musica.aperti(), (std::vector<std::string>{b.file_di(2), b.file_di(2), b.file_di(1)}));
    const std::vector<std::string> tre_volte = {"close", "Open", "Play", "close", "Open", "Play", "close", "Open", "Play"};
    EXPECT_EQ(b.musica.parole(), tre_volte);
    EXPECT_EQ(b.spuntate(), std::set<std::string>{"1"});
}

TEST(SceltaCanzone, AFileWithMidTwiceOpensTheFileRebuiltFromItsTitle) {
    BancoMusica b;
    b.canzoni({"a.midi"});  // the file a.midi.mid, titled "a"
    ASSERT_EQ(titoli(b.frm), std::vector<std::string>{"a"});
    b.frm.canzoni_Click(1);
    EXPECT_EQ(b.musica.aperti(), std::vector<std::string>{(b.cartella_musica() / "a.mid").string()});
}

TEST(SceltaCanzone, AnEntryThatIsNotThereDoesNothing) {
    BancoMusica b;
    b.canzoni({"uno"});
    for (int k : {0, 2, -1}) b.frm.canzoni_Click(k);
    EXPECT_TRUE(b.musica.comandi.empty());
    EXPECT_EQ(b.frm.canzone, 0);
}

TEST(SceltaCanzone, AFinishedSingleSongOnlyPutsItsTitleBack) {
    BancoMusica b;
    b.canzoni({"uno", "due"});
    b.frm.canzoni_Click(2);
    b.finestra.caption(Controllo::CmdSong, "altro");
    b.frm.MMC1_Done(1);
    EXPECT_EQ(b.musica.aperti().size(), 1u);
    EXPECT_EQ(b.titolo_sul_bottone(), b.frm.canzoni[2]);
    EXPECT_EQ(b.spuntate(), std::set<std::string>{"2"});
    // Any other code of the control is not an end of play.
    b.finestra.caption(Controllo::CmdSong, "altro");
    for (int codice : {0, 2, 4, 8}) b.frm.MMC1_Done(codice);
    EXPECT_EQ(b.titolo_sul_bottone(), "altro");
}

// ---- the sequential walk ----

TEST(Sequenziale, ThreeSongsPlayOneTwoThreeOneTwoWithTheCheckMarkMoving) {
    BancoMusica b;
    b.canzoni({"uno", "due", "tre"});
    b.frm.All_Click(0);
    EXPECT_EQ(b.impostazioni().at(1), "101");
    EXPECT_EQ(b.frm.canzone, 1);

    const int attesi[] = {2, 3, 1, 2};
    for (int k : attesi) {
        b.frm.MMC1_Done(1);
        EXPECT_EQ(b.frm.canzone, k);
        EXPECT_EQ(b.musica.aperti().back(), b.file_di(k));
        EXPECT_EQ(b.spuntate(), (std::set<std::string>{"All", std::to_string(k)}));
        EXPECT_EQ(b.titolo_sul_bottone(), b.frm.canzoni[static_cast<std::size_t>(k)]);
    }
    EXPECT_EQ(b.musica.aperti(), (std::vector<std::string>{b.file_di(1), b.file_di(2), b.file_di(3), b.file_di(1), b.file_di(2)}));
    // The walk does not write the file; it keeps saying "all songs".
    EXPECT_EQ(b.impostazioni().at(1), "101");
}

TEST(Sequenziale, OneSongPlaysAgainAndAgain) {
    BancoMusica b;
    b.canzoni({"sola"});
    b.frm.All_Click(0);
    for (int i = 0; i < 3; ++i) b.frm.MMC1_Done(1);
    EXPECT_EQ(b.musica.aperti(), std::vector<std::string>(4, b.file_di(1)));
    EXPECT_EQ(b.frm.canzone, 1);
    EXPECT_EQ(b.spuntate(), (std::set<std::string>{"All", "1"}));
}

TEST(Sequenziale, ChosenWhileSongTwoPlaysItStopsItAndStartsSongOneInItsFrame) {
    BancoMusica b;
    b.canzoni({"uno", "due", "tre"});
    b.finestra.BackColor(verde_tavolo);
    b.frm.canzoni_Click(2);
    b.musica.comandi.clear();

    b.frm.All_Click(0);
    EXPECT_EQ(b.musica.parole(), play_di_un_brano);
    EXPECT_EQ(b.musica.aperti(), std::vector<std::string>{b.file_di(1)});
    EXPECT_EQ(b.spuntate(), (std::set<std::string>{"All", "1"}));
    EXPECT_EQ(b.titolo_sul_bottone(), b.frm.canzoni[1]);
    // The frame is painted at once, with the title button in it.
    EXPECT_TRUE(b.frm.Visible(Controllo::CmdSong));
    EXPECT_EQ(b.finestra.figura_a(12, 300), static_cast<int>(Figura::Quadro));
}

TEST(Sequenziale, ASpeedChangeDuringTheWalkStoresTheSongThatPlays) {
    BancoMusica b;
    b.canzoni({"uno", "due", "tre"});
    b.frm.velocita = 20;
    b.frm.All_Click(0);
    b.frm.MMC1_Done(1);
    b.frm.MMC1_Done(1);
    ASSERT_EQ(b.frm.canzone, 3);
    b.frm.velocita_gioco_Click(1);
    EXPECT_EQ(b.impostazioni(), (std::vector<std::string>{"1", "3", "75"}));
    // The walk goes on all the same: the mark on SEQUENTIAL MODE says so.
    b.frm.MMC1_Done(1);
    EXPECT_EQ(b.frm.canzone, 1);
}

TEST(Sequenziale, NoneStopsTheWalk) {
    BancoMusica b;
    b.canzoni({"uno", "due"});
    b.frm.All_Click(0);
    b.frm.nomusic_Click(0);
    EXPECT_EQ(b.musica.parole().back(), "close");
    const auto aperti = b.musica.aperti().size();
    b.frm.MMC1_Done(1);  // a late end of play changes nothing
    EXPECT_EQ(b.musica.aperti().size(), aperti);
    EXPECT_EQ(b.spuntate(), std::set<std::string>{"None"});
    EXPECT_EQ(b.frm.canzone, 0);
}

// Exactly one entry of the music menu is checked, but for the song being
// walked in sequential mode; whatever the user does, in any order.
TEST(Sequenziale, TheCheckMarksAlwaysTellTheMode) {
    BancoMusica b;
    b.canzoni({"uno", "due", "tre", "quattro"});
    b.frm.canzone = 0;
    b.frm.avvia_musica();
    std::mt19937 caso(7);
    for (int passo = 0; passo < 400; ++passo) {
        switch (caso() % 4) {
            case 0: b.frm.canzoni_Click(static_cast<int>(caso() % 4) + 1); break;
            case 1: b.frm.All_Click(0); break;
            case 2: b.frm.nomusic_Click(0); break;
            case 3: b.frm.MMC1_Done(1); break;
        }
        const auto s = b.spuntate();
        if (b.frm.spunta_All) {
            EXPECT_EQ(s, (std::set<std::string>{"All", std::to_string(b.frm.canzone)})) << passo;
        } else if (b.frm.canzone == 0) {
            EXPECT_EQ(s, std::set<std::string>{"None"}) << passo;
        } else {
            EXPECT_EQ(s, std::set<std::string>{std::to_string(b.frm.canzone)}) << passo;
        }
        // The game's own marks and the window's agree.
        EXPECT_EQ(b.frm.spunta_nomusic, s.count("None") == 1);
        for (int k = 1; k <= 4; ++k) EXPECT_EQ(b.frm.spunta_canzoni[static_cast<std::size_t>(k)], s.count(std::to_string(k)) == 1);
    }
}

// ---- "None" and the frame ----

TEST(NessunaMusica, ErasesTheFrameInTheWindowsPresentGround) {
    for (Colore fondo : {rosa_pannello, verde_tavolo}) {
        BancoMusica b;
        b.canzoni({"uno", "due"});
        b.frm.canzoni_Click(1);
        b.finestra.BackColor(fondo);
        b.finestra.BoxFilled(0, 0, 800, 600, giallo);  // something painted all round
        b.frm.Quadro_Song();
        const Rett cornice = b.frm.rett(Controllo::quadro);
        ASSERT_EQ(b.finestra.figura_a(12, 300), static_cast<int>(Figura::Quadro));

        b.frm.nomusic_Click(0);
        const float alto = 300 - cornice.height / 2, basso = 300 + cornice.height / 2;
        for (float x : {10.5f, 80.0f, cornice.width + 9.5f}) {
            for (float y : {alto + 0.5f, 300.0f, basso - 0.5f}) EXPECT_EQ(b.finestra.Point(x, y), fondo) << x << "," << y;
        }
        // Only the frame's rectangle is painted over.
        EXPECT_EQ(b.finestra.Point(cornice.width + 12, 300), giallo);
        EXPECT_EQ(b.finestra.Point(8, 300), giallo);
        EXPECT_EQ(b.finestra.Point(80, alto - 2), giallo);
        EXPECT_EQ(b.finestra.Point(80, basso + 2), giallo);

        EXPECT_FALSE(b.frm.Visible(Controllo::CmdSong));
        EXPECT_EQ(b.musica.parole().back(), "close");
        EXPECT_EQ(b.spuntate(), std::set<std::string>{"None"});
        EXPECT_EQ(b.impostazioni().at(1), "0");
    }
}

TEST(QuadroSong, PaintsTheFrameAtTheLeftAndCentresTheButtonInIt) {
    BancoMusica b;
    b.frm.Quadro_Song();
    const Rett cornice = b.frm.rett(Controllo::quadro);
    const Rett bottone = b.frm.rett(Controllo::CmdSong);
    EXPECT_EQ(b.finestra.figura_a(10.5f, 300 - cornice.height / 2 + 0.5f), static_cast<int>(Figura::Quadro));
    EXPECT_EQ(b.finestra.figura_a(cornice.width + 9.5f, 300 + cornice.height / 2 - 0.5f), static_cast<int>(Figura::Quadro));
    EXPECT_NE(b.finestra.figura_a(9, 300), static_cast<int>(Figura::Quadro));
    EXPECT_NEAR(bottone.left, 10 + (cornice.width - bottone.width) / 2, 1e-3);
    EXPECT_NEAR(bottone.top, 300 - bottone.height / 2, 1e-3);
    EXPECT_TRUE(b.frm.Visible(Controllo::CmdSong));
    const auto& visto = b.finestra.controlli[static_cast<std::size_t>(Controllo::CmdSong)];
    EXPECT_TRUE(visto.visibile);
    EXPECT_NEAR(visto.r.left, bottone.left, 1e-3);
    // In logical units the frame runs from 10 to about 163 across, 244 to 356 down.
    EXPECT_NEAR(cornice.width + 10, 163.2, 0.5);
    EXPECT_NEAR(300 - cornice.height / 2, 243.7, 0.5);
}

// ---- the songs that come with the game ----

// An independent reading of a Standard MIDI File: chunks, events, notes.
struct LetturaSmf {
    int formato = -1, tracce = 0, divisione = 0;
    std::vector<std::uint32_t> fine_tracce;  // the tick of each track's End of Track
    std::map<int, int> accese, spente;       // note-ons and note-offs by channel
    std::uint32_t tempo = 500000;
    std::vector<std::pair<std::uint32_t, std::uint8_t>> stati;  // tick and status of every channel event
    std::string errore;
};

LetturaSmf leggi_smf(const std::vector<std::uint8_t>& b) {
    LetturaSmf l;
    std::size_t pos = 0;
    auto u = [&](int n) {
        std::uint32_t v = 0;
        for (int i = 0; i < n; ++i) v = v << 8 | b.at(pos++);
        return v;
    };
    auto vlq = [&] {
        std::uint32_t v = 0;
        for (int i = 0; i < 4; ++i) {
            const std::uint8_t c = b.at(pos++);
            v = v << 7 | (c & 0x7F);
            if ((c & 0x80) == 0) return v;
        }
        throw std::runtime_error("quantity too long");
    };
    try {
        if (std::string(b.begin(), b.begin() + 4) != "MThd") { l.errore = "no MThd"; return l; }
        pos = 4;
        if (u(4) != 6) { l.errore = "header length"; return l; }
        l.formato = static_cast<int>(u(2));
        l.tracce = static_cast<int>(u(2));
        l.divisione = static_cast<int>(u(2));
        for (int t = 0; t < l.tracce; ++t) {
            if (std::string(b.begin() + static_cast<long>(pos), b.begin() + static_cast<long>(pos) + 4) != "MTrk")
                { l.errore = "no MTrk"; return l; }
            pos += 4;
            const std::uint32_t lunghezza = u(4);
            const std::size_t fine = pos + lunghezza;
            std::uint32_t tick = 0;
            std::uint8_t stato = 0;
            bool finita = false;
            while (pos < fine && !finita) {
                tick += vlq();
                std::uint8_t s = b.at(pos);
                if (s & 0x80) {
                    ++pos;
                    stato = s;
                } else {
                    s = stato;  // running status
                }
                if (s == 0xFF) {
                    const std::uint8_t tipo = b.at(pos++);
                    const std::uint32_t n = vlq();
                    if (tipo == 0x2F) {
                        finita = true;
                        l.fine_tracce.push_back(tick);
                    }
                    if (tipo == 0x51) {
                        l.tempo = static_cast<std::uint32_t>(b.at(pos) << 16 | b.at(pos + 1) << 8 | b.at(pos + 2));
                    }
                    pos += n;
                    continue;
                }
                const int canale = s & 0x0F, tipo = s & 0xF0;
                l.stati.emplace_back(tick, s);
                const int dati = (tipo == 0xC0 || tipo == 0xD0) ? 1 : 2;
                const std::uint8_t velocita = dati == 2 ? b.at(pos + 1) : 0;
                if (tipo == 0x90 && velocita > 0) ++l.accese[canale];
                if (tipo == 0x80 || (tipo == 0x90 && velocita == 0)) ++l.spente[canale];
                pos += static_cast<std::size_t>(dati);
            }
            if (!finita || pos != fine) {
                l.errore = "track " + std::to_string(t) + " ends badly";
                return l;
            }
        }
        if (pos != b.size()) l.errore = "bytes after the last track";
    } catch (const std::exception& e) {
        l.errore = e.what();
    }
    return l;
}

TEST(FileMidi, VariableQuantitiesAndRepeatedNotes) {
    midi::Traccia t;
    t.nota(0, 0, 480, 60, 100);
    t.nota(0, 480, 480, 60, 100);  // the same key struck again at once
    t.nota(3, 200480, 10, 72, 0);  // a long pause; force 0 still sounds
    const auto corpo = t.corpo();
    const std::vector<std::uint8_t> atteso = {
        0x00, 0x90, 60, 100,  0x83, 0x60, 0x80, 60, 64,  0x00, 0x90, 60, 100,  0x83, 0x60, 0x80, 60, 64,
        // 199520 ticks later: 0x30B60 in three groups of seven bits
        0x8C, 0x96, 0x60, 0x93, 72, 1,  0x0A, 0x83, 72, 64,  0x00, 0xFF, 0x2F, 0x00};
    EXPECT_EQ(corpo, atteso);

    const auto file = midi::file_smf({t, midi::Traccia("nome")}, 96);
    const auto l = leggi_smf(file);
    EXPECT_EQ(l.errore, "");
    EXPECT_EQ(l.formato, 1);
    EXPECT_EQ(l.tracce, 2);
    EXPECT_EQ(l.divisione, 96);
}

// The bars marked "-" in the chords, over the whole form.
int battute_senza_accordo(const canzoni::Canzone& c) {
    int senza = 0;
    for (char nome : c.forma) {
        for (const auto& sezione : c.sezioni) {
            if (sezione.nome == nome) senza += static_cast<int>(std::count(sezione.accordi.begin(), sezione.accordi.end(), '-'));
        }
    }
    return senza;
}

TEST(CanzoniDelGioco, EverySongReadsWithFullBarsAndAChordForEachBar) {
    std::set<std::string> visti;
    ASSERT_GE(canzoni::tutte().size(), 3u);
    for (const auto& c : canzoni::tutte()) {
        const std::string titolo(c.titolo);
        const auto p = canzoni::leggi(c);
        EXPECT_TRUE(p.errori.empty()) << titolo << ": " << (p.errori.empty() ? "" : p.errori.front());
        EXPECT_GT(p.battute, 16) << titolo;
        EXPECT_EQ(static_cast<int>(p.accordi.size()), p.battute - battute_senza_accordo(c)) << titolo;
        const double secondi = canzoni::durata_secondi(c, p);
        EXPECT_GT(secondi, 40) << titolo;
        EXPECT_LT(secondi, 240) << titolo;
        // A melody a voice could sing.
        for (const auto& n : p.melodia) {
            EXPECT_GE(n.altezza, 50) << titolo;
            EXPECT_LE(n.altezza, 90) << titolo;
        }
        // The title is a file name of its own in the music folder.
        EXPECT_TRUE(visti.insert(titolo).second) << titolo;
        EXPECT_EQ(titolo.find('/'), std::string::npos);
        EXPECT_EQ(titolo.find(".mid"), std::string::npos);
        EXPECT_NE(titolo.front(), '.');
    }
}

TEST(CanzoniDelGioco, TheNotationTellsItsFaults) {
    const canzoni::Canzone sbagliata{
        "prova", "", 3, 4, 8, 100, 0, 0, 0,
        {{'A', "C4:2 D4:2 E4:2 | F4:2 G4:3 | H4:6 | C4:6", "C | C | Xm | C"}, {'B', "C4:6 | C4:6", "C"}},
        "ABQ"};
    const auto p = canzoni::leggi(sbagliata);
    const auto ha = [&](std::string_view parte) {
        return std::any_of(p.errori.begin(), p.errori.end(), [&](const std::string& e) { return e.find(parte) != std::string::npos; });
    };
    EXPECT_TRUE(ha("bar 2: 5 units instead of 6"));
    EXPECT_TRUE(ha("cannot read \"H4:6\""));
    EXPECT_TRUE(ha("cannot read chord \"Xm\""));
    EXPECT_TRUE(ha("section B: 2 bars, 1 chords"));
    EXPECT_TRUE(ha("no section Q"));

    const canzoni::Canzone giusta{"prova", "", 3, 4, 8, 100, 0, 0, 0, {{'A', "C4:2 D#4:2 Eb4:2 | r:6", "C | G7"}}, "A"};
    const auto q = canzoni::leggi(giusta);
    EXPECT_TRUE(q.errori.empty());
    ASSERT_EQ(q.melodia.size(), 3u);
    EXPECT_EQ(q.melodia[0].altezza, 60);
    EXPECT_EQ(q.melodia[1].altezza, 63);
    EXPECT_EQ(q.melodia[2].altezza, 63);
    EXPECT_EQ(q.melodia[2].inizio, 4);
    ASSERT_EQ(q.accordi.size(), 2u);
    EXPECT_EQ(q.accordi[1].radice, 7);
    EXPECT_EQ(q.accordi[1].intervalli, (std::vector<int>{0, 4, 7, 10}));
    EXPECT_EQ(q.accordi[1].inizio, 6);
}

TEST(CanzoniDelGioco, EachSongIsASoundMidiFileOfTheRightLength) {
    for (const auto& c : canzoni::tutte()) {
        const std::string titolo(c.titolo);
        const auto l = leggi_smf(canzoni::file_midi(c));
        EXPECT_EQ(l.errore, "") << titolo;
        EXPECT_EQ(l.formato, 1) << titolo;
        EXPECT_EQ(l.tracce, 4) << titolo;
        // Every note that starts also stops, on each of the three channels.
        for (int canale = 0; canale < 3; ++canale) {
            EXPECT_GT(l.accese.count(canale) ? l.accese.at(canale) : 0, 0) << titolo << " " << canale;
            EXPECT_EQ(l.accese.at(canale), l.spente.at(canale)) << titolo << " " << canale;
        }
        // The notes end with the last bar.
        const auto p = canzoni::leggi(c);
        const std::uint32_t ultimo = *std::max_element(l.fine_tracce.begin(), l.fine_tracce.end());
        const double secondi = ultimo * (l.tempo / 1e6) / l.divisione;
        const double battuta = canzoni::durata_secondi(c, p) / p.battute;
        EXPECT_LE(secondi, canzoni::durata_secondi(c, p) + 1e-6) << titolo;
        EXPECT_GT(secondi, canzoni::durata_secondi(c, p) - battuta) << titolo;
    }
}

}  // namespace
}  // namespace lesta
