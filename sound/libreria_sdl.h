#pragma once
// SDL2 and SDL2_mixer, loaded at the first sound instead of at the program's
// start. They bring some forty libraries with them (the synthesizer, its
// decoders and their own needs), and loading those before main() held up the
// table's first paint by 15 to 20 ms. The sound workers load them, so the
// time falls on no window; if they cannot be loaded the game plays in
// silence, as it does without a sound card.

#include <SDL.h>
#include <SDL_mixer.h>

namespace lesta {

// What the game uses of the two libraries, under the libraries' own names.
struct LibreriaSdl {
    decltype(&::SDL_SetHint) SDL_SetHint;
    decltype(&::SDL_InitSubSystem) SDL_InitSubSystem;
    decltype(&::SDL_QuitSubSystem) SDL_QuitSubSystem;
    decltype(&::SDL_TLSCleanup) SDL_TLSCleanup;
    decltype(&::SDL_RWFromFile) SDL_RWFromFile;
    decltype(&::Mix_Init) Mix_Init;
    decltype(&::Mix_Quit) Mix_Quit;
    decltype(&::Mix_OpenAudioDevice) Mix_OpenAudioDevice;
    decltype(&::Mix_CloseAudio) Mix_CloseAudio;
    decltype(&::Mix_AllocateChannels) Mix_AllocateChannels;
    decltype(&::Mix_SetSoundFonts) Mix_SetSoundFonts;
    decltype(&::Mix_HookMusicFinished) Mix_HookMusicFinished;
    decltype(&::Mix_LoadMUS) Mix_LoadMUS;
    decltype(&::Mix_FreeMusic) Mix_FreeMusic;
    decltype(&::Mix_LoadWAV_RW) Mix_LoadWAV_RW;
    decltype(&::Mix_FreeChunk) Mix_FreeChunk;
    decltype(&::Mix_PlayChannelTimed) Mix_PlayChannelTimed;
    decltype(&::Mix_HaltChannel) Mix_HaltChannel;
    decltype(&::Mix_Playing) Mix_Playing;
    decltype(&::Mix_PlayingMusic) Mix_PlayingMusic;
    decltype(&::Mix_HaltMusic) Mix_HaltMusic;
    decltype(&::Mix_PlayMusic) Mix_PlayMusic;
};

// The libraries, loaded by the first call from any thread; null if either
// is missing or lacks a function. They stay loaded until the program ends.
const LibreriaSdl* libreria_sdl();

// The libraries if a call of libreria_sdl() has loaded them, else null.
const LibreriaSdl* libreria_sdl_caricata();

}  // namespace lesta
