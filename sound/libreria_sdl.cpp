#include "sound/libreria_sdl.h"

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
        prendi(sdl, "SDL_RWFromFile", l.SDL_RWFromFile) && prendi(mixer, "Mix_Init", l.Mix_Init) &&
        prendi(mixer, "Mix_Quit", l.Mix_Quit) && prendi(mixer, "Mix_OpenAudioDevice", l.Mix_OpenAudioDevice) &&
        prendi(mixer, "Mix_CloseAudio", l.Mix_CloseAudio) &&
        prendi(mixer, "Mix_AllocateChannels", l.Mix_AllocateChannels) &&
        prendi(mixer, "Mix_SetSoundFonts", l.Mix_SetSoundFonts) &&
        prendi(mixer, "Mix_HookMusicFinished", l.Mix_HookMusicFinished) &&
        prendi(mixer, "Mix_LoadMUS", l.Mix_LoadMUS) && prendi(mixer, "Mix_FreeMusic", l.Mix_FreeMusic) &&
        prendi(mixer, "Mix_LoadWAV_RW", l.Mix_LoadWAV_RW) && prendi(mixer, "Mix_FreeChunk", l.Mix_FreeChunk) &&
        prendi(mixer, "Mix_PlayChannelTimed", l.Mix_PlayChannelTimed) &&
        prendi(mixer, "Mix_HaltChannel", l.Mix_HaltChannel) && prendi(mixer, "Mix_Playing", l.Mix_Playing) &&
        prendi(mixer, "Mix_PlayingMusic", l.Mix_PlayingMusic) && prendi(mixer, "Mix_HaltMusic", l.Mix_HaltMusic) &&
        prendi(mixer, "Mix_PlayMusic", l.Mix_PlayMusic);
    return tutte ? &l : nullptr;
}

}  // namespace

const LibreriaSdl* libreria_sdl() {
    static std::once_flag una_volta;
    std::call_once(una_volta, [] { caricata = carica(); });
    return caricata;
}

const LibreriaSdl* libreria_sdl_caricata() { return caricata; }

}  // namespace lesta
