// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The frame of the game's two windows: shown maximised, with a title, a
// minimise and a close button, and no way to resize or move the window.
//
// Qt always offers an X11 window manager the resize and move functions, and
// many managers will not maximise a window that does not offer to be
// maximised. So the window offers to be maximised until it is, and from then
// on offers only to be minimised and closed; should the manager ever let it
// go from maximised while it is on screen (as some do when the screen changes
// size), it offers and asks again, so that it fits whatever screen it is on.
// Elsewhere (Wayland, where the compositor keeps a maximised window fitted to
// its output, or a screen of the tests) the window is only shown maximised.

class QWidget;

namespace lesta {

// Shows the window maximised on its screen with a fixed frame, and keeps it
// so; again after the window was minimised, it comes back maximised.
void mostra_a_cornice_fissa(QWidget& finestra);

}  // namespace lesta
