// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The texts of the three help panels, in UTF-8. They are broken into lines
// by hand, at about 38 characters, for the width of the panel; each line ends
// with '\n'.

#include <string_view>

namespace lesta {

// Text2: the English rules.
extern const std::string_view testo_inglese;
// Text3: the Italian rules.
extern const std::string_view testo_italiano;
// Text4: the information panel, a few lines shown centred: the game and its
// deck, then its copyright and licence.
extern const std::string_view testo_informazioni;

}  // namespace lesta
