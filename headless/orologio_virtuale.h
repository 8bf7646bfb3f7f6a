// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The game's clock without a window: a pause completes at once and adds its
// length to a virtual time; input comes from a script. A wait that neither a
// timer nor the script can end stays suspended until the test makes an event
// itself and calls sveglia().

#include <cstdint>
#include <functional>

#include "turns/orologio.h"

namespace lesta {

class OrologioVirtuale final : public Orologio {
public:
    std::function<void()> al_timer2;  // Timer2's event: the game's Timer2_Timer
    std::function<bool()> ingresso;   // makes one input event; false when it has none

    void Timer2(int intervallo_ms, bool acceso) override;
    bool sospendi(Risveglio& r) override;
    bool pausa_immediata(int intervallo_ms) override;
    bool sospendi_un_frame(std::coroutine_handle<> chi) override;

    // After an event from outside the script: goes on with the waiting routine
    // if what it waits for has come.
    void sveglia();
    bool in_attesa() const { return sospeso_ != nullptr; }

    std::int64_t millisecondi() const { return millisecondi_; }
    std::int64_t frame() const { return frame_; }
    int pause() const { return pause_; }  // how many times Timer2 has fired

private:
    bool esegui_fino(const Risveglio& r);
    Risveglio* sospeso_ = nullptr;
    bool acceso_ = false;
    int intervallo_ = 0;
    std::int64_t millisecondi_ = 0;
    std::int64_t frame_ = 0;
    int pause_ = 0;
};

}  // namespace lesta
