// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The table window's controls that the game places, shows and hides. Their
// places are in logical units (800 across, 600 down, whatever the window's
// real size), and the desktop draws each where the game put it.

#include <array>
#include <cstdint>

namespace lesta {

struct Rett {
    float left = 0, top = 0, width = 0, height = 0;
};

enum class Controllo : std::uint8_t {
    testo,   // the title picture
    quadro,  // holder of the song frame's picture; never shown itself
    Led,     // the lamp beside a pile after a capture
    Verde0,  // turn lights: index 0 on the player's side,
    Verde1,  // index 1 on the computer's
    Rosso0,
    Rosso1,
    Shape1,     // the frame round the match choice
    Option1_0,  // "Single Game"
    Option1_1,  // "11 points Game"
    Option1_2,  // "21 points Game"
    GO,
    CmdSong,  // the title of the song, in its frame
    Text2,    // the English rules
    Text3,    // the Italian rules
    Text4,    // the information panel
};
inline constexpr int numero_controlli = static_cast<int>(Controllo::Text4) + 1;

constexpr Controllo Option1(int i) { return static_cast<Controllo>(static_cast<int>(Controllo::Option1_0) + i); }
constexpr Controllo Verde(int i) { return i == 0 ? Controllo::Verde0 : Controllo::Verde1; }
constexpr Controllo Rosso(int i) { return i == 0 ? Controllo::Rosso0 : Controllo::Rosso1; }

// The window was designed at 15270 x 11595 twips; a control's logical size
// follows from its design size in twips.
constexpr float logico_x(float twips) { return twips * 800.0f / 15270.0f; }
constexpr float logico_y(float twips) { return twips * 600.0f / 11595.0f; }
constexpr Rett da_twips(float left, float top, float width, float height) {
    return {logico_x(left), logico_y(top), logico_x(width), logico_y(height)};
}

// Where each control stands when the window loads.
constexpr Rett rettangolo_iniziale(Controllo c) {
    switch (c) {
        case Controllo::testo: return da_twips(2040, 0, 4365, 1905);
        case Controllo::quadro: return da_twips(7680, 5040, 2925, 2175);
        case Controllo::Led: return da_twips(4560, 5400, 195, 195);
        case Controllo::Verde0: return da_twips(3600, 4560, 480, 480);
        case Controllo::Verde1: return da_twips(3120, 4560, 480, 480);
        case Controllo::Rosso0: return da_twips(3600, 5280, 480, 480);
        case Controllo::Rosso1: return da_twips(3120, 5280, 480, 480);
        case Controllo::Shape1: return da_twips(3240, 1560, 3360, 2760);
        case Controllo::Option1_0: return da_twips(3360, 1800, 3012, 252);
        case Controllo::Option1_1: return da_twips(3360, 2160, 3012, 252);
        case Controllo::Option1_2: return da_twips(3360, 2520, 3012, 252);
        case Controllo::GO: return da_twips(3000, 5760, 1812, 360);
        case Controllo::CmdSong: return da_twips(7560, 7440, 1740, 1200);
        case Controllo::Text2: return da_twips(0, 5400, 2904, 2904);
        case Controllo::Text3: return da_twips(0, 2520, 2904, 2904);
        case Controllo::Text4: return da_twips(0, 1200, 2652, 1452);
    }
    return {};
}

// Only the title shows when the window opens.
constexpr bool visibile_iniziale(Controllo c) { return c == Controllo::testo; }

// The card controls hold a picture and the place where it was last painted;
// they never show. Their design size gives the card size.
inline constexpr Rett carta_iniziale = da_twips(3000, 6240, 1500, 2790);
inline constexpr Rett dorso_iniziale = da_twips(4560, 6360, 1440, 2295);

}  // namespace lesta
