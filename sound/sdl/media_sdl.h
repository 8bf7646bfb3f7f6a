// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The media control on SDL2_mixer: MIDI songs through the FluidSynth
// synthesizer (sound/sdl/sintetizzatore.h) with the system's General MIDI
// soundfont, played into the mixer's music stream, and one wave sound at a
// time on a mixer channel of its own.
//
// Every command returns at once and is carried out, in the order given, on a
// worker thread of the player, so that loading a song (the first one loads
// the soundfont too) never holds up the window. With Wait(true),
// "Open" and "Close" return only once they are over.
//
// Nothing ever reports a failure: a file that is missing or broken leaves the
// player with nothing open, and without an audio device every command does
// nothing at all.

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "sound/media.h"

namespace lesta {

struct LettoreSdl;

enum class TipoDispositivo {
    Sequencer,  // MIDI songs; only one such player plays at a time
    WaveAudio,  // a short wave sound
};

class MediaSdl final : public Media {
public:
    // `fine_brano` is called when a song has played to its end; it runs on
    // the thread that built the player, through that thread's Qt event loop.
    // A song stopped by "Close", or by the "Open" of another file, brings no
    // call.
    explicit MediaSdl(TipoDispositivo tipo, std::function<void()> fine_brano = {});
    ~MediaSdl() override;
    MediaSdl(const MediaSdl&) = delete;
    MediaSdl& operator=(const MediaSdl&) = delete;

    void FileName(const std::string& percorso) override;
    // "Open", "Play", "Close" or "close"; any other word does nothing.
    //   Open  opens the file named last, closing first what was open.
    //   Play  starts the open file. A song that is playing goes on, unless
    //         From(0) came since it started; a song that has ended, or
    //         has not started, plays from its beginning. The wave sound
    //         always starts again from its beginning, also while it sounds.
    //   Close stops and closes what is open.
    void Command(std::string_view comando) override;
    // Only 0, the beginning, is a position this player knows.
    void From(int posizione) override;
    void Wait(bool attendi) override;

    // Returns once every command given so far has been carried out.
    void sincronizza();
    // After sincronizza(): whether a file is open, and whether it is sounding.
    bool aperto() const;
    bool suona() const;

private:
    std::unique_ptr<LettoreSdl> d_;
};

// The desktop holds the sound back until the table is on screen: until
// libera_suoni() the commands only queue (Wait included, and sincronizza()
// and suona() answer at once), so that loading the sound libraries and
// opening the device never delay the table's first paint. Not held unless
// trattieni_suoni() is called; a player destroyed while held releases it.
void trattieni_suoni();
void libera_suoni();

// The General MIDI soundfont of the system: the first of the usual places
// that holds a file, or an empty string if there is none.
std::string font_gm_di_sistema();

}  // namespace lesta
