// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// SDL2, SDL2_mixer and the FluidSynth synthesizer, loaded at the first sound
// instead of at the program's start. They bring some forty libraries with
// them (decoders and their own needs), and loading those before main() held
// up the table's first paint by 15 to 20 ms. The sound workers load them, so
// the time falls on no window; if SDL cannot be loaded the game plays in
// silence, as it does without a sound card, and without the synthesizer it
// plays without music.

#include <SDL.h>
#include <SDL_mixer.h>
#include <fluidsynth.h>

namespace lesta {

// What the game uses of the two libraries, under the libraries' own names.
struct LibreriaSdl {
    decltype(&::SDL_SetHint) SDL_SetHint;
    decltype(&::SDL_InitSubSystem) SDL_InitSubSystem;
    decltype(&::SDL_QuitSubSystem) SDL_QuitSubSystem;
    decltype(&::SDL_TLSCleanup) SDL_TLSCleanup;
    decltype(&::SDL_RWFromFile) SDL_RWFromFile;
    decltype(&::Mix_OpenAudioDevice) Mix_OpenAudioDevice;
    decltype(&::Mix_CloseAudio) Mix_CloseAudio;
    decltype(&::Mix_AllocateChannels) Mix_AllocateChannels;
    decltype(&::Mix_HookMusic) Mix_HookMusic;
    decltype(&::Mix_LoadWAV_RW) Mix_LoadWAV_RW;
    decltype(&::Mix_FreeChunk) Mix_FreeChunk;
    decltype(&::Mix_PlayChannelTimed) Mix_PlayChannelTimed;
    decltype(&::Mix_HaltChannel) Mix_HaltChannel;
    decltype(&::Mix_Playing) Mix_Playing;
};

// The libraries, loaded by the first call from any thread; null if either
// is missing or lacks a function. They stay loaded until the program ends.
const LibreriaSdl* libreria_sdl();

// The libraries if a call of libreria_sdl() has loaded them, else null.
const LibreriaSdl* libreria_sdl_caricata();

// What the songs use of FluidSynth.
struct LibreriaFluid {
    decltype(&::new_fluid_settings) new_fluid_settings;
    decltype(&::delete_fluid_settings) delete_fluid_settings;
    decltype(&::fluid_settings_setnum) fluid_settings_setnum;
    decltype(&::fluid_settings_setint) fluid_settings_setint;
    decltype(&::new_fluid_synth) new_fluid_synth;
    decltype(&::delete_fluid_synth) delete_fluid_synth;
    decltype(&::fluid_synth_sfload) fluid_synth_sfload;
    decltype(&::fluid_synth_all_sounds_off) fluid_synth_all_sounds_off;
    decltype(&::fluid_synth_write_s16) fluid_synth_write_s16;
    decltype(&::new_fluid_player) new_fluid_player;
    decltype(&::delete_fluid_player) delete_fluid_player;
    decltype(&::fluid_player_add) fluid_player_add;
    decltype(&::fluid_player_play) fluid_player_play;
    decltype(&::fluid_player_stop) fluid_player_stop;
    decltype(&::fluid_player_get_status) fluid_player_get_status;
    decltype(&::fluid_player_get_current_tick) fluid_player_get_current_tick;
    decltype(&::fluid_player_get_total_ticks) fluid_player_get_total_ticks;
};

// The synthesizer, loaded by the first call from any thread; null if it is
// missing or lacks a function. It stays loaded until the program ends.
const LibreriaFluid* libreria_fluid();

}  // namespace lesta
