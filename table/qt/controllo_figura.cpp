// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/qt/controllo_figura.h"

#include <QPainter>
#include <cmath>

#include "table/qt/immagini.h"

namespace lesta {

ControlloFigura::ControlloFigura(Immagini& immagini, std::optional<Figura> figura, QWidget* genitore,
                                 std::optional<QSize> misura_propria)
    : QWidget(genitore), immagini_(immagini), figura_(figura), misura_propria_(misura_propria) {}

void ControlloFigura::figura(std::optional<Figura> figura) {
    if (figura == figura_) return;
    figura_ = figura;
    update();
}

void ControlloFigura::paintEvent(QPaintEvent*) {
    if (!figura_) return;
    const qreal dpr = devicePixelRatioF();
    const QSize misura = misura_propria_.value_or(size());
    const QSize pixel(static_cast<int>(std::lround(misura.width() * dpr)),
                      static_cast<int>(std::lround(misura.height() * dpr)));
    if (pixel.isEmpty()) return;
    QImage immagine = immagini_.immagine(*figura_, pixel);
    immagine.setDevicePixelRatio(dpr);
    QPainter(this).drawImage(QPoint(0, 0), immagine);
}

}  // namespace lesta
