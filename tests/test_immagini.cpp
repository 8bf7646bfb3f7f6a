// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures: each renders to a drawing at the sizes the game asks for, the
// cards sit on the table colour, the faces all differ, and the cache renders
// each picture at each size once.

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QSet>
#include <QSize>
#include <cstdlib>
#include <memory>
#include <tuple>
#include <vector>

#include "table/qt/immagini.h"

namespace lesta {
namespace {

// The renderer paints with QPainter, which wants an application object.
struct AmbienteQt : testing::Environment {
    int argc = 1;
    char nome[16] = "test_immagini", *argv[2] = {nome, nullptr};
    std::unique_ptr<QGuiApplication> app;
    void SetUp() override { app = std::make_unique<QGuiApplication>(argc, argv); }
    void TearDown() override { app.reset(); }
};
[[maybe_unused]] testing::Environment* const ambiente = testing::AddGlobalTestEnvironment(new AmbienteQt);

constexpr QRgb tavolo = qRgb(0, 112, 0);

// Each picture at the sizes the game paints it: the cards at those of the
// window's scales, the others at their design size and twice it.
TEST(Immagini, EveryPictureIsADrawingAtItsSizesAndTheCardsHaveTableCorners) {
    Immagini immagini;
    const std::vector<QSize> disegni = {{96, 153}, {291, 127}, {195, 145}, {13, 13}, {32, 32}, {32, 32}, {32, 32}};
    for (int n = 1; n <= numero_figure; ++n) {
        const auto figura = static_cast<Figura>(n);
        const bool carta = n <= static_cast<int>(Figura::Dorso);
        const QSize disegno = n <= 40 ? QSize(100, 186) : disegni[static_cast<std::size_t>(n) - 41];
        EXPECT_EQ(immagini.misura_disegno(figura), disegno) << n;
        for (const QSize m : carta ? std::vector<QSize>{{59, 108}, {60, 110}, {75, 138}, {150, 276}}
                                   : std::vector<QSize>{disegno, disegno * 2}) {
            const QImage im = immagini.immagine(figura, m);
            ASSERT_EQ(im.size(), m) << n;
            QSet<QRgb> colori;  // a drawing, not a blank or a flat colour
            for (int y = 0; y < m.height() && colori.size() < 6; ++y)
                for (int x = 0; x < m.width(); ++x) colori.insert(im.pixel(x, y));
            EXPECT_GE(colori.size(), 6) << n << " at " << m.width();
            if (!carta) continue;
            const int destra = m.width() - 1, sotto = m.height() - 1;
            for (const QPoint p : {QPoint(0, 0), QPoint(destra, 0), QPoint(0, sotto), QPoint(destra, sotto)})
                EXPECT_EQ(im.pixel(p), tavolo) << n << " at " << m.width();
            EXPECT_NE(im.pixel(m.width() / 2, 0), tavolo) << n;  // the edge is the card's
        }
    }
    for (auto [n, m] : {std::pair{41, QSize(0, 10)}, {0, QSize(10, 10)}, {48, QSize(10, 10)}})
        EXPECT_TRUE(immagini.immagine(static_cast<Figura>(n), m).isNull()) << n;
}

// How many pixels of two same-sized pictures differ clearly.
int pixel_diversi(const QImage& a, const QImage& b) {
    int diversi = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            diversi +=
                std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q)) > 60;
        }
    return diversi;
}

TEST(Immagini, TheFortyFacesAndTheBackAllDiffer) {
    Immagini immagini;
    std::vector<QImage> figure;
    for (int n = 1; n <= static_cast<int>(Figura::Dorso); ++n)
        figure.push_back(immagini.immagine(static_cast<Figura>(n), {75, 138}));
    for (std::size_t a = 0; a < figure.size(); ++a)
        for (std::size_t b = a + 1; b < figure.size(); ++b)
            EXPECT_GT(pixel_diversi(figure[a], figure[b]), 40) << a + 1 << " vs " << b + 1;
}

TEST(Immagini, TheCacheRendersEachPictureAtEachSizeOnce) {
    Immagini immagini;
    const QImage prima = immagini.immagine(faccia(7), {75, 138});
    // A new size, another picture, or the same picture at a new size renders.
    for (auto [carta, misura, rese] : std::vector<std::tuple<int, QSize, int>>{{7, {75, 138}, 1},
                                                                               {7, {59, 108}, 2},
                                                                               {8, {59, 108}, 3},
                                                                               {7, {108, 59}, 4},
                                                                               {7, {75, 108}, 5},
                                                                               {8, {59, 108}, 5},
                                                                               {7, {59, 108}, 5}}) {
        immagini.immagine(faccia(carta), misura);
        EXPECT_EQ(immagini.rese(), rese) << carta << " " << misura.width() << "x" << misura.height();
    }
    EXPECT_EQ(immagini.immagine(faccia(7), {75, 138}), prima);
    Immagini fresche;
    EXPECT_EQ(fresche.immagine(faccia(7), {75, 138}), prima);  // the cached picture is a fresh render
}

}  // namespace
}  // namespace lesta
