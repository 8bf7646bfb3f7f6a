// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The texts of the three help panels, in UTF-8. They are broken into lines
// by hand, at about 38 characters, for the width of the panel; each line ends
// with '\n'.

#include <string>
#include <string_view>

#include "match/nomi_carte.h"
#include "table/controlli.h"

namespace lesta {

// Text2: the English rules.
extern const std::string_view testo_inglese;
// Text3: the Italian rules.
extern const std::string_view testo_italiano;
// Text4: the information panel, a few lines shown centred: the game and its
// deck, then its copyright and licence.
extern const std::string_view testo_informazioni;

// A control's name for a player who follows the game by ear, in the
// player's language: the help panels ("Game rules in English"...), the turn
// lights and the lamp by the piles; empty for the others, which show their
// own words or are named elsewhere.
std::string_view nome_controllo(Controllo c, Lingua l);
// A panel as it is read out when it opens: its name, then its text, its
// lines joined as the sentences run (a blank line still parts two
// paragraphs).
std::string lettura_pannello(Controllo pannello, Lingua l);

}  // namespace lesta
