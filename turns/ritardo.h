// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The timed pause of the game, `co_await ritardo(unita)`: Timer2 is armed for
// the pause's length and the routine sleeps until it fires, while the
// window's events go on. On a clock that ends pauses at once (the tests' and
// the simulator's virtual clock) the routine does not stop at all.

#include "match/frmlesta.h"
#include "turns/orologio.h"

namespace lesta {

class Frmlesta::Pausa final : public Risveglio {
public:
    Pausa(Frmlesta& f, int intervallo_ms) : f_(f), intervallo_(intervallo_ms) {}
    bool pronto() const override { return f_.scattato; }
    bool await_ready() {
        f_.scattato = false;
        Orologio& orologio = f_.piattaforma.orologio;
        if (orologio.pausa_immediata(intervallo_) && f_.scattato) return true;
        orologio.Timer2(intervallo_, true);
        acceso_ = true;
        return false;
    }
    bool await_suspend(std::coroutine_handle<> h) {
        chi = h;
        return f_.piattaforma.orologio.sospendi(*this);
    }
    void await_resume() {
        if (acceso_) f_.piattaforma.orologio.Timer2(intervallo_, false);
    }

private:
    Frmlesta& f_;
    int intervallo_;
    bool acceso_ = false;  // Timer2 was started and must be stopped
};

}  // namespace lesta
