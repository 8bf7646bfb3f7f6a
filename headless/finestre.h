#pragma once
// Stand-ins for the table window without a screen.
//   FinestraNulla   paints nothing; the simulator uses it, where only the
//                   game's state counts.
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
};

// What both stand-ins record of the controls and menus.
class FinestraSenzaSchermo : public Finestra {
public:
    void controllo_cambiato(Controllo c, const Rett& r, bool visibile, bool in_primo_piano) override {
        controlli[static_cast<std::size_t>(c)] = {r, visibile, in_primo_piano};
    }
    void spunta(Voce voce, int indice, bool spuntata) override { spunte[{voce, indice}] = spuntata; }
    int larghezza_pixel() const override { return larghezza; }

    bool spuntata(Voce voce, int indice) const {
        auto it = spunte.find({voce, indice});
        return it != spunte.end() && it->second;
    }

    std::array<ControlloVisto, numero_controlli> controlli{};
    std::map<std::pair<Voce, int>, bool> spunte;
    int larghezza = 1024;
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
    // Every point reads as the face of a card: nothing painted is bare table.
    Colore Point(float, float) const override { return bianco; }
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

    struct Scritta {
        float x, y;
        std::string testo;
        Colore colore;
    };
    std::vector<Scritta> scritte;  // every Print since the last clear
    int disegni = 0;               // pictures painted

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
    bool finito = false;
    std::string messaggio;
};

}  // namespace lesta
