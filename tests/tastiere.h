// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The keys that play as three keyboards send them: the key's place, which is
// X's keycode (Linux's input code plus 8) on every layout, and the key and
// the text that the layout gives it, unshifted. On a French keyboard the
// number row gives signs and A and Q, Z and W change places; on a Russian
// one the letters are Cyrillic.

#include <QKeyEvent>
#include <QString>
#include <array>
#include <string_view>

namespace lesta::prova {

struct Segno {
    int tasto;  // Qt's key: a capital letter, or the character's code
    const char16_t* testo;
};

struct TastoCheGioca {
    char nome;  // as a US keyboard prints it
    quint32 codice_x;
    Segno us, fr, ru;
};

inline constexpr std::array<TastoCheGioca, 15> tasti_che_giocano{{
    {'1', 10, {Qt::Key_1, u"1"}, {Qt::Key_Ampersand, u"&"}, {Qt::Key_1, u"1"}},
    {'2', 11, {Qt::Key_2, u"2"}, {Qt::Key_Eacute, u"é"}, {Qt::Key_2, u"2"}},
    {'3', 12, {Qt::Key_3, u"3"}, {Qt::Key_QuoteDbl, u"\""}, {Qt::Key_3, u"3"}},
    {'Q', 24, {Qt::Key_Q, u"q"}, {Qt::Key_A, u"a"}, {0x419, u"й"}},
    {'W', 25, {Qt::Key_W, u"w"}, {Qt::Key_Z, u"z"}, {0x426, u"ц"}},
    {'E', 26, {Qt::Key_E, u"e"}, {Qt::Key_E, u"e"}, {0x423, u"у"}},
    {'R', 27, {Qt::Key_R, u"r"}, {Qt::Key_R, u"r"}, {0x41A, u"к"}},
    {'A', 38, {Qt::Key_A, u"a"}, {Qt::Key_Q, u"q"}, {0x424, u"ф"}},
    {'S', 39, {Qt::Key_S, u"s"}, {Qt::Key_S, u"s"}, {0x42B, u"ы"}},
    {'D', 40, {Qt::Key_D, u"d"}, {Qt::Key_D, u"d"}, {0x412, u"в"}},
    {'F', 41, {Qt::Key_F, u"f"}, {Qt::Key_F, u"f"}, {0x410, u"а"}},
    {'Z', 52, {Qt::Key_Z, u"z"}, {Qt::Key_W, u"w"}, {0x42F, u"я"}},
    {'X', 53, {Qt::Key_X, u"x"}, {Qt::Key_X, u"x"}, {0x427, u"ч"}},
    {'C', 54, {Qt::Key_C, u"c"}, {Qt::Key_C, u"c"}, {0x421, u"с"}},
    {'V', 55, {Qt::Key_V, u"v"}, {Qt::Key_V, u"v"}, {0x41C, u"м"}},
}};

inline const TastoCheGioca& tasto_di_nome(char nome) {
    for (const TastoCheGioca& t : tasti_che_giocano)
        if (t.nome == nome) return t;
    return tasti_che_giocano.front();
}

// A key pressed or let go as a keyboard sends it; a code of 0 is a key whose
// place the platform does not give.
inline QKeyEvent evento_tasto(QEvent::Type tipo, quint32 codice_x, Segno segno, Qt::KeyboardModifiers modificatori = {},
                              bool ripetuto = false) {
    return QKeyEvent(tipo, segno.tasto, modificatori, codice_x, 0, 0, QString::fromUtf16(segno.testo), ripetuto);
}

}  // namespace lesta::prova
