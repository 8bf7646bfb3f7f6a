// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A player who picks at random, through the same clicks a person makes, or
// through the keys: a hand card among those not yet played, and, when the
// card must capture, one of the legal selections, all equally likely: any
// single table card of equal value when there is one, otherwise any set of
// table cards whose values add up to the card's.

#include <array>
#include <cstdint>
#include <functional>

#include "headless/pcg32.h"
#include "match/frmlesta.h"

namespace lesta {

class GiocatoreCasuale {
public:
    // Where a click at a point of the table (in logical units) goes: straight
    // to the game, or through a real window.
    using Clic = std::function<void(float x, float y)>;
    // Where a key goes, for a player who plays by the keyboard: '1' to '3'
    // for the hand, and for the table the letter of the card's cell, by the
    // names the game gives its keys (tasti_mano, tasti_celle).
    using Tasto = std::function<void(char tasto)>;

    GiocatoreCasuale(Frmlesta& tavolo, std::uint32_t seme, Clic clic = {}, Tasto tasto = {})
        : f_(tavolo), caso_(seme), clic_(std::move(clic)), tasto_(std::move(tasto)) {}

    // Makes the next click the game waits for; false if the game waits for
    // nothing a player can give.
    bool clic();

private:
    int a_caso(int n) { return static_cast<int>(caso_.sotto(static_cast<std::uint32_t>(n))); }
    // Chooses the selection to make for the card in play; false if none is legal.
    bool scegli_selezione();
    void clic_mano(int slot);
    void clic_tavolo(Carta c);
    void premi(float x, float y) { clic_ ? clic_(x, y) : f_.Form_MouseDown(x, y); }

    Frmlesta& f_;
    Pcg32 caso_;
    Clic clic_;
    Tasto tasto_;                           // when set, the player plays by keys alone
    std::array<Carta, 12> da_scegliere_{};  // the rest of the selection being made
    int restanti_ = 0;
};

}  // namespace lesta
