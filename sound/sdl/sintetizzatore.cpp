// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/sdl/sintetizzatore.h"

#include "sound/sdl/libreria_sdl.h"

namespace lesta {

struct Sintetizzatore::Stato {
    explicit Stato(const LibreriaFluid& libreria) : f(libreria) {}
    ~Stato() {
        togli_lettore();
        if (synth != nullptr) f.delete_fluid_synth(synth);
        if (impostazioni != nullptr) f.delete_fluid_settings(impostazioni);
    }
    Stato(const Stato&) = delete;
    Stato& operator=(const Stato&) = delete;

    // A player of the song, stopped at its beginning.
    bool nuovo_lettore() {
        togli_lettore();
        lettore = f.new_fluid_player(synth);
        if (lettore != nullptr && f.fluid_player_add(lettore, brano.c_str()) == FLUID_OK) return true;
        togli_lettore();
        return false;
    }
    void togli_lettore() {
        if (lettore == nullptr) return;
        f.fluid_player_stop(lettore);
        f.delete_fluid_player(lettore);
        lettore = nullptr;
        f.fluid_synth_all_sounds_off(synth, -1);
    }

    const LibreriaFluid& f;
    fluid_settings_t* impostazioni = nullptr;
    fluid_synth_t* synth = nullptr;
    fluid_player_t* lettore = nullptr;
    std::string brano;   // the file of the loaded song
    bool usato = false;  // the player has played, and is made anew to start again
};

Sintetizzatore::Sintetizzatore(std::unique_ptr<Stato> s) : s_(std::move(s)) {}
Sintetizzatore::~Sintetizzatore() = default;

std::unique_ptr<Sintetizzatore> Sintetizzatore::crea(const std::string& font, int frequenza) {
    const LibreriaFluid* f = libreria_fluid();
    if (f == nullptr || font.empty()) return nullptr;
    auto s = std::make_unique<Stato>(*f);
    s->impostazioni = f->new_fluid_settings();
    if (s->impostazioni == nullptr) return nullptr;
    f->fluid_settings_setnum(s->impostazioni, "synth.sample-rate", frequenza);
    // A little under the loudness of SDL2_mixer's own synthesizer at full
    // volume (1.2): our songs peak under -5.5 dB, which leaves room for the
    // card sound (peak -9 dB) over them without clipping.
    f->fluid_settings_setnum(s->impostazioni, "synth.gain", 1.0);
    f->fluid_settings_setint(s->impostazioni, "synth.polyphony", 64);
    f->fluid_settings_setint(s->impostazioni, "synth.dynamic-sample-loading", 1);
    s->synth = f->new_fluid_synth(s->impostazioni);
    if (s->synth == nullptr || f->fluid_synth_sfload(s->synth, font.c_str(), 1) == FLUID_FAILED) return nullptr;
    return std::unique_ptr<Sintetizzatore>(new Sintetizzatore(std::move(s)));
}

bool Sintetizzatore::carica(const std::string& percorso) {
    ferma();
    s_->brano = percorso;
    s_->usato = false;
    if (s_->nuovo_lettore()) return true;
    s_->brano.clear();
    return false;
}

void Sintetizzatore::suona() {
    in_corso_ = false;
    if (s_->brano.empty() || (s_->usato && !s_->nuovo_lettore())) return;
    s_->usato = true;
    in_corso_ = s_->f.fluid_player_play(s_->lettore) == FLUID_OK;
}

void Sintetizzatore::ferma() {
    in_corso_ = false;
    s_->togli_lettore();
    s_->brano.clear();
}

bool Sintetizzatore::rendi(std::int16_t* campioni, int fotogrammi) {
    s_->f.fluid_synth_write_s16(s_->synth, fotogrammi, campioni, 0, 2, campioni, 1, 2);
    if (!in_corso_) return false;
    if (s_->f.fluid_player_get_status(s_->lettore) == FLUID_PLAYER_PLAYING && !finito(campioni, fotogrammi))
        return false;
    in_corso_ = false;
    return true;
}

// A song has ended once its last event has played and what its last notes
// still sound has died away: the frames just rendered are silence, their
// loudness (RMS) 60 dB under full scale. FluidSynth's own player would go on
// while any note lasts, long after it can be heard, and two seconds more
// after that.
bool Sintetizzatore::finito(const std::int16_t* campioni, int fotogrammi) const {
    const int fine = s_->f.fluid_player_get_total_ticks(s_->lettore);
    if (fine <= 0 || s_->f.fluid_player_get_current_tick(s_->lettore) < fine) return false;
    double energia = 0;
    for (int i = 0; i < 2 * fotogrammi; ++i) energia += static_cast<double>(campioni[i]) * campioni[i];
    constexpr double silenzio = 32767.0 / 1000;
    return energia <= silenzio * silenzio * 2 * fotogrammi;
}

}  // namespace lesta
