// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The synthesizer of the songs: FluidSynth with the system's General MIDI
// soundfont, read once for the whole run, and one song at a time on it. It
// renders into the mixer's music stream from the audio thread; whoever owns
// it keeps that thread out (the mixer's music hook off) while it loads,
// starts or stops a song.
//
// Two settings keep it small: the samples of an instrument are read only
// when a song first asks for it (our songs use a handful of the font's 128),
// and 64 voices sound at once, which leaves room for every note of our
// songs and their echoes.

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

namespace lesta {

class Sintetizzatore {
public:
    // The synthesizer with the soundfont `font`, rendering at `frequenza`
    // frames a second; null if the library or the font cannot be loaded.
    static std::unique_ptr<Sintetizzatore> crea(const std::string& font, int frequenza);
    ~Sintetizzatore();
    Sintetizzatore(const Sintetizzatore&) = delete;
    Sintetizzatore& operator=(const Sintetizzatore&) = delete;

    // The song of a MIDI file, ready to play from its beginning; the song
    // there was stops. False if the file cannot be given to the player.
    bool carica(const std::string& percorso);
    // Plays the loaded song from its beginning, also if it is playing.
    void suona();
    // Stops and forgets the song; notes still ringing are cut.
    void ferma();
    // Whether the song is playing and has not reached its end.
    bool in_corso() const { return in_corso_; }

    // On the audio thread: the next `fotogrammi` stereo frames of 16-bit
    // samples. True once, on the call in which the song reaches its end: its
    // last event played, and its last notes rung out.
    bool rendi(std::int16_t* campioni, int fotogrammi);

private:
    bool finito(const std::int16_t* campioni, int fotogrammi) const;
    struct Stato;
    explicit Sintetizzatore(std::unique_ptr<Stato> s);
    std::unique_ptr<Stato> s_;
    std::atomic<bool> in_corso_{false};
};

}  // namespace lesta
