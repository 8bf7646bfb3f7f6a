// The media control on SDL2_mixer, measured on SDL's "disk" audio driver,
// which writes what the mixer plays to a file of raw samples in real time:
// 16-bit stereo at 44.1 kHz, as the player opens the device. Nothing is
// listened to: the tests read the peak and the loudness of that file.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <numbers>
#include <thread>

#include "banco.h"
#include "sound/file_midi.h"
#include "sound/file_wav.h"
#include "sound/media_sdl.h"

namespace lesta {
namespace {

using namespace std::chrono_literals;
using Orologio = std::chrono::steady_clock;
using prova::CartellaTemporanea;

constexpr int frequenza = 44100;

// What came out of the device: the samples of both channels mixed to one.
struct Uscita {
    std::vector<double> campioni;  // -1..1

    double picco(std::size_t da = 0, std::size_t a = SIZE_MAX) const {
        double p = 0;
        for (std::size_t i = da; i < std::min(a, campioni.size()); ++i) p = std::max(p, std::abs(campioni[i]));
        return p;
    }
    double rms(std::size_t da, std::size_t a) const {
        double s = 0;
        a = std::min(a, campioni.size());
        for (std::size_t i = da; i < a; ++i) s += campioni[i] * campioni[i];
        return a > da ? std::sqrt(s / static_cast<double>(a - da)) : 0.0;
    }
    double secondi() const { return static_cast<double>(campioni.size()) / frequenza; }

    // The stretches of sound, found in windows of 5 ms: a stretch begins
    // where a window rises above `soglia` and ends after 30 ms below it.
    struct Tratto {
        double inizio, fine;  // seconds
    };
    std::vector<Tratto> tratti(double soglia) const {
        const std::size_t finestra = frequenza / 200;
        std::vector<Tratto> out;
        bool dentro = false;
        int quieti = 0;
        for (std::size_t i = 0; i + finestra <= campioni.size(); i += finestra) {
            const bool suona = rms(i, i + finestra) > soglia;
            const double t = static_cast<double>(i) / frequenza;
            if (suona) {
                if (!dentro) out.push_back({t, t});
                dentro = true;
                quieti = 0;
                out.back().fine = t + 0.005;
            } else if (dentro && ++quieti >= 6) {
                dentro = false;
            }
        }
        return out;
    }
};

Uscita leggi_uscita(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::vector<char> byte((std::istreambuf_iterator<char>(in)), {});
    Uscita u;
    u.campioni.reserve(byte.size() / 4);
    for (std::size_t i = 0; i + 4 <= byte.size(); i += 4) {
        auto campione = [&](std::size_t k) {
            return static_cast<std::int16_t>(static_cast<std::uint8_t>(byte[k]) | static_cast<std::uint8_t>(byte[k + 1]) << 8);
        };
        u.campioni.push_back((campione(i) + campione(i + 2)) / 65536.0);
    }
    return u;
}

// A short song: `note` notes of `ms` milliseconds each, piano, loud.
void scrivi_brano(const std::filesystem::path& file, int note, int ms) {
    midi::Traccia t("prova");
    t.tempo(0, 500000);  // 120 to the minute: 960 ticks a second with 480 a quarter
    t.programma(0, 0, 0);
    const auto tick = static_cast<std::uint32_t>(ms * 960 / 1000);
    for (int i = 0; i < note; ++i) t.nota(0, static_cast<std::uint32_t>(i) * tick, tick, 60 + 4 * i, 120);
    ASSERT_TRUE(midi::scrivi(file, midi::file_smf({t}, 480)));
}

// A sine tone at half of full scale.
void scrivi_tono(const std::filesystem::path& file, int ms, double hz = 440) {
    std::vector<std::int16_t> c(static_cast<std::size_t>(frequenza * ms / 1000));
    for (std::size_t i = 0; i < c.size(); ++i)
        c[i] = static_cast<std::int16_t>(std::lround(0.5 * 32767 * std::sin(2 * std::numbers::pi * hz * static_cast<double>(i) / frequenza)));
    ASSERT_TRUE(wav::scrivi(file, wav::file_wav(c, frequenza, 1)));
}

// Lets the Qt events run until `fatto` holds or the time is up.
template <class Condizione>
bool attendi(Condizione fatto, std::chrono::milliseconds limite) {
    const auto fine = Orologio::now() + limite;
    while (!fatto()) {
        if (Orologio::now() > fine) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        std::this_thread::sleep_for(2ms);
    }
    return true;
}

void lascia_girare(std::chrono::milliseconds quanto) {
    attendi([] { return false; }, quanto);
}

// Every test has its own output file; the device opens when the first file
// is opened and closes with the last player, which writes the file out.
class SuonoSdl : public ::testing::Test {
protected:
    void SetUp() override {
        uscita_ = cartella.percorso() / "uscita.raw";
        ::setenv("SDL_AUDIODRIVER", "disk", 1);
        ::setenv("SDL_DISKAUDIOFILE", uscita_.c_str(), 1);
    }
    void TearDown() override { ::setenv("SDL_AUDIODRIVER", "dummy", 1); }

    Uscita uscita() const { return leggi_uscita(uscita_); }
    std::string file(const char* nome) const { return (cartella.percorso() / nome).string(); }

    CartellaTemporanea cartella;
    std::filesystem::path uscita_;
};

// Counts the ends of songs, and notes the thread they came on.
struct Fini {
    int quanti = 0;
    bool sul_thread_qt = true;
    std::function<void()> callback() {
        return [this] {
            ++quanti;
            sul_thread_qt = sul_thread_qt && QThread::currentThread() == QCoreApplication::instance()->thread();
        };
    }
};

TEST_F(SuonoSdl, ASongSoundsAndItsEndReachesTheQtThreadOnce) {
    scrivi_brano(file("breve.mid"), 3, 200);
    Fini fini;
    double secondi_alla_fine = 0;
    {
        MediaSdl musica(TipoDispositivo::Sequencer, fini.callback());
        const auto prima = Orologio::now();
        musica.FileName(file("breve.mid"));
        musica.Command("Open");
        musica.Command("Play");
        const auto comandi = Orologio::now() - prima;
        // The soundfont loads on the player's worker: the caller goes on at once.
        EXPECT_LT(comandi, 50ms);

        ASSERT_TRUE(attendi([&] { return fini.quanti > 0; }, 30s));
        secondi_alla_fine = std::chrono::duration<double>(Orologio::now() - prima).count();
        lascia_girare(300ms);
        EXPECT_EQ(fini.quanti, 1);
        EXPECT_TRUE(fini.sul_thread_qt);
        EXPECT_FALSE(musica.suona());
    }
    const Uscita u = uscita();
    const auto tratti = u.tratti(0.003);
    ASSERT_FALSE(tratti.empty());
    const double picco = u.picco();
    const double rms = u.rms(static_cast<std::size_t>(tratti.front().inizio * frequenza),
                             static_cast<std::size_t>((tratti.front().inizio + 0.6) * frequenza));
    std::cout << "song: peak " << picco << ", RMS of its first 0.6 s " << rms << ", sound from "
              << tratti.front().inizio << " s to " << tratti.back().fine << " s, end reported after "
              << secondi_alla_fine << " s\n";
    EXPECT_GT(picco, 0.05);
    EXPECT_GT(rms, 0.01);
    // The three notes last 0.6 s; the synthesizer lets them ring out.
    EXPECT_GT(tratti.back().fine - tratti.front().inizio, 0.5);
}

TEST_F(SuonoSdl, ASongCutOffByCloseOrByAnotherOpenBringsNoEnd) {
    scrivi_brano(file("lungo.mid"), 8, 300);
    scrivi_brano(file("breve.mid"), 1, 200);
    Fini fini;
    MediaSdl musica(TipoDispositivo::Sequencer, fini.callback());
    musica.FileName(file("lungo.mid"));
    musica.Command("Open");
    musica.Command("Play");
    musica.sincronizza();
    EXPECT_TRUE(musica.suona());
    lascia_girare(200ms);
    musica.Command("Close");
    musica.sincronizza();
    EXPECT_FALSE(musica.suona());
    EXPECT_FALSE(musica.aperto());
    lascia_girare(400ms);
    EXPECT_EQ(fini.quanti, 0);

    // Another file opened over a song that plays stops it without an end...
    musica.FileName(file("lungo.mid"));
    musica.Command("Open");
    musica.Command("Play");
    musica.sincronizza();
    lascia_girare(200ms);
    musica.FileName(file("breve.mid"));
    musica.Command("Open");
    musica.sincronizza();
    lascia_girare(400ms);
    EXPECT_EQ(fini.quanti, 0);
    // ...and the new one, played to its end, brings exactly one.
    musica.Command("Play");
    ASSERT_TRUE(attendi([&] { return fini.quanti > 0; }, 30s));
    lascia_girare(200ms);
    EXPECT_EQ(fini.quanti, 1);
}

TEST_F(SuonoSdl, PlayGoesOnWithASongThatPlaysAndStartsOneThatHasEnded) {
    scrivi_brano(file("breve.mid"), 2, 150);
    Fini fini;
    MediaSdl musica(TipoDispositivo::Sequencer, fini.callback());
    musica.FileName(file("breve.mid"));
    musica.Command("Open");
    musica.Command("Play");
    musica.Command("Play");  // at the next shuffle, while it plays: nothing new
    ASSERT_TRUE(attendi([&] { return fini.quanti > 0; }, 30s));
    lascia_girare(200ms);
    EXPECT_EQ(fini.quanti, 1);
    // Over: a new "Play" sounds it again from the beginning.
    musica.Command("Play");
    musica.sincronizza();
    EXPECT_TRUE(musica.suona());
    ASSERT_TRUE(attendi([&] { return fini.quanti > 1; }, 30s));
    EXPECT_EQ(fini.quanti, 2);
}

TEST_F(SuonoSdl, TheCardSoundSoundsOnEachPlay) {
    scrivi_tono(file("carta.wav"), 100);
    {
        MediaSdl suono(TipoDispositivo::WaveAudio);
        suono.Wait(true);
        suono.Command("Close");
        suono.FileName(file("carta.wav"));
        suono.Command("Open");
        // With Wait on, the file is open when "Open" returns.
        EXPECT_TRUE(suono.aperto());
        for (int i = 0; i < 3; ++i) {
            suono.Command("Play");
            suono.From(0);
            std::this_thread::sleep_for(350ms);
        }
        suono.sincronizza();
    }
    const Uscita u = uscita();
    const auto tratti = u.tratti(0.02);
    std::cout << "card sound: peak " << u.picco() << ", stretches:";
    for (const auto& t : tratti) std::cout << " " << t.inizio << "-" << t.fine;
    std::cout << "\n";
    ASSERT_EQ(tratti.size(), 3u);
    for (const auto& t : tratti) {
        EXPECT_NEAR(t.fine - t.inizio, 0.100, 0.03);
        const double rms = u.rms(static_cast<std::size_t>((t.inizio + 0.01) * frequenza),
                                 static_cast<std::size_t>((t.fine - 0.01) * frequenza));
        EXPECT_NEAR(rms, 0.5 / std::sqrt(2.0), 0.05);  // a sine at half scale
    }
    EXPECT_NEAR(u.picco(), 0.5, 0.03);
}

TEST_F(SuonoSdl, ACardPlayedWhileTheSoundRunsStartsItAgain) {
    scrivi_tono(file("lungo.wav"), 300);
    {
        MediaSdl suono(TipoDispositivo::WaveAudio);
        suono.Wait(true);
        suono.FileName(file("lungo.wav"));
        suono.Command("Open");
        suono.Command("Play");
        suono.From(0);
        std::this_thread::sleep_for(150ms);
        suono.Command("Play");
        suono.From(0);
        std::this_thread::sleep_for(700ms);
    }
    const auto tratti = uscita().tratti(0.02);
    ASSERT_EQ(tratti.size(), 1u);
    // 150 ms of the first, then the whole of the second: about 450 ms.
    const double durata = tratti[0].fine - tratti[0].inizio;
    std::cout << "card sound restarted after 150 ms: sounded " << durata << " s\n";
    EXPECT_GT(durata, 0.40);
    EXPECT_LT(durata, 0.52);
}

TEST_F(SuonoSdl, MissingOrBrokenFilesFailWithoutAWord) {
    std::ofstream(file("rotto.mid"), std::ios::binary) << "not a MIDI file at all";
    std::ofstream(file("rotto.wav"), std::ios::binary) << "RIFF but nothing after";
    // A header and no track: a file cut short.
    std::ofstream(file("troncato.mid"), std::ios::binary).write("MThd\0\0\0\x06\0\x01\0\x01\x01\xE0", 14);
    scrivi_brano(file("buono.mid"), 1, 100);
    Fini fini;
    {
        MediaSdl musica(TipoDispositivo::Sequencer, fini.callback());
        MediaSdl suono(TipoDispositivo::WaveAudio);
        for (const std::string& nome :
             {file("manca.mid"), file("rotto.mid"), file("troncato.mid"),
              (cartella.percorso() / "nessuna" / "cartella.mid").string()}) {
            musica.FileName(nome);
            musica.Command("Open");
            musica.Command("Play");
            musica.sincronizza();
            EXPECT_FALSE(musica.aperto()) << nome;
            EXPECT_FALSE(musica.suona()) << nome;
        }
        for (const std::string& nome : {file("manca.wav"), file("rotto.wav")}) {
            suono.Wait(true);
            suono.FileName(nome);
            suono.Command("Open");
            EXPECT_FALSE(suono.aperto()) << nome;
            suono.Command("Play");
            suono.From(0);
            EXPECT_FALSE(suono.suona()) << nome;
        }
        // Commands the control does not know are passed over.
        musica.Command("Pause");
        musica.Command("");
        lascia_girare(300ms);
        EXPECT_EQ(fini.quanti, 0);
        // And after all that a good file plays to its end.
        musica.FileName(file("buono.mid"));
        musica.Command("open");
        musica.Command("play");
        ASSERT_TRUE(attendi([&] { return fini.quanti > 0; }, 30s));
    }
    EXPECT_GT(uscita().picco(), 0.05);
}

TEST_F(SuonoSdl, WithoutADeviceEverythingRunsInSilence) {
    ::setenv("SDL_AUDIODRIVER", "nessun-dispositivo", 1);
    scrivi_brano(file("breve.mid"), 1, 100);
    scrivi_tono(file("carta.wav"), 50);
    Fini fini;
    {
        MediaSdl musica(TipoDispositivo::Sequencer, fini.callback());
        MediaSdl suono(TipoDispositivo::WaveAudio);
        suono.Wait(true);
        const auto prima = Orologio::now();
        suono.FileName(file("carta.wav"));
        suono.Command("Open");
        EXPECT_LT(Orologio::now() - prima, 1s);
        EXPECT_FALSE(suono.aperto());
        suono.Command("Play");
        suono.From(0);
        musica.FileName(file("breve.mid"));
        musica.Command("Open");
        musica.Command("Play");
        musica.sincronizza();
        EXPECT_FALSE(musica.aperto());
        lascia_girare(500ms);
        EXPECT_EQ(fini.quanti, 0);
        musica.Command("close");
        suono.Command("close");
    }
    EXPECT_FALSE(std::filesystem::exists(uscita_));

    // The game on such players: the menu works, and no end of play ever comes.
    prova::CartellaTemporanea programma;
    std::filesystem::create_directories(programma.percorso() / "music");
    for (const char* t : {"uno", "due"}) scrivi_brano(programma.percorso() / "music" / (std::string(t) + ".mid"), 1, 100);
    FinestraRaster finestra;
    OrologioVirtuale orologio;
    CasualeFisso casuale;
    ProgrammaFinto fine_programma;
    ModLesta mod;
    Frmlesta* frm_ptr = nullptr;
    MediaSdl musica(TipoDispositivo::Sequencer, [&] { frm_ptr->MMC1_Done(1); });
    MediaSdl suono(TipoDispositivo::WaveAudio);
    Frmlesta frm(Piattaforma{finestra, orologio, casuale, musica, suono, fine_programma}, mod, programma.percorso());
    frm_ptr = &frm;
    frm.riempi_canzoni();
    frm.canzone = 101;
    frm.avvia_musica();
    EXPECT_EQ(frm.canzone, 1);
    frm.canzoni_Click(2);
    musica.sincronizza();
    lascia_girare(300ms);
    EXPECT_EQ(frm.canzone, 2);
    EXPECT_TRUE(frm.spunta_canzoni[2]);
}

// What the build puts beside the program: the songs load and sound, the card
// sound is loud enough and short.
TEST_F(SuonoSdl, TheGamesOwnSoundsPlay) {
    const std::filesystem::path cartella_programma = LESTA_CARTELLA_PROGRAMMA;
    EXPECT_TRUE(std::filesystem::is_regular_file(font_gm_di_sistema())) << font_gm_di_sistema();
    {
        MediaSdl musica(TipoDispositivo::Sequencer);
        MediaSdl suono(TipoDispositivo::WaveAudio);
        suono.Wait(true);
        suono.FileName((cartella_programma / "carta.wav").string());
        suono.Command("Open");
        ASSERT_TRUE(suono.aperto());
        suono.Command("Play");
        suono.From(0);
        std::this_thread::sleep_for(300ms);

        int canzoni = 0;
        for (const auto& voce : std::filesystem::directory_iterator(cartella_programma / "music")) {
            musica.FileName(voce.path().string());
            musica.Command("Open");
            musica.Command("Play");
            musica.sincronizza();
            EXPECT_TRUE(musica.aperto()) << voce.path();
            EXPECT_TRUE(musica.suona()) << voce.path();
            std::this_thread::sleep_for(1500ms);
            ++canzoni;
        }
        EXPECT_GE(canzoni, 3);
        musica.Command("close");
        musica.sincronizza();
    }
    const Uscita u = uscita();
    const auto tratti = u.tratti(0.005);
    ASSERT_GE(tratti.size(), 2u);
    const double carta = tratti.front().fine - tratti.front().inizio;
    const double picco_carta = u.picco(static_cast<std::size_t>(tratti.front().inizio * frequenza),
                                       static_cast<std::size_t>(tratti.front().fine * frequenza));
    const double rms_canzoni = u.rms(static_cast<std::size_t>(tratti[1].inizio * frequenza), u.campioni.size());
    std::cout << "carta.wav: " << carta << " s, peak " << picco_carta << "; songs: peak "
              << u.picco(static_cast<std::size_t>(tratti[1].inizio * frequenza)) << ", RMS " << rms_canzoni << "\n";
    EXPECT_LT(carta, 0.12);
    EXPECT_GT(picco_carta, 0.3);
    EXPECT_GT(rms_canzoni, 0.01);
}

}  // namespace
}  // namespace lesta
