// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The score sheet without a screen: it keeps what the sheet told it of each
// control, the ground colour and the lines of the wipe, and counts the
// hand-overs to the table. Tests read it back; the simulator hangs the next
// hand on al_tavolo.

#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "scoring/frmscore.h"

namespace lesta {

class PunteggioSenzaSchermo final : public FinestraPunteggio {
public:
    // ---- the surface ----
    void Cls() override { ++pulizie; }
    void BackColor(Colore c) override {
        fondo = c;
        ++pulizie;
    }
    Colore BackColor() const override { return fondo; }
    void Line(float x1, float y1, float x2, float y2, Colore c) override;
    void Box(float, float, float, float, Colore) override {}
    void BoxFilled(float, float, float, float, Colore) override {}
    void PaintPicture(Figura, float, float, float, float) override {}
    Colore Point(float, float) const override { return fondo; }
    void Print(float, float, std::string_view, Colore) override {}
    float TextHeight() const override { return 13; }

    // ---- the controls ----
    void etichetta_cambiata(QualeEtichetta quale, const Etichetta& e) override;
    void etichetta_distrutta(int indice) override;
    void imgset_cambiata(int indice, const Imgset& im) override;
    void bottone_cambiato(int indice, const Bottone& b, std::string_view caption) override;

    float Width() const override { return larghezza; }
    float Height() const override { return altezza; }
    bool minimizzata() const override { return minimizzata_; }

    void Show() override { ++mostrata; }
    void Show_frmlesta() override;
    void Unload_frmlesta() override { ++tavolo_scaricato; }
    void End() override { finito = true; }

    // What the sheet last told of each control.
    Etichetta LBLtit;
    std::map<int, Etichetta> LBLdat;
    std::array<Etichetta, 2> lblTot{};
    std::array<Imgset, 9> imgset{};         // 1..8
    std::array<Bottone, 3> bottoni{};       // 1..2
    std::array<std::string, 3> captions{};  // of Command1 and Command2
    int distrutte = 0;                      // labels destroyed

    // The surface: its ground, how often it was cleared, and the lines drawn.
    struct Linea {
        float x1, y1, x2, y2;
        Colore colore;
    };
    Colore fondo = 0;
    int pulizie = 0;
    std::vector<Linea> linee;

    // The window's size and state, as the test sets them.
    float larghezza = 15360, altezza = 11985;
    bool minimizzata_ = false;

    // The hand-overs.
    int mostrata = 0;                 // Show of this window
    int tavolo_mostrato = 0;          // Show of the table
    int tavolo_scaricato = 0;         // unload of the table
    bool finito = false;              // End
    std::function<void()> al_tavolo;  // run on each Show of the table
};

}  // namespace lesta
