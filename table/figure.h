// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The pictures the game paints or shows. The game refers to a picture by this
// id only; the desktop turns an id and a pixel size into pixels.

#include <cstdint>

namespace lesta {

enum class Figura : std::uint8_t {
    // 1..40 are the card faces, numbered as the cards are (1..10 coins,
    // 11..20 cups, 21..30 batons, 31..40 swords).
    Dorso = 41,  // the card back: the computer's hand, the deck, the piles
    Titolo,      // the game's name on blue: the title control and the start panel
    Quadro,      // the song frame
    Led,         // the small green lamp beside a pile after a capture
    Verde,       // traffic light, green lamp lit
    Rosso,       // traffic light, red lamp lit
    Icona,       // the window icon
};

constexpr Figura faccia(int carta) { return static_cast<Figura>(carta); }

inline constexpr int numero_figure = static_cast<int>(Figura::Icona);

}  // namespace lesta
