// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A window's painted surface on Qt: one image, at the widget's device
// resolution, holds everything painted; paintEvent only copies it to the
// screen. So menus, help panels, other windows and minimising never erase
// what the game painted, and Point reads exactly what was painted.
//
// Positions are logical units, 800 across and 600 down, stretched to the
// widget's real size. When the widget is resized, the controls move at once,
// but what is painted keeps its pixels where they were until the game paints
// over it: the image only ever grows, so shrinking the window and growing it
// back brings back the same picture.
//
// A line or an outline is one of the window's own pixels wide: one device
// pixel on an ordinary screen, two at a display scale of 200%.

#include <QFont>
#include <QImage>
#include <QWidget>

#include "table/finestra.h"

namespace lesta {

class Immagini;

class SuperficieQt : public QWidget, public Superficie {
    Q_OBJECT
public:
    SuperficieQt(Immagini& immagini, QWidget* genitore = nullptr);

    void Cls() override;
    void BackColor(Colore colore) override;
    Colore BackColor() const override { return fondo_; }
    void Line(float x1, float y1, float x2, float y2, Colore colore) override;
    void Box(float x1, float y1, float x2, float y2, Colore colore) override;
    void BoxFilled(float x1, float y1, float x2, float y2, Colore colore) override;
    void PaintPicture(Figura figura, float x, float y, float w, float h) override;
    Colore Point(float x, float y) const override;
    void Print(float x, float y, std::string_view testo, Colore colore) override;
    float TextHeight() const override;

    // From logical units to the widget's pixels (not device pixels), for
    // placing child controls.
    QRect in_pixel(const Rett& r) const;
    // The logical point that stands for the device pixel under a point of the
    // widget: the middle of that pixel, so that Point reads that very pixel.
    QPointF in_unita(QPointF pixel) const;

    // Everything painted; its top left part, of the size of area(), is what
    // the window shows.
    const QImage& immagine() const { return tela(); }
    QSize area() const { return area_; }

signals:
    // The widget has a new size: the controls on it must follow.
    void ridimensionata();
    // A press of any mouse button, at a point in logical units.
    void premuto(float x, float y);

protected:
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;

private:
    // Device pixels per logical unit.
    double sx() const { return area_.width() / 800.0; }
    double sy() const { return area_.height() / 600.0; }
    QPoint dispositivo(float x, float y) const;
    // The width of a line, in device pixels.
    int tratto() const;
    // Takes the widget's present size in device pixels, the image growing to
    // it if need be; true if it changed.
    bool segui_area();
    // The picture, made when it is first painted on.
    QImage& tela() const;
    QFont carattere() const;
    void dipinto();

    Immagini& immagini_;
    mutable QImage immagine_;  // null until its first need
    QSize area_{800, 600};     // the widget's size in device pixels
    Colore fondo_ = blu;
};

QColor colore_qt(Colore c);
Colore colore_word(QRgb c);

}  // namespace lesta
