// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The game's pictures as pixels. Each picture is an SVG drawing compiled into
// the program; it is rendered at exactly the pixel size asked for and kept, so
// painting the same picture at the same size again costs nothing.

#include <QHash>
#include <QImage>
#include <QSize>

#include <array>
#include <memory>

#include "table/figure.h"

class QSvgRenderer;

namespace lesta {

class Immagini {
public:
    Immagini();
    ~Immagini();
    Immagini(const Immagini&) = delete;
    Immagini& operator=(const Immagini&) = delete;

    // The picture at exactly this size in device pixels, rendered once and
    // then served from the cache. A null image for an empty size or an
    // unknown picture.
    QImage immagine(Figura figura, QSize pixel);
    // How many renders have been made.
    int rese() const;
    // The size the picture is drawn at: 100x186 for a face, 96x153 the back,
    // 291x127 the title, 195x145 the frame, 13x13 the lamp, 32x32 the
    // traffic lights and the icon.
    QSize misura_disegno(Figura figura) const;

private:
    QHash<quint64, QImage> cache_;
    int rese_ = 0;
};

}  // namespace lesta
