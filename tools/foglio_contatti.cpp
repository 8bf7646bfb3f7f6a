// SPDX-License-Identifier: GPL-3.0-or-later
// Renders every picture of the game onto one PNG sheet, to look at them all
// at once: the 40 faces at the size the game paints them and at twice that
// size, then the back, the title, the song frame, the lamp, the traffic
// lights and the icon, each at its design size and at twice it.
//
//     lesta-foglio-contatti sheet.png

#include <QColor>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSize>

#include <cstdio>
#include <utility>
#include <vector>

#include "table/qt/immagini.h"

namespace {

constexpr int margine = 8;

// Paints the 40 faces in four rows of ten, one row a suit, from the top edge y;
// returns the y below them.
int facce(QPainter& pittore, lesta::Immagini& immagini, QSize misura, int y) {
    for (int seme = 0; seme < 4; ++seme) {
        for (int valore = 0; valore < 10; ++valore) {
            const int carta = seme * 10 + valore + 1;
            const int x = margine + valore * (misura.width() + margine);
            pittore.drawImage(x, y, immagini.immagine(lesta::faccia(carta), misura));
        }
        y += misura.height() + margine;
    }
    return y + margine;
}

}  // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s sheet.png\n", argv[0]);
        return 2;
    }
    lesta::Immagini immagini;

    const QSize gioco(75, 138);
    const QSize doppia(150, 276);
    std::vector<std::pair<lesta::Figura, QSize>> altre;
    for (int figura = static_cast<int>(lesta::Figura::Dorso); figura <= lesta::numero_figure; ++figura) {
        const auto id = static_cast<lesta::Figura>(figura);
        const QSize disegno = id == lesta::Figura::Dorso ? gioco : immagini.misura_disegno(id);
        altre.emplace_back(id, disegno);
        altre.emplace_back(id, disegno * 2);
    }
    int larga_altre = margine;
    int alta_altre = 0;
    for (const auto& [id, misura] : altre) {
        larga_altre += misura.width() + margine;
        alta_altre = std::max(alta_altre, misura.height());
    }

    const int larghezza = std::max(margine + 10 * (doppia.width() + margine), larga_altre);
    const int altezza = margine + 4 * (gioco.height() + margine) + margine + 4 * (doppia.height() + margine) + margine +
                        alta_altre + margine;
    QImage foglio(larghezza, altezza, QImage::Format_RGB32);
    foglio.fill(QColor(0, 112, 0));
    {
        QPainter pittore(&foglio);
        int y = facce(pittore, immagini, gioco, margine);
        y = facce(pittore, immagini, doppia, y);
        int x = margine;
        for (const auto& [id, misura] : altre) {
            pittore.drawImage(x, y, immagini.immagine(id, misura));
            x += misura.width() + margine;
        }
    }
    if (!foglio.save(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
