// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the game asks of a window: a surface in logical units that keeps what
// is painted on it, and the few controls that show. The desktop implements
// it with Qt; tests and the simulator with cheap stand-ins.

#include <cstdint>
#include <string_view>

#include "table/controlli.h"
#include "table/figure.h"

namespace lesta {

// A colour word: red in the low byte, blue in the high byte.
using Colore = std::uint32_t;

inline constexpr Colore verde_tavolo = 0x007000;   // the table
inline constexpr Colore blu = 0xFF0000;            // the window's ground at each activation
inline constexpr Colore rosa_pannello = 0xF5AAA0;  // the ground under the start panel
inline constexpr Colore rosso = 0x0000FF;          // the mark of a selected card
inline constexpr Colore nero = 0x000000;
inline constexpr Colore bianco = 0xFFFFFF;
inline constexpr Colore giallo = 0x00FFFF;

constexpr int rosso_di(Colore c) { return static_cast<int>(c & 0xFF); }
constexpr int verde_di(Colore c) { return static_cast<int>((c >> 8) & 0xFF); }
constexpr int blu_di(Colore c) { return static_cast<int>((c >> 16) & 0xFF); }
constexpr Colore rgb(int r, int g, int b) {
    return static_cast<Colore>(r) | static_cast<Colore>(g) << 8 | static_cast<Colore>(b) << 16;
}

// A painted surface, 800 x 600 logical units with the origin at the top left.
class Superficie {
public:
    virtual ~Superficie() = default;

    // Clears the surface to the ground colour.
    virtual void Cls() = 0;
    // Sets the ground colour; the surface is cleared to it.
    virtual void BackColor(Colore colore) = 0;
    virtual Colore BackColor() const = 0;

    virtual void Line(float x1, float y1, float x2, float y2, Colore colore) = 0;
    virtual void Box(float x1, float y1, float x2, float y2, Colore colore) = 0;        // outline
    virtual void BoxFilled(float x1, float y1, float x2, float y2, Colore colore) = 0;  // filled

    // Paints a picture stretched to the rectangle.
    virtual void PaintPicture(Figura figura, float x, float y, float w, float h) = 0;
    virtual Colore Point(float x, float y) const = 0;

    // Writes one line of text with its top left corner at (x, y).
    virtual void Print(float x, float y, std::string_view testo, Colore colore) = 0;
    // The height of one line of text, in logical units.
    virtual float TextHeight() const = 0;

    // Whether what is painted can ever be seen or read back. On a surface
    // that keeps nothing (the simulator's) the game skips the steps of a wipe
    // or of a slide, which only paint: their end is all that counts.
    virtual bool conserva() const { return true; }

    float ScaleWidth() const { return 800.0f; }
    float ScaleHeight() const { return 600.0f; }
};

// The menu entries that carry a check mark.
enum class Voce : std::uint8_t {
    velocita_gioco,  // "Low", "Middle", "High": indices 1..3
    nomusic,         // "None"
    All,             // "SEQUENTIAL MODE"
    canzoni,         // the songs: indices 1..n
};

// The table window: its surface, and the controls that the game places.
class Finestra : public Superficie {
public:
    // The game checked or unchecked a menu entry.
    virtual void spunta(Voce voce, int indice, bool spuntata) = 0;
    // The game entered song `indice` (1..n) in the music menu, at load.
    virtual void voce_canzone(int indice, std::string_view titolo) = 0;
    // The caption of a control that shows text (the song's title on CmdSong).
    virtual void caption(Controllo c, std::string_view testo) = 0;
    // The game placed, showed, hid or raised a control: draw it as it now is.
    virtual void controllo_cambiato(Controllo c, const Rett& r, bool visibile, bool in_primo_piano) = 0;
    // The window's outer width in pixels, for the check of the screen.
    virtual int larghezza_pixel() const = 0;
};

}  // namespace lesta
