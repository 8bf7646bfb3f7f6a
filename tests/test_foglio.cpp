// SPDX-License-Identifier: GPL-3.0-or-later
// The score sheet's window on Qt (offscreen): every control at its logical
// rectangle at any size, the wipe of a new match, the hand-overs, and no
// scoring on the window system's own activation.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <cmath>
#include <string>
#include <vector>

#include "headless/punteggio.h"
#include "scoring/qt/finestra_punteggio.h"
#include "table/qt/immagini.h"
#include "table/qt/superficie_qt.h"

namespace lesta {
namespace {

// A hand as gioco and calcsettanta leave it: cards and coins of the player,
// the primiera's winner, the seven, the sweeps of each side; and the best
// primiera cards of the player's 2, 7, 11 and 30 against the rest.
void metti_mano(ModLesta& mod, int carte, int denari, int primiera, bool sette, int leste1, int leste2) {
    mod.numcarte = static_cast<std::int16_t>(carte);
    mod.numdenari = static_cast<std::int16_t>(denari);
    mod.vince_settanta = static_cast<std::uint8_t>(primiera);
    mod.settebello = sette;
    mod.leste = {0, static_cast<std::int16_t>(leste1), static_cast<std::int16_t>(leste2)};
    mod.migliori = {{{}, {0, 1, 3, 10, 11}, {0, 2, 1, 1, 1}}};
}

// ---- the window on Qt ----

Immagini& immagini() {
    static Immagini tutte;
    return tutte;
}

// Two hands of a match to 21: 4 to 2, then 0 to 5.
void due_mani(FinestraPunteggioQt& w, ModLesta& mod) {
    mod.tipo_partita = 2;
    metti_mano(mod, 23, 6, 0, true, 1, 2);
    w.frm().Form_Activate();
    w.frm().Command1_Click();
    metti_mano(mod, 16, 2, 2, false, 0, 1);
    w.frm().Form_Activate();
}

TEST(FinestraPunteggioQt, EveryControlSitsAtItsLogicalRectangleAtTwoSizes) {
    ModLesta mod;
    FinestraPunteggioQt w(immagini(), mod);
    due_mani(w, mod);
    w.show();
    for (QSize misura : {QSize(1024, 768), QSize(1500, 640)}) {
        w.resize(misura);
        QCoreApplication::processEvents();
        const SuperficieQt& s = w.superficie();
        ASSERT_EQ(s.size(), misura);
        const double kx = s.width() / 800.0, ky = s.height() / 600.0;
        const auto al_suo_posto = [&](const QWidget* q, const Rett& r, int i) {
            ASSERT_NE(q, nullptr) << i;
            const QRect g = q->geometry();
            EXPECT_TRUE(std::abs(g.x() - r.left * kx) <= 1 && std::abs(g.y() - r.top * ky) <= 1 &&
                        std::abs(g.width() - r.width * kx) <= 1.5 && std::abs(g.height() - r.height * ky) <= 1.5)
                << misura.width() << " " << i;
        };
        ASSERT_EQ(w.findChildren<QLabel*>().size(), 33 + 3);  // LBLdat 0..32, the title, two totals
        for (const auto& [i, e] : w.frm().LBLdat) {
            const QLabel* l = w.etichetta({Gruppo::LBLdat, i});
            al_suo_posto(l, e.r, i);
            EXPECT_EQ(l->text().toStdString(), e.Caption) << i;
            EXPECT_EQ(l->isVisibleTo(&w), e.Visible) << i;
            EXPECT_EQ(l->palette().color(QPalette::WindowText), colore_qt(e.ForeColor)) << i;
        }
        al_suo_posto(w.etichetta({Gruppo::LBLtit, 0}), w.frm().LBLtit.r, -1);
        for (int i = 0; i < 2; ++i)
            al_suo_posto(w.etichetta({Gruppo::lblTot, i}), w.frm().lblTot[static_cast<std::size_t>(i)].r, 100 + i);
        EXPECT_NEAR(w.etichetta({Gruppo::lblTot, 1})->y(), 127 * ky, 1.0);
        EXPECT_EQ(w.etichetta({Gruppo::lblTot, 1})->text(), QStringLiteral(" 7"));
        for (int i = 1; i <= 8; ++i)
            al_suo_posto(w.immagine(i), w.frm().imgset[static_cast<std::size_t>(i)].r, 200 + i);
        al_suo_posto(w.bottone(1), w.frm().Command1.r, 301);
        EXPECT_EQ(w.bottone(1)->text(), QStringLiteral("CONTINUE"));
        // Texts at their sizes in points, at any size of the window.
        EXPECT_EQ(w.etichetta({Gruppo::LBLdat, 3})->font().pointSizeF(), 8.0);
        EXPECT_EQ(w.etichetta({Gruppo::LBLtit, 0})->font().pointSizeF(), 19.5);
        EXPECT_EQ(w.etichetta({Gruppo::lblTot, 0})->font().pointSizeF(), 12.0);
        EXPECT_EQ(colore_word(s.immagine().pixel(s.width() / 2, s.height() - 5)), arancio);
    }
}

TEST(FinestraPunteggioQt, NewGameWipesTheSurfaceOliveAndHandsOverOnce) {
    ModLesta mod;
    FinestraPunteggioQt w(immagini(), mod);
    metti_mano(mod, 23, 6, 0, true, 1, 2);
    w.frm().Show();  // up maximised, and filled
    EXPECT_TRUE(w.isVisible() && w.isMaximized());
    EXPECT_EQ(w.frm().LBLdat_Count(), 23);
    QSignalSpy tavolo(&w, &FinestraPunteggioQt::mostra_tavolo);
    QTest::mouseClick(w.bottone(1), Qt::LeftButton);
    w.frm().Command1_Click();
    EXPECT_EQ(tavolo.count(), 1);
    const QImage& im = w.superficie().immagine();
    for (int y = 0; y < im.height(); y += 7)
        for (int x = 0; x < im.width(); x += 7) ASSERT_EQ(colore_word(im.pixel(x, y)), oliva) << x << "," << y;
    for (const QLabel* l : w.findChildren<QLabel*>()) EXPECT_FALSE(l->isVisibleTo(&w));
}

TEST(FinestraPunteggioQt, TheWindowSystemsActivationWritesNoRowAndCloseEndsAtOnce) {
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
    QSignalSpy scarica(&w, &FinestraPunteggioQt::scarica_tavolo);
    QSignalSpy fine(&w, &FinestraPunteggioQt::fine);
    w.close();
    EXPECT_EQ(fine.count(), 1);
    EXPECT_EQ(scarica.count(), 0);
}

}  // namespace
}  // namespace lesta
