// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Who tells the game to a player who follows it by ear: a line for each thing
// that happens on the table, in the order it happens, in the player's
// language. The game decides every line on its own state (turns/frasi.h);
// the desktop hands them to a screen reader, the tests write them down.

#include <string>

#include "match/nomi_carte.h"

namespace lesta {

class Cronista {
public:
    virtual ~Cronista() = default;
    // Whether anyone listens now. When nobody does, the game composes no line
    // at all, so that playing unheard costs nothing.
    virtual bool in_ascolto() const = 0;
    virtual Lingua lingua() const = 0;
    // Something happened on the table.
    virtual void racconta(std::string riga) = 0;
};

// Nobody listens: the simulator, and the tests that do not.
class CronistaMuto final : public Cronista {
public:
    bool in_ascolto() const override { return false; }
    Lingua lingua() const override { return Lingua::inglese; }
    void racconta(std::string) override {}
};

}  // namespace lesta
