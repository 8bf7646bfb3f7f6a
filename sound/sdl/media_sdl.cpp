// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/sdl/media_sdl.h"

#include "sound/sdl/libreria_sdl.h"
#include "sound/sdl/sintetizzatore.h"
#include "sound/sembra_midi.h"

#include <malloc.h>

#include <QObject>
#include <atomic>
#include <cctype>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <filesystem>
#include <future>
#include <mutex>
#include <thread>

namespace lesta {
namespace {

// The audio device, opened by the first player that opens a file and closed
// when the last player goes. All players mix into it.
struct Uscita {
    enum class Stato { chiusa, aperta, mancante };

    std::mutex m;  // guards what follows except the atomics
    Stato stato = Stato::chiusa;
    // Open, but the device let go for silence: the card sound stays loaded
    // and the device is taken again for the next sound.
    bool a_riposo = false;
    int brani_caricati = 0;  // songs loaded by the sequencer
    // The sound is held back and the workers wait for via_libera. Atomic, so
    // that the window's thread can look without waiting on m, which a worker
    // may hold for a while.
    std::atomic<bool> trattenuti{false};
    std::condition_variable via_libera;
    int giocatori = 0;
    int prossimo_canale = 0;
};

Uscita& uscita() {
    static Uscita u;
    return u;
}

// The libraries, once the first open has loaded them: everything below
// that plays, loads or frees runs only after that.
const LibreriaSdl& sdl() { return *libreria_sdl_caricata(); }

constexpr int canali_del_mixer = 8;
constexpr int frequenza = 44100;
constexpr Uint16 formato = AUDIO_S16SYS;
constexpr int canali_stereo = 2;

// Takes the device in the one format the loaded sound was converted to.
bool prendi_dispositivo() {
    if (sdl().Mix_OpenAudioDevice(frequenza, formato, canali_stereo, 1024, nullptr, 0) != 0) return false;
    sdl().Mix_AllocateChannels(canali_del_mixer);
    return true;
}

// Opens the device at the first need, or takes it again after a rest. Called
// with u.m held, on the players' workers, so the time it takes never falls on
// the window.
bool apri_uscita(Uscita& u) {
    if (u.stato == Uscita::Stato::mancante) return false;
    if (u.stato == Uscita::Stato::aperta) {
        if (!u.a_riposo) return true;
        u.a_riposo = !prendi_dispositivo();
        return !u.a_riposo;
    }

    if (libreria_sdl() == nullptr) {
        u.stato = Uscita::Stato::mancante;
        return false;
    }
    // Qt keeps the signals of the process; SDL must not take them.
    sdl().SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    if (sdl().SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        u.stato = Uscita::Stato::mancante;
        return false;
    }
    if (!prendi_dispositivo()) {
        sdl().SDL_QuitSubSystem(SDL_INIT_AUDIO);
        u.stato = Uscita::Stato::mancante;
        return false;
    }
    u.stato = Uscita::Stato::aperta;
    u.a_riposo = false;
    return true;
}

// An open device wakes its audio thread some forty times a second even when
// it plays nothing. With no song loaded (the music is "None"), after a silence
// the device is let go, so that a game waiting for the player costs the
// machine nothing. The loaded card sound is plain samples in the one format
// the device is always taken in, so it stays good for the next time. Called
// with u.m held; true while a silence may still come that lets the device go.
bool riposa_se_in_silenzio(Uscita& u) {
    if (u.stato != Uscita::Stato::aperta || u.a_riposo || u.brani_caricati > 0) return false;
    if (sdl().Mix_Playing(-1) != 0) return true;
    sdl().Mix_CloseAudio();
    u.a_riposo = true;
    return false;
}

// With the last player gone the device is closed, and the next player that
// opens a file opens it anew.
void chiudi_uscita(Uscita& u) {
    if (u.stato == Uscita::Stato::aperta) {
        if (!u.a_riposo) sdl().Mix_CloseAudio();
        sdl().SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
    u.stato = Uscita::Stato::chiusa;
    u.a_riposo = false;
}

// Loading the soundfont leaves the synthesizer's scratch memory free but held
// by the worker's heap; it goes back to the system once the font is loaded.
void rendi_memoria_libera() {
#if defined(__GLIBC__)
    malloc_trim(0);
#endif
}

bool parola(std::string_view comando, std::string_view attesa) {
    if (comando.size() != attesa.size()) return false;
    for (std::size_t i = 0; i < comando.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(comando[i])) != attesa[i]) return false;
    }
    return true;
}

}  // namespace

struct LettoreSdl {
    LettoreSdl(TipoDispositivo t, std::function<void()> f) : tipo(t), fine_brano(std::move(f)) {}

    const TipoDispositivo tipo;
    const std::function<void()> fine_brano;

    // ---- the caller's thread ----
    std::string file;
    bool attendi = false;
    // Grows at each "Open" and "Close": the end of a song counts only if no
    // such command came after the "Play" that started it.
    std::uint64_t generazione = 1;
    std::unique_ptr<QObject> ricevitore;

    // ---- the worker ----
    std::thread lavoratore;
    std::mutex m;
    std::condition_variable cv;
    std::deque<std::function<void()>> coda;
    bool basta = false;

    // ---- what only the worker touches ----
    // The sequencer's synthesizer, made at its first song and kept for the
    // run, so that a new song never reads the soundfont again. The audio
    // thread renders it through the mixer's music hook while a song is
    // loaded; the worker takes the hook off (which waits for the audio
    // thread) before it changes the song or `brano`.
    std::unique_ptr<Sintetizzatore> sintetizzatore;
    bool brano_caricato = false;
    std::uint64_t brano = 0;  // the generation of the song playing, 0 if none
    Mix_Chunk* suono = nullptr;
    int canale = 0;
    bool da_capo = false;
    std::atomic<bool> aperto{false};

    void lavora() {
        // SDL keeps data of its own (its error text) for each thread it did
        // not start itself; this one gives it back as it ends.
        struct Congedo {
            ~Congedo() {
                if (const LibreriaSdl* l = libreria_sdl_caricata()) l->SDL_TLSCleanup();
            }
        } congedo;
        // After some work, three idle seconds are a silence worth a look.
        bool da_guardare = false;
        for (;;) {
            std::function<void()> compito;
            {
                std::unique_lock blocco(m);
                auto pronto = [this] { return basta || !coda.empty(); };
                if (!da_guardare) {
                    cv.wait(blocco, pronto);
                } else if (!cv.wait_for(blocco, std::chrono::seconds(3), pronto)) {
                    blocco.unlock();
                    Uscita& u = uscita();
                    std::lock_guard blocco_uscita(u.m);
                    da_guardare = riposa_se_in_silenzio(u);
                    continue;
                }
                if (coda.empty()) return;
                compito = std::move(coda.front());
                coda.pop_front();
            }
            aspetta_via_libera();
            compito();
            da_guardare = true;
        }
    }

    void esegui(std::function<void()> compito, bool aspetta) {
        if (!aspetta || trattenuti()) {
            {
                std::lock_guard blocco(m);
                coda.push_back(std::move(compito));
            }
            cv.notify_one();
            return;
        }
        std::promise<void> fatto;
        auto atteso = fatto.get_future();
        esegui(
            [&compito, &fatto] {
                compito();
                fatto.set_value();
            },
            false);
        atteso.wait();
    }

    static bool trattenuti() { return uscita().trattenuti; }

    static void aspetta_via_libera() {
        Uscita& u = uscita();
        std::unique_lock blocco(u.m);
        u.via_libera.wait(blocco, [&u] { return !u.trattenuti; });
    }

    // ---- the commands, on the worker ----
    void apri(const std::string& percorso) {
        chiudi();
        Uscita& u = uscita();
        std::unique_lock blocco(u.m);
        if (!apri_uscita(u)) return;
        if (tipo == TipoDispositivo::Sequencer) {
            // The first song loads the soundfont, which takes a while, and
            // the card sound must not wait for it: the lock is let go
            // meanwhile, and the song counts from now, so the device cannot
            // rest under it.
            ++u.brani_caricati;
            blocco.unlock();
            if (sembra_midi(percorso)) {
                if (sintetizzatore == nullptr) {
                    sintetizzatore = Sintetizzatore::crea(font_gm_di_sistema(), frequenza);
                    rendi_memoria_libera();
                }
                brano_caricato = sintetizzatore != nullptr && sintetizzatore->carica(percorso);
            }
            blocco.lock();
            if (brano_caricato) {
                sdl().Mix_HookMusic(musica_del_sintetizzatore, this);
            } else {
                --u.brani_caricati;
            }
        } else {
            suono = sdl().Mix_LoadWAV_RW(sdl().SDL_RWFromFile(percorso.c_str(), "rb"), 1);
        }
        da_capo = false;
        aperto = brano_caricato || suono != nullptr;
    }

    // The mixer's music hook, on the audio thread, while a song is loaded.
    static void musica_del_sintetizzatore(void* dati, Uint8* flusso, int byte) {
        auto* p = static_cast<LettoreSdl*>(dati);
        // The device's format: 16-bit samples, two to a frame.
        if (!p->sintetizzatore->rendi(reinterpret_cast<std::int16_t*>(flusso), byte / 4)) return;
        const std::uint64_t gen = std::exchange(p->brano, 0);
        if (gen == 0) return;
        // Posted to an object that lives on the caller's thread: the call
        // runs there, and never once the player is gone.
        QMetaObject::invokeMethod(
            p->ricevitore.get(), [p, gen] { p->consegna_fine(gen); }, Qt::QueuedConnection);
    }

    void suona_adesso(std::uint64_t gen) {
        Uscita& u = uscita();
        std::lock_guard blocco(u.m);
        if (tipo == TipoDispositivo::WaveAudio) {
            // On its own channel, a new start cuts the sound that is still
            // running and begins it again.
            if (suono != nullptr && apri_uscita(u)) sdl().Mix_PlayChannelTimed(canale, suono, 0, -1);
            return;
        }
        if (!brano_caricato) return;
        if (sintetizzatore->in_corso() && !da_capo) return;
        da_capo = false;
        sdl().Mix_HookMusic(nullptr, nullptr);
        sintetizzatore->suona();
        brano = sintetizzatore->in_corso() ? gen : 0;
        sdl().Mix_HookMusic(musica_del_sintetizzatore, this);
    }

    void chiudi() {
        Uscita& u = uscita();
        std::lock_guard blocco(u.m);
        if (brano_caricato) {
            // A song stopped here brings no end.
            sdl().Mix_HookMusic(nullptr, nullptr);
            brano = 0;
            sintetizzatore->ferma();
            brano_caricato = false;
            --u.brani_caricati;
        }
        if (suono != nullptr) {
            // A device at rest plays nothing, and has no channels to halt.
            if (!u.a_riposo) sdl().Mix_HaltChannel(canale);
            sdl().Mix_FreeChunk(suono);
            suono = nullptr;
        }
        aperto = false;
    }

    void libera_tutto() {
        chiudi();
        sintetizzatore.reset();
    }

    // ---- the end of a song, on the caller's thread ----
    void consegna_fine(std::uint64_t gen) {
        if (gen == generazione && fine_brano) fine_brano();
    }
};

MediaSdl::MediaSdl(TipoDispositivo tipo, std::function<void()> fine_brano)
    : d_(std::make_unique<LettoreSdl>(tipo, std::move(fine_brano))) {
    d_->ricevitore = std::make_unique<QObject>();
    Uscita& u = uscita();
    {
        std::lock_guard blocco(u.m);
        ++u.giocatori;
        d_->canale = u.prossimo_canale;
        u.prossimo_canale = (u.prossimo_canale + 1) % canali_del_mixer;
    }
    d_->lavoratore = std::thread([p = d_.get()] { p->lavora(); });
}

MediaSdl::~MediaSdl() {
    libera_suoni();
    d_->esegui([p = d_.get()] { p->libera_tutto(); }, true);
    {
        std::lock_guard blocco(d_->m);
        d_->basta = true;
    }
    d_->cv.notify_one();
    d_->lavoratore.join();

    Uscita& u = uscita();
    std::lock_guard blocco(u.m);
    if (--u.giocatori == 0) chiudi_uscita(u);
}

void MediaSdl::FileName(const std::string& percorso) { d_->file = percorso; }

void MediaSdl::Command(std::string_view comando) {
    LettoreSdl* p = d_.get();
    if (parola(comando, "open")) {
        ++p->generazione;
        p->esegui([p, percorso = p->file] { p->apri(percorso); }, p->attendi);
    } else if (parola(comando, "close")) {
        ++p->generazione;
        p->esegui([p] { p->chiudi(); }, p->attendi);
    } else if (parola(comando, "play")) {
        p->esegui([p, gen = p->generazione] { p->suona_adesso(gen); }, false);
    }
}

void MediaSdl::From(int posizione) {
    if (posizione != 0) return;
    LettoreSdl* p = d_.get();
    p->esegui([p] { p->da_capo = true; }, false);
}

void MediaSdl::Wait(bool attendi) { d_->attendi = attendi; }

void MediaSdl::sincronizza() {
    d_->esegui([] {}, true);
}

void trattieni_suoni() {
    Uscita& u = uscita();
    std::lock_guard blocco(u.m);
    u.trattenuti = true;
}

void libera_suoni() {
    Uscita& u = uscita();
    {
        std::lock_guard blocco(u.m);
        u.trattenuti = false;
    }
    u.via_libera.notify_all();
}

bool MediaSdl::aperto() const { return d_->aperto; }

bool MediaSdl::suona() const {
    bool risposta = false;
    LettoreSdl* p = d_.get();
    if (LettoreSdl::trattenuti()) return false;
    p->esegui(
        [p, &risposta] {
            Uscita& u = uscita();
            std::lock_guard blocco(u.m);
            if (!p->aperto || u.a_riposo) return;
            risposta = p->tipo == TipoDispositivo::Sequencer ? p->sintetizzatore->in_corso()
                                                             : sdl().Mix_Playing(p->canale) != 0;
        },
        true);
    return risposta;
}

std::string font_gm_di_sistema() {
    // The synthesizer keeps in memory the samples of every instrument a song
    // has asked for, so the small TimGM6mb (6 MB) comes first: a piano of
    // FluidR3 (148 MB) alone would weigh more than the whole game. Then the
    // General MIDI font that Debian points at, and where other systems keep
    // one.
    static const char* const luoghi[] = {
        "/usr/share/sounds/sf2/TimGM6mb.sf2",   "/usr/share/sounds/sf3/default-GM.sf3",
        "/usr/share/sounds/sf2/default-GM.sf2", "/usr/share/sounds/sf2/FluidR3_GM.sf2",
        "/usr/share/soundfonts/default.sf2",    "/usr/share/soundfonts/FluidR3_GM.sf2",
    };
    for (const char* luogo : luoghi) {
        std::error_code errore;
        if (std::filesystem::is_regular_file(luogo, errore)) return luogo;
    }
    return {};
}

}  // namespace lesta
