// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/qt/nome_tasto.h"

#include <QKeyEvent>
#include <cstdint>
#include <string_view>

namespace lesta {

namespace {

// The keys by Linux's input codes, one row of neighbouring codes at a time
// from its first code, with what a US keyboard prints on them: the number
// row, the three rows of letters and the keypad's digits, which play as the
// number row's do (with Num Lock on or off: the place is the same).
struct Fila {
    std::uint32_t primo;
    std::string_view nomi;
};
constexpr Fila file[] = {
    {2, "1234567890-="}, {16, "QWERTYUIOP[]"}, {30, "ASDFGHJKL;'`"}, {43, "\\ZXCVBNM,./"},
    {71, "789"},         {75, "456"},          {79, "1230"},
};

// Qt gives a key's place as X's keycode, Linux's input code plus 8: so on
// X11, on Wayland (xkb's keycode) and on Linux's own input drivers.
constexpr std::uint32_t scarto_x = 8;

// The name of the key at this input code, or 0.
char nome_al_posto(std::uint32_t codice) {
    for (const Fila& f : file)
        if (codice >= f.primo && codice - f.primo < f.nomi.size()) return f.nomi[codice - f.primo];
    return 0;
}

// Whether a character is the name of a key.
bool e_un_nome(char c) {
    for (const Fila& f : file)
        if (f.nomi.find(c) != std::string_view::npos) return true;
    return false;
}

}  // namespace

char nome_del_tasto(const QKeyEvent& evento) {
    const std::uint32_t codice = evento.nativeScanCode();
    if (codice >= scarto_x) return nome_al_posto(codice - scarto_x);
    // No place (0; a code under 8 is no keycode either): the offscreen screen,
    // and any platform that gives none. What is left is the character the
    // layout gives, which names the key rightly on a US layout and on any
    // that prints the same there, and else is at least what the player sees
    // printed on the key.
    const int k = evento.key();
    return k > Qt::Key_Space && k <= Qt::Key_AsciiTilde && e_un_nome(static_cast<char>(k)) ? static_cast<char>(k) : 0;
}

}  // namespace lesta
