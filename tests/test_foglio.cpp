// The score sheet: its labels, their indices, places, texts and colours after
// one and more hands and after a new match; its resize; and the window on Qt
// (offscreen), where every control must sit at its logical rectangle at any
// size of the window.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "headless/punteggio.h"
#include "scoring/finestra_punteggio.h"
#include "scoring/frmscore.h"
#include "table/immagini.h"
#include "table/superficie_qt.h"

namespace lesta {
namespace {

struct Mano {
    int numcarte = 20, numdenari = 5, vince_settanta = 0;
    bool settebello = true;
    int leste1 = 0, leste2 = 0;
};

void metti_mano(ModLesta& mod, const Mano& m) {
    mod.numcarte = static_cast<std::int16_t>(m.numcarte);
    mod.numdenari = static_cast<std::int16_t>(m.numdenari);
    mod.vince_settanta = static_cast<std::uint8_t>(m.vince_settanta);
    mod.settebello = m.settebello;
    mod.leste = {0, static_cast<std::int16_t>(m.leste1), static_cast<std::int16_t>(m.leste2)};
    // The player's 2, 7, 11 and 30 against the rest.
    mod.migliori[1] = {0, 1, 3, 10, 11};
    mod.migliori[2] = {0, 2, 1, 1, 1};
}

struct Foglio {
    Foglio() { frm.Form_Load(); }
    void fine_mano(const Mano& m) {
        metti_mano(mod, m);
        frm.Show();
    }
    ModLesta mod;
    PunteggioSenzaSchermo finestra;
    Frmscore frm{finestra, mod};
};

const std::array<float, 5> sinistre_giocatore = {20, 90, 160, 230, 300};
const std::array<float, 5> sinistre_computer = {432, 502, 572, 642, 712};
const std::array<std::string, 5> teste = {"Carte", "Denari", "Primiera", "Settebello", "Leste"};

// A head or a cell: its place, dark red, size 8, on the model's light green.
void casella(const Etichetta& e, float left, float top, const std::string& caption, const std::string& dove) {
    EXPECT_FLOAT_EQ(e.r.left, left) << dove;
    EXPECT_FLOAT_EQ(e.r.top, top) << dove;
    EXPECT_FLOAT_EQ(e.r.width, 67.8f) << dove;
    EXPECT_FLOAT_EQ(e.r.height, 15) << dove;
    EXPECT_EQ(e.Caption, caption) << dove;
    EXPECT_EQ(e.ForeColor, rosso_scuro) << dove;
    EXPECT_EQ(e.BackColor, verde_chiaro) << dove;
    EXPECT_EQ(e.FontSize, 8) << dove;
    EXPECT_FALSE(e.FontBold) << dove;
    EXPECT_TRUE(e.Visible) << dove;
}

// The sheet's whole state, as the window was told it, against the numbers
// of the layout, after `mani` hands of a match.
void controlla_foglio(const Foglio& f, int mani, const std::vector<std::array<std::string, 10>>& righe) {
    const auto& d = f.finestra.LBLdat;
    ASSERT_EQ(f.frm.LBLdat_Count(), 13 + 10 * mani);
    ASSERT_EQ(static_cast<int>(d.size()), 13 + 10 * mani);
    int atteso = 0;
    for (const auto& [indice, e] : d) ASSERT_EQ(indice, atteso++);  // no gaps

    // The title, the model and the heads of the sides.
    EXPECT_EQ(f.finestra.LBLtit.Caption, "SCORE");
    EXPECT_TRUE(f.finestra.LBLtit.Visible);
    EXPECT_FLOAT_EQ(f.finestra.LBLtit.r.left, 20);
    EXPECT_FLOAT_EQ(f.finestra.LBLtit.r.top, 5);
    EXPECT_FLOAT_EQ(f.finestra.LBLtit.r.width, 760);
    EXPECT_FLOAT_EQ(f.finestra.LBLtit.r.height, 40);
    EXPECT_EQ(f.finestra.LBLtit.BackColor, giallo_chiaro);
    EXPECT_EQ(f.finestra.LBLtit.ForeColor, rosso_scuro);
    EXPECT_FLOAT_EQ(f.finestra.LBLtit.FontSize, 19.5f);
    EXPECT_TRUE(f.finestra.LBLtit.FontBold);
    EXPECT_FALSE(d.at(0).Visible);
    for (int lato = 1; lato <= 2; ++lato) {
        const Etichetta& e = d.at(lato);
        EXPECT_EQ(e.Caption, lato == 1 ? "Player" : "Computer");
        EXPECT_FLOAT_EQ(e.r.left, lato == 1 ? 20 : 432);
        EXPECT_FLOAT_EQ(e.r.top, 45);
        EXPECT_FLOAT_EQ(e.r.width, 348);
        EXPECT_FLOAT_EQ(e.r.height, 30);
        EXPECT_EQ(e.ForeColor, rosso_scuro);
        EXPECT_EQ(e.BackColor, azzurro);
        EXPECT_EQ(e.FontSize, 12);
        EXPECT_TRUE(e.Visible);
    }

    // The column heads at Top 75.
    for (int k = 0; k < 5; ++k) {
        const auto sk = static_cast<std::size_t>(k);
        casella(d.at(3 + k), sinistre_giocatore[sk], 75, teste[sk], "head " + std::to_string(3 + k));
        casella(d.at(8 + k), sinistre_computer[sk], 75, teste[sk], "head " + std::to_string(8 + k));
    }

    // One row a hand, 20 units apart from Top 91.
    for (int m = 0; m < mani; ++m) {
        const float alto = 91.0f + 20.0f * static_cast<float>(m);
        for (int k = 0; k < 5; ++k) {
            const auto sk = static_cast<std::size_t>(k);
            const int g = 13 + 10 * m + k, c = 18 + 10 * m + k;
            casella(d.at(g), sinistre_giocatore[sk], alto, righe[static_cast<std::size_t>(m)][sk],
                    "cell " + std::to_string(g));
            casella(d.at(c), sinistre_computer[sk], alto, righe[static_cast<std::size_t>(m)][sk + 5],
                    "cell " + std::to_string(c));
        }
    }

    // The totals under the newest row.
    for (int i = 0; i < 2; ++i) {
        const Etichetta& t = f.finestra.lblTot[static_cast<std::size_t>(i)];
        EXPECT_FLOAT_EQ(t.r.left, i == 0 ? 20 : 432);
        EXPECT_FLOAT_EQ(t.r.top, 107.0f + 20.0f * static_cast<float>(mani - 1));
        EXPECT_FLOAT_EQ(t.r.width, 348);
        EXPECT_NEAR(t.r.height, 18.62f, 0.01f);
        EXPECT_TRUE(t.Visible);
    }

    // The buttons.
    EXPECT_EQ(f.finestra.bottoni[1].r.left, 125);
    EXPECT_EQ(f.finestra.bottoni[2].r.left, 525);
    for (int i = 1; i <= 2; ++i) {
        const Bottone& b = f.finestra.bottoni[static_cast<std::size_t>(i)];
        EXPECT_EQ(b.r.top, 520);
        EXPECT_EQ(b.r.width, 150);
        EXPECT_EQ(b.r.height, 30);
        EXPECT_TRUE(b.Visible);
    }
    EXPECT_EQ(f.finestra.captions[1], f.mod.command1);
    EXPECT_EQ(f.finestra.captions[2], "QUIT");
}

TEST(Foglio, AtLoadTheSheetIsOrangeWithAnEmptyFirstButton) {
    Foglio f;
    EXPECT_EQ(f.finestra.fondo, arancio);
    EXPECT_EQ(f.frm.LBLdat_Count(), 3);
    EXPECT_EQ(f.finestra.LBLtit.Caption, "SCORE");
    EXPECT_EQ(f.finestra.lblTot[0].ForeColor, bianco);
    EXPECT_EQ(f.finestra.lblTot[1].ForeColor, bianco);
    EXPECT_EQ(f.finestra.captions[1], "");
    EXPECT_EQ(f.finestra.captions[2], "QUIT");
    EXPECT_EQ(f.frm.larghezza_iniziale, 15360);
    EXPECT_EQ(f.frm.altezza_iniziale, 11985);
    EXPECT_EQ(f.finestra.mostrata, 0);
}

TEST(Foglio, AfterOneHandAndAfterThree) {
    Foglio f;
    f.mod.tipo_partita = 2;
    f.fine_mano({23, 6, 0, true, 1, 2});
    EXPECT_EQ(f.finestra.mostrata, 1);
    std::vector<std::array<std::string, 10>> righe = {
        {" 23", " 6", "NO", "YES", " 1", " 17", " 4", "NO", "NO", " 2"}};
    {
        SCOPED_TRACE("one hand");
        controlla_foglio(f, 1, righe);
        EXPECT_EQ(f.finestra.lblTot[0].Caption, " 4");
        EXPECT_EQ(f.finestra.lblTot[1].Caption, " 2");
    }

    f.frm.Command1_Click();
    f.fine_mano({16, 2, 2, false, 0, 0});
    righe.push_back({" 16", " 2", "NO", "NO", " 0", " 24", " 8", "YES", "YES", " 0"});
    {
        SCOPED_TRACE("two hands");
        controlla_foglio(f, 2, righe);  // the totals have moved to 127
    }

    f.frm.Command1_Click();
    f.fine_mano({25, 9, 1, true, 3, 0});
    righe.push_back({" 25", " 9", "YES", "YES", " 3", " 15", " 1", "NO", "NO", " 0"});
    {
        SCOPED_TRACE("three hands");
        controlla_foglio(f, 3, righe);
        EXPECT_EQ(f.finestra.lblTot[0].Caption, " 11");
        EXPECT_EQ(f.finestra.lblTot[1].Caption, " 6");
    }
    // What the window was told is what the sheet holds.
    for (const auto& [indice, e] : f.frm.LBLdat) {
        EXPECT_EQ(f.finestra.LBLdat.at(indice).Caption, e.Caption) << indice;
        EXPECT_EQ(f.finestra.LBLdat.at(indice).Visible, e.Visible) << indice;
    }
}

TEST(Foglio, AfterNewGameTheSheetIsEmptyOliveAndStartsAgainAtTheTop) {
    Foglio f;
    f.mod.tipo_partita = 1;
    f.fine_mano({40, 10, 1, true, 3, 0});
    f.frm.Command1_Click();  // CONTINUE: 7 to 0
    f.fine_mano({40, 10, 1, true, 3, 0});
    ASSERT_EQ(f.mod.command1, "NEW GAME");
    f.frm.Command1_Click();
    EXPECT_EQ(f.frm.LBLdat_Count(), 3);
    EXPECT_EQ(f.finestra.fondo, oliva);

    // The next match, a single hand: the heads are made again and the row
    // stands at the top; the ground stays olive.
    f.mod.tipo_partita = 0;
    f.fine_mano({23, 6, 0, true, 1, 2});
    controlla_foglio(f, 1, {{" 23", " 6", "NO", "YES", " 1", " 17", " 4", "NO", "NO", " 2"}});
    EXPECT_EQ(f.finestra.fondo, oliva);
    for (int i = 1; i <= 8; ++i) EXPECT_EQ(f.finestra.imgset[static_cast<std::size_t>(i)].Visible, i != 4) << i;

    // And olive it stays for every later match of the run.
    f.frm.Command1_Click();
    f.fine_mano({23, 6, 0, true, 1, 2});
    f.frm.Command1_Click();
    EXPECT_EQ(f.finestra.fondo, oliva);
}

TEST(Foglio, TheSecondActivationPlacesTheHeadsAsTheFirstDid) {
    Foglio f;
    f.mod.tipo_partita = 2;
    f.fine_mano({23, 6, 0, true, 1, 2});
    std::vector<Etichetta> prima;
    for (int i = 0; i <= 12; ++i) prima.push_back(f.finestra.LBLdat.at(i));
    f.frm.Command1_Click();
    f.fine_mano({20, 5, 0, false, 0, 0});
    for (int i = 0; i <= 12; ++i) {
        const Etichetta& e = f.finestra.LBLdat.at(i);
        EXPECT_EQ(e.Caption, prima[static_cast<std::size_t>(i)].Caption) << i;
        EXPECT_EQ(e.r.left, prima[static_cast<std::size_t>(i)].r.left) << i;
        EXPECT_EQ(e.r.top, prima[static_cast<std::size_t>(i)].r.top) << i;
        EXPECT_EQ(e.Visible, prima[static_cast<std::size_t>(i)].Visible) << i;
    }
}

TEST(Foglio, TheRowOfThe22ndHandReachesTheButtonsWhichStayWhereTheyAre) {
    Foglio f;
    f.mod.tipo_partita = 2;
    for (int m = 1; m <= 22; ++m) {
        f.fine_mano({20, 5, 0, true, 0, 0});
        f.mod.punti_giocatore = 0;
        f.frm.Command1_Click();
    }
    EXPECT_EQ(f.frm.LBLdat.at(13 + 210).r.top, 511);
    EXPECT_EQ(f.frm.lblTot[0].r.top, 527);
    EXPECT_EQ(f.finestra.bottoni[1].r.top, 520);
}

TEST(Ridimensiona, OnlyTheLastControlOfTheListKeepsItsRealSize) {
    Foglio f;
    f.mod.tipo_partita = 2;
    f.fine_mano({23, 6, 0, true, 1, 2});
    const Foglio& c = f;
    const auto prima = c.frm.LBLdat;
    const auto tot = c.frm.lblTot;

    // A minimised window: nothing changes, the noted size stays.
    f.finestra.minimizzata_ = true;
    f.finestra.larghezza = 100;
    f.finestra.altezza = 50;
    f.frm.Form_Resize();
    EXPECT_EQ(f.frm.larghezza_iniziale, 15360);
    EXPECT_EQ(f.frm.altezza_iniziale, 11985);
    EXPECT_EQ(f.frm.LBLdat.at(0).r.width, prima.at(0).r.width);

    // Twice as wide, as high as before: the model's Left and Width halve,
    // its Top and Height stay; every other control keeps its rectangle.
    f.finestra.minimizzata_ = false;
    f.finestra.larghezza = 30720;
    f.finestra.altezza = 11985;
    f.frm.Form_Resize();
    EXPECT_EQ(f.frm.larghezza_iniziale, 30720);
    const Rett& m = f.finestra.LBLdat.at(0).r;
    EXPECT_FLOAT_EQ(m.left, prima.at(0).r.left / 2);
    EXPECT_FLOAT_EQ(m.width, prima.at(0).r.width / 2);
    EXPECT_FLOAT_EQ(m.top, prima.at(0).r.top);
    EXPECT_FLOAT_EQ(m.height, prima.at(0).r.height);
    for (const auto& [i, e] : f.frm.LBLdat) {
        if (i == 0) continue;
        EXPECT_EQ(e.r.left, prima.at(i).r.left) << i;
        EXPECT_EQ(e.r.top, prima.at(i).r.top) << i;
        EXPECT_EQ(e.r.width, prima.at(i).r.width) << i;
        EXPECT_EQ(e.r.height, prima.at(i).r.height) << i;
    }
    EXPECT_EQ(f.frm.lblTot[1].r.top, tot[1].r.top);

    // Then half as high: now the model's Top and Height double.
    f.finestra.altezza = 11985.0f / 2;
    f.frm.Form_Resize();
    EXPECT_FLOAT_EQ(f.frm.LBLdat.at(0).r.top, prima.at(0).r.top * 2);
    EXPECT_FLOAT_EQ(f.frm.LBLdat.at(0).r.height, prima.at(0).r.height * 2);
    EXPECT_FLOAT_EQ(f.frm.LBLdat.at(0).r.left, prima.at(0).r.left / 2);

    // The labels made from the model after this are placed in full.
    f.frm.Command1_Click();
    f.fine_mano({20, 5, 0, true, 0, 0});
    EXPECT_FLOAT_EQ(f.frm.LBLdat.at(23).r.left, 20);
    EXPECT_FLOAT_EQ(f.frm.LBLdat.at(23).r.width, 67.8f);
    EXPECT_FLOAT_EQ(f.frm.LBLdat.at(23).r.top, 111);
}

// ---- the window on Qt ----

Immagini& immagini() {
    static Immagini tutte;
    return tutte;
}

// Within a pixel of the logical rectangle scaled to the surface.
void al_suo_posto(const QWidget* w, const Rett& r, const SuperficieQt& s, const std::string& nome) {
    ASSERT_NE(w, nullptr) << nome;
    const double kx = s.width() / 800.0, ky = s.height() / 600.0;
    const QRect g = w->geometry();
    EXPECT_NEAR(g.x(), r.left * kx, 1.0) << nome;
    EXPECT_NEAR(g.y(), r.top * ky, 1.0) << nome;
    EXPECT_NEAR(g.width(), r.width * kx, 1.5) << nome;
    EXPECT_NEAR(g.height(), r.height * ky, 1.5) << nome;
}

// Two hands of a match to 21, with made-up results.
void due_mani(FinestraPunteggioQt& w, ModLesta& mod) {
    mod.tipo_partita = 2;
    metti_mano(mod, {23, 6, 0, true, 1, 2});
    w.frm().Form_Activate();
    w.frm().Command1_Click();
    metti_mano(mod, {16, 2, 2, false, 0, 1});
    w.frm().Form_Activate();
}

TEST(FinestraPunteggioQt, TheWindowIsTheGamesWithAFixedFrameOnOrange) {
    ModLesta mod;
    FinestraPunteggioQt w(immagini(), mod);
    EXPECT_EQ(w.windowTitle(), QStringLiteral("Brontex - Lesta"));
    EXPECT_FALSE(w.windowFlags() & Qt::WindowMaximizeButtonHint);
    EXPECT_TRUE(w.windowFlags() & Qt::WindowMinimizeButtonHint);
    EXPECT_FALSE(w.isVisible());  // loaded, not shown
    EXPECT_EQ(w.BackColor(), arancio);
    EXPECT_EQ(colore_word(w.superficie().immagine().pixel(10, 10)), arancio);
}

TEST(FinestraPunteggioQt, EveryControlSitsAtItsLogicalRectangleAtTwoSizes) {
    ModLesta mod;
    FinestraPunteggioQt w(immagini(), mod);
    due_mani(w, mod);
    w.show();
    std::vector<int> teste_px;
    for (QSize misura : {QSize(1024, 768), QSize(1500, 640)}) {
        w.resize(misura);
        QCoreApplication::processEvents();
        const SuperficieQt& s = w.superficie();
        ASSERT_EQ(s.size(), misura);
        const std::string dove = std::to_string(misura.width()) + "x" + std::to_string(misura.height());

        ASSERT_EQ(w.findChildren<QLabel*>().size(), 33 + 3);  // LBLdat 0..32, the title, two totals
        for (const auto& [i, e] : w.frm().LBLdat) {
            const QLabel* l = w.etichetta({Gruppo::LBLdat, i});
            al_suo_posto(l, e.r, s, dove + " LBLdat(" + std::to_string(i) + ")");
            EXPECT_EQ(l->text().toStdString(), e.Caption) << i;
            EXPECT_EQ(l->isVisibleTo(&w), e.Visible) << i;
            EXPECT_EQ(l->palette().color(QPalette::WindowText), colore_qt(e.ForeColor)) << i;
            EXPECT_EQ(l->palette().color(QPalette::Window), colore_qt(e.BackColor)) << i;
            EXPECT_TRUE(l->alignment() & Qt::AlignHCenter) << i;
        }
        al_suo_posto(w.etichetta({Gruppo::LBLtit, 0}), w.frm().LBLtit.r, s, dove + " LBLtit");
        for (int i = 0; i < 2; ++i) {
            const QLabel* t = w.etichetta({Gruppo::lblTot, i});
            al_suo_posto(t, w.frm().lblTot[static_cast<std::size_t>(i)].r, s, dove + " lblTot");
            EXPECT_NEAR(t->y(), 127 * s.height() / 600.0, 1.0);
            EXPECT_TRUE(t->font().bold());
        }
        EXPECT_EQ(w.etichetta({Gruppo::lblTot, 0})->text(), QStringLiteral(" 4"));
        EXPECT_EQ(w.etichetta({Gruppo::lblTot, 1})->text(), QStringLiteral(" 7"));
        EXPECT_EQ(w.etichetta({Gruppo::lblTot, 1})->palette().color(QPalette::WindowText), colore_qt(rosso));
        for (int i = 1; i <= 8; ++i) {
            al_suo_posto(w.immagine(i), w.frm().imgset[static_cast<std::size_t>(i)].r, s, dove + " imgset");
            EXPECT_EQ(w.immagine(i)->isVisibleTo(&w), i != 4) << i;
        }
        al_suo_posto(w.bottone(1), w.frm().Command1.r, s, dove + " Command1");
        al_suo_posto(w.bottone(2), w.frm().Command2.r, s, dove + " Command2");
        EXPECT_EQ(w.bottone(1)->text(), QStringLiteral("CONTINUE"));
        EXPECT_EQ(w.bottone(2)->text(), QStringLiteral("QUIT"));

        // Text in proportion: a head's 8 points at the design size, scaled
        // by the smaller of the two stretches.
        const double scala = std::min(s.width() / 1024.0, s.height() / 799.0);
        const int testa = w.etichetta({Gruppo::LBLdat, 3})->font().pixelSize();
        EXPECT_EQ(testa, std::lround(8 * 96.0 / 72.0 * scala)) << dove;
        EXPECT_EQ(w.etichetta({Gruppo::LBLtit, 0})->font().pixelSize(), std::lround(19.5 * 96.0 / 72.0 * scala));
        teste_px.push_back(testa);

        // Look at it: the sheet's ground, a head of a side on its colour,
        // the title strip on its own.
        const QImage foto = w.grab().toImage();
        const double kx = foto.width() / 800.0, ky = foto.height() / 600.0;
        auto colore_a = [&](float x, float y) {
            return colore_word(foto.pixel(static_cast<int>(x * kx), static_cast<int>(y * ky)));
        };
        EXPECT_EQ(colore_a(400, 570), arancio) << dove;
        EXPECT_EQ(colore_a(22, 73), azzurro) << dove;
        EXPECT_EQ(colore_a(25, 43), giallo_chiaro) << dove;
        EXPECT_EQ(colore_a(22, 89), verde_chiaro) << dove;
        if (qEnvironmentVariableIsSet("LESTA_FOGLIO_PNG"))
            foto.save(QDir(qEnvironmentVariable("LESTA_FOGLIO_PNG"))
                          .filePath(QStringLiteral("foglio-%1x%2.png").arg(misura.width()).arg(misura.height())));
    }
    EXPECT_LT(teste_px[1], teste_px[0]);  // 640 high is smaller than 768
}

TEST(FinestraPunteggioQt, NewGameWipesTheSheetOliveAndHandsOverOnce) {
    ModLesta mod;
    FinestraPunteggioQt w(immagini(), mod);
    mod.tipo_partita = 0;
    metti_mano(mod, {23, 6, 0, true, 1, 2});
    w.show();
    w.resize(1024, 768);
    w.frm().Form_Activate();
    QSignalSpy tavolo(&w, &FinestraPunteggioQt::mostra_tavolo);
    QTest::mouseClick(w.bottone(1), Qt::LeftButton);
    EXPECT_EQ(tavolo.count(), 1);
    EXPECT_EQ(w.BackColor(), oliva);
    const QImage& im = w.superficie().immagine();
    for (int y = 0; y < im.height(); y += 7)
        for (int x = 0; x < im.width(); x += 7) ASSERT_EQ(colore_word(im.pixel(x, y)), oliva) << x << "," << y;
    EXPECT_EQ(w.findChildren<QLabel*>().size(), 6);
    for (const QLabel* l : w.findChildren<QLabel*>()) EXPECT_FALSE(l->isVisibleTo(&w));
    EXPECT_FALSE(w.bottone(1)->isVisibleTo(&w));
    // The button is gone, and a click that still reaches the sheet does nothing.
    w.frm().Command1_Click();
    EXPECT_EQ(tavolo.count(), 1);
}

TEST(FinestraPunteggioQt, BringingTheSheetUpByHandWritesNoRow) {
    ModLesta mod;
    FinestraPunteggioQt w(immagini(), mod);
    due_mani(w, mod);
    w.show();
    QEvent attiva(QEvent::WindowActivate);
    QApplication::sendEvent(&w, &attiva);
    w.activateWindow();
    QCoreApplication::processEvents();
    EXPECT_EQ(w.frm().LBLdat_Count(), 33);
    EXPECT_EQ(mod.partite, 20);
    EXPECT_EQ(mod.punti_computer, 7);
}

TEST(FinestraPunteggioQt, QuitUnloadsTheTableAndEndsTheCloseControlEndsAtOnce) {
    ModLesta mod;
    {
        FinestraPunteggioQt w(immagini(), mod);
        mod.tipo_partita = 0;
        metti_mano(mod, {});
        w.show();
        w.frm().Form_Activate();
        std::vector<std::string> ordine;
        QObject::connect(&w, &FinestraPunteggioQt::scarica_tavolo, [&] { ordine.push_back("unload"); });
        QObject::connect(&w, &FinestraPunteggioQt::fine, [&] { ordine.push_back("end"); });
        QTest::mouseClick(w.bottone(2), Qt::LeftButton);
        EXPECT_EQ(ordine, (std::vector<std::string>{"unload", "end"}));
    }
    {
        FinestraPunteggioQt w(immagini(), mod);
        w.show();
        QSignalSpy scarica(&w, &FinestraPunteggioQt::scarica_tavolo);
        QSignalSpy fine(&w, &FinestraPunteggioQt::fine);
        w.close();
        EXPECT_EQ(fine.count(), 1);
        EXPECT_EQ(scarica.count(), 0);
        EXPECT_TRUE(w.isVisible());  // the program ends; the window does not close itself
    }
}

TEST(FinestraPunteggioQt, ShowBringsTheSheetUpMaximisedAndFillsIt) {
    ModLesta mod;
    FinestraPunteggioQt w(immagini(), mod);
    mod.tipo_partita = 0;
    metti_mano(mod, {23, 6, 0, true, 1, 2});
    w.frm().Show();
    EXPECT_TRUE(w.isVisible());
    EXPECT_TRUE(w.isMaximized());
    EXPECT_EQ(w.frm().LBLdat_Count(), 23);
    EXPECT_EQ(mod.command1, "NEW GAME");
}

}  // namespace
}  // namespace lesta
