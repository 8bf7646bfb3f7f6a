// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The cards by name, as the rules name them: "Seven of Denari", "King of
// Spade"; in Italian "Sette di Denari", "Re di Spade". The suits keep their
// Italian names in English too, as the rules do.

#include <string>
#include <string_view>

#include "match/carte.h"

namespace lesta {

// The language the game speaks to a player who follows it by ear: the
// desktop's own, Italian or, for any other, English.
enum class Lingua : unsigned char { inglese, italiano };

// The plain name: "Seven of Denari", "Sette di Denari".
std::string nome_carta(Carta c, Lingua lingua);

// The name in a sentence: "the Seven of Denari"; in Italian with its
// article, "il Sette di Denari", "l'Asso di Coppe", "la Donna di Spade".
std::string la_carta(Carta c, Lingua lingua);

// The name of a value alone, as in "a Five": "Five", "Cinque".
std::string_view nome_valore(int valore, Lingua lingua);

}  // namespace lesta
