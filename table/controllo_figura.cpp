#include "table/controllo_figura.h"

#include <QPainter>
#include <cmath>

#include "table/immagini.h"

namespace lesta {

ControlloFigura::ControlloFigura(Immagini& immagini, std::optional<Figura> figura, QWidget* genitore)
    : QWidget(genitore), immagini_(immagini), figura_(figura) {}

void ControlloFigura::figura(std::optional<Figura> figura) {
    if (figura == figura_) return;
    figura_ = figura;
    update();
}

void ControlloFigura::paintEvent(QPaintEvent*) {
    if (!figura_) return;
    const qreal dpr = devicePixelRatioF();
    const QSize pixel(static_cast<int>(std::lround(width() * dpr)), static_cast<int>(std::lround(height() * dpr)));
    if (pixel.isEmpty()) return;
    QImage immagine = immagini_.immagine(*figura_, pixel);
    immagine.setDevicePixelRatio(dpr);
    QPainter(this).drawImage(QPoint(0, 0), immagine);
}

}  // namespace lesta
