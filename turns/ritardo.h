// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The timed pause of the game, `co_await ritardo(unita)`: Timer2 is armed for
// the pause's length and the routine sleeps until it fires, while the
// window's events go on. On a clock that ends pauses at once (the tests' and
// the simulator's virtual clock) the routine does not stop at all.

#include "match/frmlesta.h"
#include "turns/orologio.h"

namespace lesta {

// Every pause of play, in units of the timed wait (one unit is 650 ms at
// "Low", 325 at "Middle", 216 at "High"), named for what stands on view
// while it lasts.
namespace pausa {
// The blue window of a new match, before the start panel.
inline constexpr float schermo_blu = 2;
// The computer's turn: its green light on before it looks at the table...
inline constexpr float prima_del_computer = 1;
// ...the table wiped of the player's marks while it looks...
inline constexpr float computer_pensa = 2;
// ...and its card on the spot in play, with the capture outlined in red.
inline constexpr float carta_del_computer = 2;
// The player's card on the spot in play, its capture settled.
inline constexpr float carta_del_giocatore = 1;
// A capture: before each captured card rises onto the stack...
inline constexpr float prima_di_salire = 1;
// ...the whole stack standing above the played card, before the slide...
inline constexpr float presa_sollevata = 2;
// ...the slid stack, before it is turned over...
inline constexpr float prima_di_capovolgere = 1;
// ...the stack face down, before it goes to the pile...
inline constexpr float capovolta = 2;
// ...and the lamp lit beside the pile.
inline constexpr float lampada_accesa = 2;
// The sixth card of a deal played, before the next deal or the end of the hand.
inline constexpr float fine_distribuzione = 1;
// The last table of the hand, before the score sheet comes up.
inline constexpr float prima_del_punteggio = 5;
}  // namespace pausa

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
