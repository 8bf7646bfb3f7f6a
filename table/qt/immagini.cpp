// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/qt/immagini.h"

#include <QColor>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

// The drawings live in a static library, so their resources must be
// registered by hand; the macro has to be used outside any namespace.
static void registra_disegni() { Q_INIT_RESOURCE(immagini); }

namespace lesta {

namespace {

bool valida(Figura figura) {
    const int numero = static_cast<int>(figura);
    return numero >= 1 && numero <= numero_figure;
}

bool faccia_o_dorso(Figura figura) { return static_cast<int>(figura) <= static_cast<int>(Figura::Dorso); }

QString percorso(Figura figura) {
    const int numero = static_cast<int>(figura);
    if (numero <= 40) {
        return QStringLiteral(":/lesta/carta%1.svg").arg(numero, 2, 10, QLatin1Char('0'));
    }
    switch (figura) {
        case Figura::Dorso: return QStringLiteral(":/lesta/dorso.svg");
        case Figura::Titolo: return QStringLiteral(":/lesta/titolo.svg");
        case Figura::Quadro: return QStringLiteral(":/lesta/quadro.svg");
        case Figura::Led: return QStringLiteral(":/lesta/led.svg");
        case Figura::Verde: return QStringLiteral(":/lesta/verde.svg");
        case Figura::Rosso: return QStringLiteral(":/lesta/rosso.svg");
        case Figura::Icona: return QStringLiteral(":/lesta/icona.svg");
    }
    return {};
}

}  // namespace

Immagini::Immagini() { registra_disegni(); }

Immagini::~Immagini() = default;

QImage Immagini::immagine(Figura figura, QSize pixel) {
    if (!valida(figura) || pixel.isEmpty()) return {};
    const quint64 chiave = (quint64{static_cast<std::uint8_t>(figura)} << 48) |
                           (quint64(quint32(pixel.width()) & 0xffffff) << 24) |
                           quint64(quint32(pixel.height()) & 0xffffff);
    if (const auto trovata = cache_.constFind(chiave); trovata != cache_.constEnd()) {
        return *trovata;
    }
    // The drawing is read for the render and let go: a parsed drawing holds
    // far more memory than its picture, and a new size (the only reason to
    // read it again) is rare.
    QSvgRenderer svg(percorso(figura));
    if (!svg.isValid()) return {};

    QImage immagine(pixel, QImage::Format_ARGB32_Premultiplied);
    // A card is opaque: whatever the edge pixels only partly cover stays table green.
    immagine.fill(faccia_o_dorso(figura) ? QColor(0, 112, 0) : QColor(Qt::transparent));
    {
        QPainter pittore(&immagine);
        pittore.setRenderHint(QPainter::Antialiasing);
        pittore.setRenderHint(QPainter::SmoothPixmapTransform);
        svg.render(&pittore, QRectF(0, 0, pixel.width(), pixel.height()));
    }
    ++rese_;
    cache_.insert(chiave, immagine);
    return immagine;
}

int Immagini::rese() const { return rese_; }

QSize Immagini::misura_disegno(Figura figura) const {
    if (!valida(figura)) return {};
    if (static_cast<int>(figura) <= 40) return {100, 186};
    switch (figura) {
        case Figura::Dorso: return {96, 153};
        case Figura::Titolo: return {291, 127};
        case Figura::Quadro: return {195, 145};
        case Figura::Led: return {13, 13};
        case Figura::Verde:
        case Figura::Rosso:
        case Figura::Icona: return {32, 32};
    }
    return {};
}

}  // namespace lesta
