// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/sdl/libreria_sdl.h"

#include <dlfcn.h>

#include <atomic>
#include <cstring>
#include <mutex>

namespace lesta {
namespace {

std::atomic<const LibreriaSdl*> caricata{nullptr};

// A function of an open library into its pointer; false if it is missing.
template <class Funzione>
bool prendi(void* libreria, const char* nome, Funzione& f) {
    void* simbolo = dlsym(libreria, nome);
    std::memcpy(&f, &simbolo, sizeof f);  // object to function pointer, as POSIX allows
    return simbolo != nullptr;
}

const LibreriaSdl* carica() {
    // The mixer needs SDL itself, so it comes with it.
    void* mixer = dlopen("libSDL2_mixer-2.0.so.0", RTLD_LAZY | RTLD_LOCAL);
    void* sdl = mixer != nullptr ? dlopen("libSDL2-2.0.so.0", RTLD_LAZY | RTLD_LOCAL) : nullptr;
    if (sdl == nullptr) return nullptr;
    static LibreriaSdl l;
    const bool tutte =
        prendi(sdl, "SDL_SetHint", l.SDL_SetHint) && prendi(sdl, "SDL_InitSubSystem", l.SDL_InitSubSystem) &&
        prendi(sdl, "SDL_QuitSubSystem", l.SDL_QuitSubSystem) && prendi(sdl, "SDL_TLSCleanup", l.SDL_TLSCleanup) &&
        prendi(sdl, "SDL_RWFromFile", l.SDL_RWFromFile) &&
        prendi(mixer, "Mix_OpenAudioDevice", l.Mix_OpenAudioDevice) &&
        prendi(mixer, "Mix_CloseAudio", l.Mix_CloseAudio) &&
        prendi(mixer, "Mix_AllocateChannels", l.Mix_AllocateChannels) &&
        prendi(mixer, "Mix_HookMusic", l.Mix_HookMusic) && prendi(mixer, "Mix_LoadWAV_RW", l.Mix_LoadWAV_RW) &&
        prendi(mixer, "Mix_FreeChunk", l.Mix_FreeChunk) &&
        prendi(mixer, "Mix_PlayChannelTimed", l.Mix_PlayChannelTimed) &&
        prendi(mixer, "Mix_HaltChannel", l.Mix_HaltChannel) && prendi(mixer, "Mix_Playing", l.Mix_Playing);
    return tutte ? &l : nullptr;
}

const LibreriaFluid* carica_fluid() {
    void* fluid = dlopen("libfluidsynth.so.3", RTLD_LAZY | RTLD_LOCAL);
    if (fluid == nullptr) return nullptr;
    static LibreriaFluid l;
    const bool tutte = prendi(fluid, "new_fluid_settings", l.new_fluid_settings) &&
                       prendi(fluid, "delete_fluid_settings", l.delete_fluid_settings) &&
                       prendi(fluid, "fluid_settings_setnum", l.fluid_settings_setnum) &&
                       prendi(fluid, "fluid_settings_setint", l.fluid_settings_setint) &&
                       prendi(fluid, "new_fluid_synth", l.new_fluid_synth) &&
                       prendi(fluid, "delete_fluid_synth", l.delete_fluid_synth) &&
                       prendi(fluid, "fluid_synth_sfload", l.fluid_synth_sfload) &&
                       prendi(fluid, "fluid_synth_all_sounds_off", l.fluid_synth_all_sounds_off) &&
                       prendi(fluid, "fluid_synth_write_s16", l.fluid_synth_write_s16) &&
                       prendi(fluid, "new_fluid_player", l.new_fluid_player) &&
                       prendi(fluid, "delete_fluid_player", l.delete_fluid_player) &&
                       prendi(fluid, "fluid_player_add", l.fluid_player_add) &&
                       prendi(fluid, "fluid_player_play", l.fluid_player_play) &&
                       prendi(fluid, "fluid_player_stop", l.fluid_player_stop) &&
                       prendi(fluid, "fluid_player_get_status", l.fluid_player_get_status) &&
                       prendi(fluid, "fluid_player_get_current_tick", l.fluid_player_get_current_tick) &&
                       prendi(fluid, "fluid_player_get_total_ticks", l.fluid_player_get_total_ticks);
    return tutte ? &l : nullptr;
}

}  // namespace

const LibreriaFluid* libreria_fluid() {
    static const LibreriaFluid* const l = carica_fluid();
    return l;
}

const LibreriaSdl* libreria_sdl() {
    static std::once_flag una_volta;
    std::call_once(una_volta, [] { caricata = carica(); });
    return caricata;
}

const LibreriaSdl* libreria_sdl_caricata() { return caricata; }

}  // namespace lesta
