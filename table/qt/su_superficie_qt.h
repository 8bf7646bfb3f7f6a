// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A window of the game whose painted surface is a SuperficieQt: every
// painting operation that the game asks of the window goes to that surface.

#include "table/qt/superficie_qt.h"

namespace lesta {

template <class Interfaccia>
class SuSuperficieQt : public Interfaccia {
public:
    void Cls() override { superficie().Cls(); }
    void BackColor(Colore colore) override { superficie().BackColor(colore); }
    Colore BackColor() const override { return superficie().BackColor(); }
    void Line(float x1, float y1, float x2, float y2, Colore c) override { superficie().Line(x1, y1, x2, y2, c); }
    void Box(float x1, float y1, float x2, float y2, Colore c) override { superficie().Box(x1, y1, x2, y2, c); }
    void BoxFilled(float x1, float y1, float x2, float y2, Colore c) override {
        superficie().BoxFilled(x1, y1, x2, y2, c);
    }
    void PaintPicture(Figura f, float x, float y, float w, float h) override {
        superficie().PaintPicture(f, x, y, w, h);
    }
    Colore Point(float x, float y) const override { return superficie().Point(x, y); }
    void Print(float x, float y, std::string_view testo, Colore c) override { superficie().Print(x, y, testo, c); }
    float TextHeight() const override { return superficie().TextHeight(); }

    virtual SuperficieQt& superficie() const = 0;
};

}  // namespace lesta
