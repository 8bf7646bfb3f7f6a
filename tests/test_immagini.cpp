// The pictures: every one renders to something that is not blank, the cards
// sit on the table colour, the faces are all different, the lamps are lit
// where they should be, and the cache renders each size once.

#include <gtest/gtest.h>

#include <QColor>
#include <QGuiApplication>
#include <QImage>
#include <QSize>

#include <vector>

#include "table/immagini.h"

namespace {

using lesta::Figura;
using lesta::Immagini;

// The renderer paints with QPainter, which wants an application object.
class AmbienteQt : public testing::Environment {
public:
    void SetUp() override {
        if (QGuiApplication::instance() == nullptr) app_ = new QGuiApplication(argc_, argv_);
    }
    void TearDown() override {
        delete app_;
        app_ = nullptr;
    }

private:
    int argc_ = 1;
    char nome_[16] = "test_immagini";
    char* argv_[2] = {nome_, nullptr};
    QGuiApplication* app_ = nullptr;
};

[[maybe_unused]] testing::Environment* const ambiente =
    testing::AddGlobalTestEnvironment(new AmbienteQt);

constexpr QRgb tavolo = qRgb(0, 112, 0);

const std::vector<QSize> misure_carta = {{59, 108}, {60, 110}, {75, 138}, {150, 276}};

std::vector<Figura> tutte() {
    std::vector<Figura> figure;
    for (int numero = 1; numero <= lesta::numero_figure; ++numero) {
        figure.push_back(static_cast<Figura>(numero));
    }
    return figure;
}

std::vector<QSize> misure_di(const Immagini& immagini, Figura figura) {
    if (static_cast<int>(figura) <= static_cast<int>(Figura::Dorso)) return misure_carta;
    const QSize disegno = immagini.misura_disegno(figura);
    return {disegno, disegno * 2};
}

// How many distinct colours the picture has, counted up to a limit.
int colori(const QImage& immagine, int limite = 50) {
    std::vector<QRgb> visti;
    for (int y = 0; y < immagine.height(); ++y) {
        for (int x = 0; x < immagine.width(); ++x) {
            const QRgb pixel = immagine.pixel(x, y);
            if (std::find(visti.begin(), visti.end(), pixel) == visti.end()) {
                visti.push_back(pixel);
                if (static_cast<int>(visti.size()) >= limite) return limite;
            }
        }
    }
    return static_cast<int>(visti.size());
}

// How many pixels of two same-sized pictures differ clearly.
int pixel_diversi(const QImage& a, const QImage& b) {
    int diversi = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            const int scarto = std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) +
                               std::abs(qBlue(p) - qBlue(q));
            if (scarto > 60) ++diversi;
        }
    }
    return diversi;
}

bool opaca(const QImage& immagine) {
    for (int y = 0; y < immagine.height(); ++y) {
        for (int x = 0; x < immagine.width(); ++x) {
            if (qAlpha(immagine.pixel(x, y)) != 255) return false;
        }
    }
    return true;
}

// Brightness-weighted colour of the pixels within r of (cx, cy), as fractions of the picture.
QColor media(const QImage& immagine, double cx, double cy, double r) {
    long rosso = 0, verde = 0, blu = 0, quanti = 0;
    const double x0 = cx * immagine.width(), y0 = cy * immagine.height();
    const double raggio = r * immagine.width();
    for (int y = 0; y < immagine.height(); ++y) {
        for (int x = 0; x < immagine.width(); ++x) {
            const double dx = x + 0.5 - x0, dy = y + 0.5 - y0;
            if (dx * dx + dy * dy > raggio * raggio) continue;
            const QRgb p = immagine.pixel(x, y);
            rosso += qRed(p);
            verde += qGreen(p);
            blu += qBlue(p);
            ++quanti;
        }
    }
    if (quanti == 0) return {};
    return QColor(int(rosso / quanti), int(verde / quanti), int(blu / quanti));
}

TEST(Immagini, MisureDiDisegno) {
    const Immagini immagini;
    for (int carta = 1; carta <= 40; ++carta) {
        EXPECT_EQ(immagini.misura_disegno(lesta::faccia(carta)), QSize(100, 186)) << carta;
    }
    EXPECT_EQ(immagini.misura_disegno(Figura::Dorso), QSize(96, 153));
    EXPECT_EQ(immagini.misura_disegno(Figura::Titolo), QSize(291, 127));
    EXPECT_EQ(immagini.misura_disegno(Figura::Quadro), QSize(195, 145));
    EXPECT_EQ(immagini.misura_disegno(Figura::Led), QSize(13, 13));
    EXPECT_EQ(immagini.misura_disegno(Figura::Verde), QSize(32, 32));
    EXPECT_EQ(immagini.misura_disegno(Figura::Rosso), QSize(32, 32));
    EXPECT_EQ(immagini.misura_disegno(Figura::Icona), QSize(32, 32));
    EXPECT_FALSE(immagini.misura_disegno(static_cast<Figura>(0)).isValid());
}

TEST(Immagini, OgniFiguraSiDisegnaAllaMisuraChiesta) {
    Immagini immagini;
    for (const Figura figura : tutte()) {
        for (const QSize misura : misure_di(immagini, figura)) {
            const QImage immagine = immagini.immagine(figura, misura);
            ASSERT_FALSE(immagine.isNull()) << int(figura) << " " << misura.width();
            EXPECT_EQ(immagine.size(), misura) << int(figura);
            // a drawing, not a blank or a single flat colour
            EXPECT_GE(colori(immagine), 6)
                << int(figura) << " at " << misura.width() << "x" << misura.height();
        }
    }
}

TEST(Immagini, RichiesteSbagliateDannoUnaImmagineNulla) {
    Immagini immagini;
    EXPECT_TRUE(immagini.immagine(Figura::Dorso, QSize(0, 10)).isNull());
    EXPECT_TRUE(immagini.immagine(Figura::Dorso, QSize(10, -1)).isNull());
    EXPECT_TRUE(immagini.immagine(static_cast<Figura>(0), QSize(10, 10)).isNull());
    EXPECT_TRUE(immagini.immagine(static_cast<Figura>(48), QSize(10, 10)).isNull());
    EXPECT_EQ(immagini.rese(), 0);
}

TEST(Immagini, LeCarteSonoOpacheConGliAngoliDelTavolo) {
    Immagini immagini;
    for (int numero = 1; numero <= static_cast<int>(Figura::Dorso); ++numero) {
        const auto figura = static_cast<Figura>(numero);
        for (const QSize misura : misure_carta) {
            const QImage immagine = immagini.immagine(figura, misura);
            const int destra = misura.width() - 1, sotto = misura.height() - 1;
            EXPECT_EQ(immagine.pixel(0, 0), tavolo) << numero << " " << misura.width();
            EXPECT_EQ(immagine.pixel(destra, 0), tavolo) << numero << " " << misura.width();
            EXPECT_EQ(immagine.pixel(0, sotto), tavolo) << numero << " " << misura.width();
            EXPECT_EQ(immagine.pixel(destra, sotto), tavolo) << numero << " " << misura.width();
            EXPECT_TRUE(opaca(immagine)) << numero;
            // the middle of each edge is the card, not the table
            EXPECT_NE(immagine.pixel(misura.width() / 2, 0), tavolo) << numero;
            EXPECT_NE(immagine.pixel(0, misura.height() / 2), tavolo) << numero;
        }
    }
}

TEST(Immagini, LeFacceSonoBiancheEDiverseTraLoro) {
    Immagini immagini;
    const QSize misura(75, 138);
    std::vector<QImage> facce;
    for (int carta = 1; carta <= 40; ++carta) {
        facce.push_back(immagini.immagine(lesta::faccia(carta), misura));
        // mostly a white card
        int bianchi = 0;
        for (int y = 0; y < misura.height(); ++y) {
            for (int x = 0; x < misura.width(); ++x) {
                if (facce.back().pixel(x, y) == qRgb(255, 255, 255)) ++bianchi;
            }
        }
        EXPECT_GT(bianchi, misura.width() * misura.height() / 3) << carta;
    }
    const QImage dorso = immagini.immagine(Figura::Dorso, misura);
    for (int a = 0; a < 40; ++a) {
        EXPECT_GT(pixel_diversi(facce[a], dorso), 200) << a + 1;
        for (int b = a + 1; b < 40; ++b) {
            // at least a clear patch of difference, more than antialiasing noise
            EXPECT_GT(pixel_diversi(facce[a], facce[b]), 40) << a + 1 << " vs " << b + 1;
        }
    }
}

TEST(Immagini, IlSettebelloSiDistingueDagliAltriSette) {
    Immagini immagini;
    const QSize misura(75, 138);
    const QImage settebello = immagini.immagine(lesta::faccia(7), misura);
    // the other sevens have the same layout; the settebello differs from each
    // far more than they differ in the index alone
    for (const int altro : {17, 27, 37, 6}) {
        EXPECT_GT(pixel_diversi(settebello, immagini.immagine(lesta::faccia(altro), misura)), 800)
            << altro;
    }
}

TEST(Immagini, SemaforiEdAltre) {
    Immagini immagini;
    for (const int scala : {1, 2}) {
        const QImage verde = immagini.immagine(Figura::Verde, QSize(32, 32) * scala);
        const QImage rosso = immagini.immagine(Figura::Rosso, QSize(32, 32) * scala);
        // lamps at the top (red), in the middle (amber) and at the bottom (green)
        const QColor verde_sotto = media(verde, 0.5, 24.5 / 32, 0.06);
        const QColor verde_sopra = media(verde, 0.5, 7.5 / 32, 0.06);
        const QColor rosso_sopra = media(rosso, 0.5, 7.5 / 32, 0.06);
        const QColor rosso_sotto = media(rosso, 0.5, 24.5 / 32, 0.06);
        EXPECT_GT(verde_sotto.green(), 150);
        EXPECT_GT(verde_sotto.green(), 2 * verde_sotto.red());
        EXPECT_LT(verde_sopra.red(), 130);
        EXPECT_GT(rosso_sopra.red(), 180);
        EXPECT_GT(rosso_sopra.red(), 2 * rosso_sopra.green());
        EXPECT_LT(rosso_sotto.green(), 100);
        EXPECT_EQ(verde.pixel(0, 0), tavolo);
        EXPECT_EQ(rosso.pixel(0, 0), tavolo);

        const QImage titolo = immagini.immagine(Figura::Titolo, QSize(291, 127) * scala);
        EXPECT_EQ(titolo.pixel(0, 0), qRgb(0, 0, 255));
        EXPECT_EQ(titolo.pixel(titolo.width() - 1, titolo.height() - 1), qRgb(0, 0, 255));
        int bianchi = 0, neri = 0;
        for (int y = 0; y < titolo.height(); ++y) {
            for (int x = 0; x < titolo.width(); ++x) {
                bianchi += titolo.pixel(x, y) == qRgb(255, 255, 255);
                neri += titolo.pixel(x, y) == qRgb(0, 0, 0);
            }
        }
        EXPECT_GT(bianchi, titolo.width() * titolo.height() / 20);
        EXPECT_GT(neri, titolo.width() * titolo.height() / 100);

        const QImage quadro = immagini.immagine(Figura::Quadro, QSize(195, 145) * scala);
        EXPECT_EQ(quadro.pixel(quadro.width() / 2, quadro.height() / 2), qRgb(255, 255, 255));
        EXPECT_LT(qGray(quadro.pixel(3 * scala, quadro.height() / 2)), 100);

        const QImage led = immagini.immagine(Figura::Led, QSize(13, 13) * scala);
        const QColor luce = media(led, 0.5, 0.5, 0.3);
        EXPECT_GT(luce.green(), 2 * luce.red());
        EXPECT_GT(luce.green(), 2 * luce.blue());
    }
}

TEST(Immagini, LaCacheDisegnaUnaVoltaPerMisura) {
    Immagini immagini;
    EXPECT_EQ(immagini.rese(), 0);
    const QImage prima = immagini.immagine(lesta::faccia(7), QSize(75, 138));
    EXPECT_EQ(immagini.rese(), 1);
    const QImage seconda = immagini.immagine(lesta::faccia(7), QSize(75, 138));
    EXPECT_EQ(immagini.rese(), 1);
    EXPECT_EQ(prima, seconda);
    // a new size, another picture, or the same picture at the new size
    immagini.immagine(lesta::faccia(7), QSize(59, 108));
    EXPECT_EQ(immagini.rese(), 2);
    immagini.immagine(lesta::faccia(8), QSize(59, 108));
    EXPECT_EQ(immagini.rese(), 3);
    immagini.immagine(lesta::faccia(7), QSize(108, 59));
    EXPECT_EQ(immagini.rese(), 4);
    immagini.immagine(lesta::faccia(8), QSize(59, 108));
    immagini.immagine(lesta::faccia(7), QSize(59, 108));
    EXPECT_EQ(immagini.rese(), 4);
    // a cached picture is the same as a fresh render
    Immagini fresche;
    EXPECT_EQ(fresche.immagine(lesta::faccia(7), QSize(75, 138)), prima);
}

}  // namespace
