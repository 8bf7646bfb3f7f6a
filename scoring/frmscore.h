// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The score sheet: the window that comes up at the end of every hand with the
// best primiera cards of both sides, one row a hand of the five score lines,
// the match totals and two buttons. Its state is plain data here; the window
// itself (on Qt or without a screen) is told of every change through
// FinestraPunteggio and draws what it is told.
//
// One row per hand, one hand per click.
//   The sheet is filled only by Form_Activate, and Form_Activate runs only
//   when it is called: the desktop calls it (or Show, which brings the window
//   up and calls it) once, when the table's gioco has finished a hand. The
//   window system's own activation of the window does nothing, so bringing
//   the sheet to the front by hand writes no row and adds no points.
//   Command1 answers once per filled sheet: the click that hands over to the
//   table clears `attende_scelta`, and until the next hand fills the sheet a
//   further click does nothing. So Show_frmlesta comes once per finished
//   hand, and with it the next hand.

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "match/stato.h"
#include "table/finestra.h"

namespace lesta {

// The captions of Command1 that the table reads.
inline constexpr std::string_view continua = "CONTINUE";
inline constexpr std::string_view nuova_partita = "NEW GAME";

// The sheet's colours.
inline constexpr Colore arancio = 0x0080FF;         // the ground until the first new match
inline constexpr Colore oliva = 0x008080;           // the ground from the first "NEW GAME" on
inline constexpr Colore rosso_scuro = 0x000080;     // heads, cells and the lesser total
inline constexpr Colore giallo_chiaro = 0xC0FFFF;   // LBLtit
inline constexpr Colore verde_chiaro = 0xC0FFC0;    // the model label, and so heads and cells
inline constexpr Colore azzurro = 0xFFFF80;         // "Player", "Computer"
inline constexpr Colore arancio_chiaro = 0x80C0FF;  // the totals

// The window was designed with a client area of 15360 x 11985 twips; sizes
// loaded in twips become logical units by these.
constexpr float punteggio_x(float twips) { return twips * 800.0f / 15360.0f; }
constexpr float punteggio_y(float twips) { return twips * 600.0f / 11985.0f; }

// A label of the sheet as it stands. Text is centred; the font is
// "MS Sans Serif" at FontSize points at the window's design size.
struct Etichetta {
    Rett r;
    std::string Caption;
    Colore BackColor = verde_chiaro;
    Colore ForeColor = nero;
    float FontSize = 12;
    bool FontBold = false;
    bool Visible = false;
};

// One of the eight images of the title strip (the control array imgset): a
// card's face stretched to its rectangle, or nothing while `carta` is 0.
struct Imgset {
    Rett r;
    int carta = 0;
    bool Visible = true;
};

struct Bottone {
    Rett r;
    bool Visible = true;
};

// Which label: LBLtit, LBLdat(indice) or lblTot(indice).
enum class Gruppo : std::uint8_t { LBLtit, LBLdat, lblTot };
struct QualeEtichetta {
    Gruppo gruppo = Gruppo::LBLtit;
    int indice = 0;
    friend bool operator==(const QualeEtichetta&, const QualeEtichetta&) = default;
};

// What the sheet asks of its window: a surface in logical units (the wipe of
// a new match paints on it) and the controls, which the window draws as it is
// told, at their logical rectangles whatever its real size.
class FinestraPunteggio : public Superficie {
public:
    // A label was made or changed: draw it as it now is. The first call for
    // an index of LBLdat makes that label.
    virtual void etichetta_cambiata(QualeEtichetta quale, const Etichetta& etichetta) = 0;
    // LBLdat(indice) was destroyed.
    virtual void etichetta_distrutta(int indice) = 0;
    // imgset(indice), 1..8, changed.
    virtual void imgset_cambiata(int indice, const Imgset& immagine) = 0;
    // Command1 or Command2 (indice 1 or 2) changed.
    virtual void bottone_cambiato(int indice, const Bottone& bottone, std::string_view caption) = 0;

    // The window's outer size (any unit: only ratios are used) and whether it
    // is minimised.
    virtual float Width() const = 0;
    virtual float Height() const = 0;
    virtual bool minimizzata() const = 0;

    // Brings this window up and makes it the active one.
    virtual void Show() = 0;
    // Brings the table up: the next hand starts.
    virtual void Show_frmlesta() = 0;
    // Unloads the table, which closes the media and ends the program.
    virtual void Unload_frmlesta() = 0;
    // Ends the program at once.
    virtual void End() = 0;
};

class Frmscore {
public:
    Frmscore(FinestraPunteggio& finestra, ModLesta& mod);

    // ---- events of the window ----
    // Loads the window as designed and notes its size. Once, before anything
    // else; the window is not shown.
    void Form_Load();
    // The window has a new size: every control keeps its logical rectangle,
    // save the last of the window's list, which keeps its real size.
    void Form_Resize();
    // Fills the sheet for the hand just finished: heads, the hand's row, the
    // totals, the best primiera cards.
    void Form_Activate();
    // UnloadMode 0 is the window's own close control: the program ends at once.
    void Form_QueryUnload(int& Cancel, int UnloadMode);
    void Form_Unload();
    // "CONTINUE" hands over to the table; "NEW GAME" clears the sheet and the
    // match first.
    void Command1_Click();
    // "QUIT".
    void Command2_Click();

    // What gioco asks for at the end of a hand: the window comes up and is
    // filled.
    void Show();

    // ---- routines ----
    // The hand's row, the totals, the deal passed on and the caption of Command1.
    void risultato();
    // The best card of each side in each suit, over the title.
    void mostrasettanta();

    // ---- the shared state ----
    ModLesta& mod;

    // ---- controls ----
    Etichetta LBLtit;
    // Made and destroyed at run time; 0 is the hidden model of all the
    // others, 1 and 2 the heads of the sides, 3..12 the column heads, and
    // each hand owns ten more from `partite` + 13.
    std::map<int, Etichetta> LBLdat;
    std::array<Etichetta, 2> lblTot;
    std::array<Imgset, 9> imgset;  // 1..8
    Bottone Command1, Command2;    // Command1's caption is mod.command1
    static constexpr std::string_view Command2_Caption = "QUIT";

    // The window's last outer size.
    float larghezza_iniziale = 0, altezza_iniziale = 0;
    // The sheet shows a finished hand and no button has answered it yet.
    bool attende_scelta = false;

    // LBLdat's number of elements, and its last index.
    int LBLdat_Count() const { return static_cast<int>(LBLdat.size()); }
    int LBLdat_UBound() const { return LBLdat.empty() ? -1 : LBLdat.rbegin()->first; }
    Colore BackColor() const { return finestra.BackColor(); }

    FinestraPunteggio& finestra;

private:
    // Makes LBLdat(indice) as a hidden copy of the model; a label that exists
    // stays as it is.
    void Load_LBLdat(int indice);
    void Unload_LBLdat(int indice);
    // The frame of a filled sheet, shown again: both buttons, the title and
    // the heads of the sides.
    void cornice();
    // A head or a cell: made, placed, dark red, size 8, its caption, shown.
    void casella(int indice, float left, float top, std::string_view caption);
    // Tells the window how a control now stands.
    void disegna(QualeEtichetta quale);
    void disegna_imgset(int indice);
    void disegna_bottone(int indice);
    void disegna_tutto();
    Etichetta& etichetta(QualeEtichetta quale);
};

}  // namespace lesta
