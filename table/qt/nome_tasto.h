// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Which key was pressed, by its place on the keyboard: the name a US keyboard
// prints there, whatever the layout says the key types.

class QKeyEvent;

namespace lesta {

// The name a US keyboard prints on the key pressed, unshifted, with letters
// as capitals: '1', 'Q', ';'... A key of the main block or a digit of the
// keypad is named by its place. A key whose place the platform does not
// give is named by the character the layout gives it, if that is one of
// the names; 0 for a key that has no name.
char nome_del_tasto(const QKeyEvent& evento);

}  // namespace lesta
