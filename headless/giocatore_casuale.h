#pragma once
// A player who picks at random, through the same clicks a person makes: a
// hand card among those not yet played, and, when the card must capture, one
// of the legal selections, all equally likely: any single table card of equal
// value when there is one, otherwise any set of table cards whose values add
// up to the card's.

#include <cstdint>
#include <random>
#include <vector>

#include "match/frmlesta.h"

namespace lesta {

class GiocatoreCasuale {
public:
    GiocatoreCasuale(Frmlesta& tavolo, std::uint32_t seme) : f_(tavolo), caso_(seme) {}

    // Makes the next click the game waits for; false if the game waits for
    // nothing a player can give.
    bool clic();

    // The legal selections for the card in play on the table as it is.
    static std::vector<std::vector<Carta>> selezioni_lecite(const Frmlesta& f);

private:
    void clic_mano(int slot);
    void clic_tavolo(Carta c);

    Frmlesta& f_;
    std::mt19937 caso_;
    std::vector<Carta> da_scegliere_;  // the rest of the selection being made
};

}  // namespace lesta
