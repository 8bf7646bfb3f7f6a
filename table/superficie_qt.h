#pragma once
// A window's painted surface on Qt: one image, at the widget's device
// resolution, holds everything painted; paintEvent only copies it to the
// screen. So menus, help panels, other windows and minimising never erase
// what the game painted, and Point reads exactly what was painted.
//
// Positions are logical units, 800 across and 600 down, stretched to the
// widget's real size. When the widget is resized, the picture is stretched to
// the new size until the game paints over it.

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
    // A point of the widget, in logical units.
    QPointF in_unita(QPointF pixel) const;

    const QImage& immagine() const { return immagine_; }

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
    double sx() const { return immagine_.width() / 800.0; }
    double sy() const { return immagine_.height() / 600.0; }
    QPoint dispositivo(float x, float y) const;
    QFont carattere() const;
    void dipinto();

    Immagini& immagini_;
    QImage immagine_;
    Colore fondo_ = blu;
};

QColor colore_qt(Colore c);
Colore colore_word(QRgb c);

}  // namespace lesta
