// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program as a whole, as the game reaches it: ending it.

#include <string_view>

namespace lesta {

class Programma {
public:
    virtual ~Programma() = default;
    // Ends the program at once, whatever it is doing.
    virtual void End() = 0;
    // Shows the message in a box with an OK button; the program ends when the
    // box is closed.
    virtual void messaggio_e_fine(std::string_view messaggio) = 0;
    // Brings up the score sheet for the hand just finished, without waiting
    // for it: the sheet fills itself, and its button starts the next hand.
    virtual void Show_frmscore() = 0;
};

}  // namespace lesta
