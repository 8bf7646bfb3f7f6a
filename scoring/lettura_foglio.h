// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The score sheet read out, for a player who follows the game by ear, as the
// sheet shows it once a hand is over: the hand's five score lines of each
// side with the points they give, the totals, the best cards of the
// primiera, how the hand or the match ends, and what Enter does.

#include <string>

#include "match/nomi_carte.h"
#include "match/stato.h"

namespace lesta {

// Read from the shared state as the sheet has just been filled.
std::string lettura_del_foglio(const ModLesta& mod, Lingua l);

}  // namespace lesta
