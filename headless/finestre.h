// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Stand-ins for the table window without a screen.
//   FinestraNulla   paints nothing, and reads the table colour only at the
//                   middle of the table; the simulator and the tests that
//                   play many hands use it, where only the game's state counts.
//   FinestraRaster  an 800 x 600 raster, one pixel a logical unit, that keeps
//                   what is painted, and which picture, so tests can read the
//                   table back with Point as the game does.

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "match/programma.h"
#include "table/finestra.h"

namespace lesta {

struct ControlloVisto {
    Rett r;
    bool visibile = false;
    bool in_primo_piano = false;
    int alzato = 0;  // when it was last brought to the front: the larger stands in front
};

// What both stand-ins record of the controls and menus.
class FinestraSenzaSchermo : public Finestra {
public:
    void controllo_cambiato(Controllo c, const Rett& r, bool visibile, bool in_primo_piano) override {
        auto& visto = controlli[static_cast<std::size_t>(c)];
        visto = {r, visibile, in_primo_piano, in_primo_piano ? ++alzate_ : visto.alzato};
    }
    void spunta(Voce voce, int indice, bool spuntata) override { spunte[{voce, indice}] = spuntata; }
    void voce_canzone(int indice, std::string_view titolo) override {
        if (static_cast<int>(voci_canzoni.size()) <= indice) voci_canzoni.resize(static_cast<std::size_t>(indice) + 1);
        voci_canzoni[static_cast<std::size_t>(indice)] = titolo;
    }
    void caption(Controllo c, std::string_view testo) override { captions[static_cast<std::size_t>(c)] = testo; }
    int larghezza_pixel() const override { return larghezza; }

    bool spuntata(Voce voce, int indice) const {
        auto it = spunte.find({voce, indice});
        return it != spunte.end() && it->second;
    }

    std::array<ControlloVisto, numero_controlli> controlli{};
    std::map<std::pair<Voce, int>, bool> spunte;
    std::vector<std::string> voci_canzoni;  // the song entries of the music menu, 1..n
    std::array<std::string, numero_controlli> captions{};
    int larghezza = 1024;

private:
    int alzate_ = 0;
};

class FinestraNulla final : public FinestraSenzaSchermo {
public:
    void Cls() override {}
    void BackColor(Colore c) override { fondo_ = c; }
    Colore BackColor() const override { return fondo_; }
    void Line(float, float, float, float, Colore) override {}
    void Box(float, float, float, float, Colore) override {}
    void BoxFilled(float, float, float, float, Colore) override {}
    void PaintPicture(Figura, float, float, float, float) override {}
    // The table colour at the middle of the table (400, 300), the one point
    // of the table that no card ever covers, which the deal reads as the
    // table colour; white everywhere else, so every other click passes the
    // colour test.
    Colore Point(float x, float y) const override { return x == 400 && y == 300 ? verde_tavolo : bianco; }
    bool conserva() const override { return false; }
    void Print(float, float, std::string_view, Colore) override {}
    float TextHeight() const override { return 13; }

private:
    Colore fondo_ = blu;
};

class FinestraRaster final : public FinestraSenzaSchermo {
public:
    static constexpr int L = 800, A = 600;
    // A picture's colour on the raster: faces white with their four corner
    // pixels in the table colour, like the real faces; the others flat.
    static Colore colore_di(Figura f);
    static constexpr Colore fuori = 0xFFFFFFFFu;  // Point outside the surface

    FinestraRaster();
    void Cls() override;
    void BackColor(Colore c) override;
    Colore BackColor() const override { return fondo_; }
    void Line(float x1, float y1, float x2, float y2, Colore c) override;
    void Box(float x1, float y1, float x2, float y2, Colore c) override;
    void BoxFilled(float x1, float y1, float x2, float y2, Colore c) override;
    void PaintPicture(Figura f, float x, float y, float w, float h) override;
    Colore Point(float x, float y) const override;
    void Print(float x, float y, std::string_view testo, Colore c) override;
    float TextHeight() const override { return 13; }

    // The picture last painted over the point, or 0 if the point has been
    // painted over since by a line or a box.
    int figura_a(float x, float y) const;
    // The whole raster, row by row from the top: each pixel's colour, and
    // the picture it was last painted with as figura_a gives it.
    const std::vector<Colore>& pixel() const { return pixel_; }
    const std::vector<int>& figure() const { return figura_; }

    struct Scritta {
        float x, y;
        std::string testo;
        Colore colore;
    };
    std::vector<Scritta> scritte;  // every Print since the last clear

private:
    void punto(int x, int y, Colore c, int figura);
    std::vector<Colore> pixel_;
    std::vector<int> figura_;
    Colore fondo_ = blu;
};

class ProgrammaFinto final : public Programma {
public:
    void End() override { finito = true; }
    void messaggio_e_fine(std::string_view m) override {
        messaggio = m;
        finito = true;
    }
    void Show_frmscore() override {}
    bool finito = false;
    std::string messaggio;
};

}  // namespace lesta
