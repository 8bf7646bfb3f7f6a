// SPDX-License-Identifier: GPL-3.0-or-later
// The media control on SDL2_mixer, measured on SDL's "disk" audio driver,
// which writes what the mixer plays to a file of raw samples in real time:
// 16-bit stereo at 44.1 kHz, as the player opens the device. The tests read
// the loudness of that file.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <numbers>
#include <thread>

#include "banco.h"
#include "sound/file_midi.h"
#include "sound/file_wav.h"
#include "sound/sdl/media_sdl.h"
#include "sound/sdl/sintetizzatore.h"

namespace lesta {
namespace {

using namespace std::chrono_literals;
using Orologio = std::chrono::steady_clock;
constexpr int frequenza = 44100;
// Where the build puts the program, its card sound and its songs.
const std::filesystem::path programma = LESTA_CARTELLA_PROGRAMMA;

// The RMS of samples [da, a) of both channels mixed to one, in -1..1.
double rms(const std::vector<double>& c, double da, double a) {
    const auto i = static_cast<std::size_t>(da * frequenza),
               j = std::min(static_cast<std::size_t>(a * frequenza), c.size());
    double s = 0;
    for (std::size_t k = i; k < j; ++k) s += c[k] * c[k];
    return j > i ? std::sqrt(s / static_cast<double>(j - i)) : 0.0;
}

// The stretches of sound, in seconds, found in windows of 5 ms: a stretch
// begins where a window rises above `soglia` and ends after 30 ms below it.
std::vector<std::pair<double, double>> tratti(const std::vector<double>& c, double soglia) {
    std::vector<std::pair<double, double>> out;
    int quieti = 6;
    for (double t = 0; (t + 0.005) * frequenza <= static_cast<double>(c.size()); t += 0.005) {
        if (rms(c, t, t + 0.005) <= soglia) {
            ++quieti;
            continue;
        }
        if (quieti >= 6) out.emplace_back(t, t);
        out.back().second = t + 0.005;
        quieti = 0;
    }
    return out;
}

// A short song: `note` loud piano notes of `ms` milliseconds each.
void scrivi_brano(const std::filesystem::path& file, int note, int ms) {
    midi::Traccia t("prova");
    t.tempo(0, 500000);  // 960 ticks a second with 480 a quarter
    for (int i = 0; i < note; ++i)
        t.nota(0, static_cast<std::uint32_t>(i * ms * 960 / 1000), static_cast<std::uint32_t>(ms * 960 / 1000),
               60 + 4 * i, 120);
    ASSERT_TRUE(scrivi_file(file, midi::file_smf({t}, 480)));
}

// Lets the Qt events run until `fatto` holds or the time is up.
bool attendi(
    std::chrono::milliseconds limite, const std::function<bool()>& fatto = [] { return false; }) {
    const auto fine = Orologio::now() + limite;
    while (!fatto() && Orologio::now() < fine) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        std::this_thread::sleep_for(2ms);
    }
    return fatto();
}

// Every test has its own output file, written out when the last player closes.
class SuonoSdl : public ::testing::Test {
protected:
    void SetUp() override {
        ::setenv("SDL_AUDIODRIVER", "disk", 1);
        ::setenv("SDL_DISKAUDIOFILE", uscita_.c_str(), 1);
    }
    void TearDown() override { ::setenv("SDL_AUDIODRIVER", "dummy", 1); }
    std::vector<double> uscita() const {
        std::ifstream in(uscita_, std::ios::binary);
        std::vector<double> c;
        for (std::int16_t s[2]; in.read(reinterpret_cast<char*>(s), sizeof s);) c.push_back((s[0] + s[1]) / 65536.0);
        return c;
    }
    std::string file(const char* nome) const { return (cartella.percorso() / nome).string(); }
    void apri(Media& m, const std::string& nome, bool suona = true) {
        m.FileName(nome);
        m.Command("Open");
        if (suona) m.Command("Play");
    }

    prova::CartellaTemporanea cartella;
    std::filesystem::path uscita_ = cartella.percorso() / "uscita.raw";
    // The ends of songs, and whether all came on the Qt thread.
    int fini = 0;
    bool sul_thread_qt = true;
    std::function<void()> alla_fine = [this] {
        ++fini;
        sul_thread_qt = sul_thread_qt && QThread::currentThread() == QCoreApplication::instance()->thread();
    };
};

// Missing and broken files open nothing, nor does a header of no tracks, a
// real song cut short (in its middle, or by its very last byte), or a song
// of no note: none of them could play, and none brings an end.
// Each of the game's songs loads and sounds, and stops without an end when
// another file is opened over it or when it is closed. A song played to its end brings one end, on the Qt
// thread; a later "Play" starts it again.
TEST_F(SuonoSdl, OnlyASongPlayedToItsEndBringsAnEnd) {
    std::ofstream(file("rotto.mid"), std::ios::binary) << "not a MIDI file at all";
    std::ofstream(file("troncato.mid"), std::ios::binary).write("MThd\0\0\0\x06\0\x01\0\x01\x01\xE0", 14);
    std::ofstream(file("senza_tracce.mid"), std::ios::binary).write("MThd\0\0\0\x06\0\x01\0\0\x01\xE0MTrk\0\0\0\0", 22);
    const std::string vera = prova::leggi_tutto(programma / "music" / "Santa Lucia.mid");
    ASSERT_GT(vera.size(), 100u);
    prova::scrivi_tutto(file("a_meta.mid"), std::string_view(vera).substr(0, vera.size() / 2));
    prova::scrivi_tutto(file("senza_ultimo_byte.mid"), std::string_view(vera).substr(0, vera.size() - 1));
    midi::Traccia muta("muta");
    muta.tempo(0, 500000);
    ASSERT_TRUE(scrivi_file(file("muta.mid"), midi::file_smf({muta}, 480)));
    scrivi_brano(file("breve.mid"), 3, 200);
    MediaSdl musica(TipoDispositivo::Sequencer, alla_fine);
    for (const auto& nome :
         {file("manca.mid"), file("rotto.mid"), file("troncato.mid"), file("senza_tracce.mid"),
          file("nessuna/cartella.mid"), file("a_meta.mid"), file("senza_ultimo_byte.mid"), file("muta.mid")}) {
        apri(musica, nome);
        musica.sincronizza();
        EXPECT_FALSE(musica.aperto() || musica.suona()) << nome;
    }
    for (const auto& voce : std::filesystem::directory_iterator(programma / "music")) {
        const auto prima = Orologio::now();
        apri(musica, voce.path().string());
        // The soundfont loads on the player's worker: the caller goes on at once.
        EXPECT_LT(Orologio::now() - prima, 50ms);
        musica.sincronizza();
        EXPECT_TRUE(musica.suona()) << voce.path();
        attendi(300ms);
    }
    EXPECT_GE(std::distance(std::filesystem::directory_iterator(programma / "music"), {}), 3);
    musica.Command("Close");
    musica.sincronizza();
    EXPECT_FALSE(musica.aperto() || musica.suona());
    apri(musica, file("breve.mid"), false);
    attendi(400ms);
    EXPECT_EQ(fini, 0);

    musica.Command("Play");
    musica.Command("Play");  // as at the next shuffle, while it plays: it goes on
    ASSERT_TRUE(attendi(30s, [&] { return fini > 0; }));
    attendi(300ms);
    EXPECT_EQ(fini, 1);
    EXPECT_TRUE(sul_thread_qt);
    musica.Command("Play");
    musica.sincronizza();
    EXPECT_TRUE(musica.suona());
    // The short song's three notes sound for 0.6 s, and more as they ring out.
    const auto c = uscita();
    const auto t = tratti(c, 0.003);
    EXPECT_TRUE(std::any_of(t.begin(), t.end(),
                            [&](auto s) { return s.second - s.first > 0.5 && rms(c, s.first, s.first + 0.6) > 0.01; }));
}

// A song of one held note of `altezza` on a recorder, whose sound is close to
// a plain tone; its last event comes `coda_ms` after the note ends.
void scrivi_nota(const std::filesystem::path& file, int altezza, int ms, int coda_ms = 0) {
    midi::Traccia t("nota");
    t.tempo(0, 500000);  // 960 ticks a second with 480 a quarter
    t.programma(0, 0, 74);
    t.nota(0, 0, static_cast<std::uint32_t>(ms * 960 / 1000), altezza, 110);
    if (coda_ms > 0) t.controllo(0, static_cast<std::uint32_t>((ms + coda_ms) * 960 / 1000), 1, 0);
    ASSERT_TRUE(scrivi_file(file, midi::file_smf({t}, 480)));
}

// The loudness of `hz` in samples [da, a): the amplitude of that frequency,
// 1 for a tone at full scale.
double ampiezza(const std::vector<double>& c, double hz, double da, double a) {
    const auto i = static_cast<std::size_t>(da * frequenza),
               j = std::min(static_cast<std::size_t>(a * frequenza), c.size());
    double re = 0, im = 0;
    for (std::size_t k = i; k < j; ++k) {
        const double fase = 2 * std::numbers::pi * hz * static_cast<double>(k) / frequenza;
        re += c[k] * std::cos(fase);
        im += c[k] * std::sin(fase);
    }
    return j > i ? 2 * std::hypot(re, im) / static_cast<double>(j - i) : 0.0;
}

// In sequential mode a song's end starts the next: three songs of one note
// each (220, 440 and 880 Hz), each opened and played as the game plays song
// k when the last has ended. Between two songs is only the moment the player
// takes to notice the end and start the next, not the synthesizer idling
// after the last note has died away; and a song ends at its last event, here
// half a second of rest after the note of the second song, not at its last
// note.
TEST_F(SuonoSdl, EachSongStartsAsTheLastHasEnded) {
    scrivi_nota(file("la3.mid"), 57, 600);
    scrivi_nota(file("la4.mid"), 69, 600, 500);
    scrivi_nota(file("la5.mid"), 81, 600);
    const std::string brani[] = {file("la3.mid"), file("la4.mid"), file("la5.mid")};
    std::size_t prossimo = 1;
    MediaSdl* lettore = nullptr;
    {
        MediaSdl musica(TipoDispositivo::Sequencer, [&] {
            ++fini;
            if (prossimo == std::size(brani)) return;
            lettore->Command("close");
            lettore->FileName(brani[prossimo++]);
            lettore->Command("Open");
            lettore->Command("Play");
        });
        lettore = &musica;
        apri(musica, brani[0]);
        ASSERT_TRUE(attendi(30s, [&] { return fini == 3; }));
    }
    // Every 5 ms that sound is heard (60 dB under full scale) belong to the
    // song of the pitch that sounds loudest there; a song lasts from its
    // first such moment to its last, the quiet end of its note included.
    const auto c = uscita();
    const double altezze[] = {220, 440, 880};
    std::vector<std::pair<double, double>> canzoni;
    std::size_t ultima = 3;
    for (double t = 0; (t + 0.005) * frequenza <= static_cast<double>(c.size()); t += 0.005) {
        if (rms(c, t, t + 0.005) <= 0.001) continue;
        std::size_t altezza = 0;
        for (std::size_t k = 1; k < 3; ++k)
            if (ampiezza(c, altezze[k], t - 0.01, t + 0.015) > ampiezza(c, altezze[altezza], t - 0.01, t + 0.015))
                altezza = k;
        if (altezza != ultima) canzoni.emplace_back(t, t);
        canzoni.back().second = t + 0.005;
        ultima = altezza;
        ASSERT_EQ(altezza, canzoni.size() - 1) << "at " << t << " s";
    }
    ASSERT_EQ(canzoni.size(), 3u);
    for (auto [da, a] : canzoni) EXPECT_GT(a - da, 0.6) << da;  // the note held to its end
    const double silenzio = canzoni[1].first - canzoni[0].second;
    const double dopo_la_pausa = canzoni[2].first - (canzoni[1].first + 0.6 + 0.5);
    EXPECT_GT(silenzio, -0.01);
    EXPECT_LT(silenzio, 0.1);
    EXPECT_GT(dopo_la_pausa, 0.0);
    EXPECT_LT(dopo_la_pausa, 0.1);
}

// A 100 ms tone at half scale played three times, the third time again
// 50 ms into its sounding, which starts it from its beginning; then the
// game's own card sound, short.
TEST_F(SuonoSdl, TheCardSoundSoundsOnEachPlay) {
    std::vector<std::int16_t> tono(frequenza / 10);
    for (std::size_t i = 0; i < tono.size(); ++i)
        tono[i] = static_cast<std::int16_t>(
            std::lround(16384 * std::sin(2 * std::numbers::pi * 440 * static_cast<double>(i) / frequenza)));
    ASSERT_TRUE(scrivi_file(file("carta.wav"), wav::file_wav(tono, frequenza, 1)));
    {
        MediaSdl suono(TipoDispositivo::WaveAudio);
        suono.Wait(true);
        apri(suono, file("manca.wav"), false);
        EXPECT_FALSE(suono.aperto());
        apri(suono, file("carta.wav"), false);
        EXPECT_TRUE(suono.aperto());  // with Wait on, open when "Open" returns
        for (auto pausa : {350ms, 350ms, 50ms, 350ms, 0ms}) {
            if (pausa == 0ms) apri(suono, (programma / "carta.wav").string(), false);  // the game's own, last
            suono.Command("Play");
            suono.From(0);
            std::this_thread::sleep_for(pausa == 0ms ? 300ms : pausa);
        }
    }
    const auto c = uscita();
    const auto t = tratti(c, 0.02);
    ASSERT_EQ(t.size(), 4u);
    EXPECT_LT(t[3].second - t[3].first, 0.12);
    EXPECT_GT(rms(c, t[3].first, t[3].second), 0.04);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(t[i].second - t[i].first, i < 2 ? 0.100 : 0.150, 0.03) << i;
        EXPECT_NEAR(rms(c, t[i].first + 0.01, t[i].second - 0.01), 0.5 / std::sqrt(2.0), 0.05) << i;
    }
}

// The mixer adds the card sound to the music: at the loudest moment of each
// of the game's songs, as the synthesizer renders it, the card sound's peak
// on top still stays under full scale, so nothing ever clips.
TEST_F(SuonoSdl, TheCardSoundOverTheLoudestMomentOfASongDoesNotClip) {
    const std::string wav = prova::leggi_tutto(programma / "carta.wav");
    ASSERT_GT(wav.size(), 44u);
    int picco_carta = 0;
    for (std::size_t i = 44; i + 1 < wav.size(); i += 2)
        picco_carta = std::max(picco_carta,
                               std::abs(static_cast<int>(static_cast<std::int16_t>(
                                   static_cast<std::uint8_t>(wav[i]) | static_cast<std::uint8_t>(wav[i + 1]) << 8))));
    auto sintetizzatore = Sintetizzatore::crea(font_gm_di_sistema(), frequenza);
    ASSERT_NE(sintetizzatore, nullptr);
    int canzoni = 0;
    for (const auto& voce : std::filesystem::directory_iterator(programma / "music")) {
        ASSERT_TRUE(sintetizzatore->carica(voce.path().string()));
        sintetizzatore->suona();
        std::vector<std::int16_t> blocco(2 * 1024);
        int picco = 0;
        for (int n = 0; n < 400 * frequenza / 1024 && !sintetizzatore->rendi(blocco.data(), 1024); ++n)
            for (std::int16_t v : blocco) picco = std::max(picco, std::abs(static_cast<int>(v)));
        EXPECT_GT(picco, 8000) << voce.path();  // the song sounds
        EXPECT_LT(picco + picco_carta, 32767 * 0.95) << voce.path() << ": " << picco << " + " << picco_carta;
        ++canzoni;
    }
    EXPECT_EQ(canzoni, 3);
}

// With no song loaded, three seconds of silence let the device go, and with
// it SDL's audio thread, which would wake forty times a second for nothing.
// The next card sound takes the device again and is heard.
TEST_F(SuonoSdl, AfterASilenceTheDeviceIsLetGoAndTheNextSoundTakesItAgain) {
    MediaSdl suono(TipoDispositivo::WaveAudio);
    suono.Wait(true);
    apri(suono, (programma / "carta.wav").string());
    suono.sincronizza();
    // SDL's thread takes its name once it runs, a moment after the device opens.
    const auto un_thread = [] { return prova::thread_di_nome("SDLAudio") == 1; };
    EXPECT_TRUE(attendi(1s, un_thread));
    EXPECT_TRUE(attendi(5s, [] { return prova::thread_di_nome("SDLAudio") == 0; }));
    EXPECT_TRUE(suono.aperto());
    suono.Command("Play");
    EXPECT_TRUE(suono.suona());
    EXPECT_TRUE(attendi(1s, un_thread));
    std::this_thread::sleep_for(300ms);
    const auto t = tratti(uscita(), 0.02);  // the disk driver began its file anew
    ASSERT_EQ(t.size(), 1u);
    EXPECT_GT(rms(uscita(), t[0].first, t[0].second), 0.04);
}

TEST_F(SuonoSdl, WithoutADeviceEverythingRunsInSilence) {
    ::setenv("SDL_AUDIODRIVER", "nessun-dispositivo", 1);
    scrivi_brano(file("breve.mid"), 1, 100);
    {
        MediaSdl musica(TipoDispositivo::Sequencer, alla_fine);
        MediaSdl suono(TipoDispositivo::WaveAudio);
        suono.Wait(true);
        const auto prima = Orologio::now();
        apri(suono, (programma / "carta.wav").string());
        EXPECT_LT(Orologio::now() - prima, 1s);
        apri(musica, file("breve.mid"));
        musica.sincronizza();
        EXPECT_FALSE(musica.aperto() || suono.aperto());
        attendi(500ms);
        EXPECT_EQ(fini, 0);
    }
    EXPECT_FALSE(std::filesystem::exists(uscita_));
}

}  // namespace
}  // namespace lesta
