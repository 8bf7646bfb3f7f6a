// SPDX-License-Identifier: GPL-3.0-or-later
// The table window on Qt, offscreen: the painted surface read back with
// Point, controls that keep their logical places at any size, the menus, the
// real pauses, and the ways out.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QActionGroup>
#include <QApplication>
#include <QElapsedTimer>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTimer>
#include <cmath>
#include <set>

#include "banco.h"
#include "table/qt/applicazione.h"
#include "table/qt/finestra_tavolo.h"
#include "table/qt/immagini.h"
#include "table/qt/orologio_qt.h"
#include "table/qt/superficie_qt.h"
#include "table/sipario.h"
#include "turns/ritardo.h"

namespace lesta {
namespace {

Immagini& immagini() {
    static Immagini tutte;
    return tutte;
}

// A surface on screen at this size (offscreen, resizes reach it at once).
void misura(SuperficieQt& s, QSize m) {
    s.show();
    s.resize(m);
    ASSERT_EQ(s.area(), m * s.devicePixelRatioF());
}

TEST(SuperficieQt, TheWipeLeavesEveryPixelInItsColourAtAnySize) {
    for (QSize dimensioni : {QSize(1018, 720), QSize(640, 480), QSize(1600, 900)}) {
        SuperficieQt s(immagini());
        misura(s, dimensioni);
        s.PaintPicture(faccia(7), 100, 100, 60, 110);
        sipario(s, verde_tavolo);
        EXPECT_EQ(s.BackColor(), verde_tavolo);
        const QImage& im = s.immagine();
        for (int y = 0; y < s.area().height(); y += 3)
            for (int x = 0; x < s.area().width(); x += 3) ASSERT_EQ(colore_word(im.pixel(x, y)), verde_tavolo);
        EXPECT_EQ(s.Point(799.9f, 599.9f), verde_tavolo);
        EXPECT_EQ(s.Point(800.5f, 10), 0xFFFFFFFFu);  // off the surface
    }
}

TEST(SuperficieQt, PointReadsWhatWasPaintedCardCornersAreTable) {
    SuperficieQt s(immagini());
    misura(s, QSize(1018, 720));
    s.BackColor(verde_tavolo);
    const float x = 307, y = 486.72f, w = 58.94f, h = 108.28f;
    s.PaintPicture(faccia(21), x, y, w, h);
    EXPECT_EQ(s.Point(x + 0.1f, y + 0.1f), verde_tavolo);  // the rounded corner
    EXPECT_EQ(s.Point(x + w - 0.5f, y + h - 0.5f), verde_tavolo);
    EXPECT_NE(s.Point(x + w / 2, y + 5), verde_tavolo);  // the white card
    EXPECT_EQ(s.Point(x - 1, y + h / 2), verde_tavolo);  // beside it

    // Erasing a card with the one-unit margin leaves no trace of it.
    s.BoxFilled(x - 1, y - 1, x + w + 1, y + h + 1, verde_tavolo);
    for (float px = x - 2; px < x + w + 2; px += 0.5f)
        for (float py = y - 2; py < y + h + 2; py += 0.5f) ASSERT_EQ(s.Point(px, py), verde_tavolo);

    // A red outline three units inside a card: one pixel wide, from the
    // pixel of its first corner to that of its second, both included.
    s.PaintPicture(faccia(3), x, y, w, h);
    s.Box(x + 3, y + 3, x + w - 3, y + h - 3, rosso);
    const QImage& im = s.immagine();
    const int sinistra = static_cast<int>(std::floor((x + 3) * 1018 / 800.0));
    const int destra = static_cast<int>(std::floor((x + w - 3) * 1018 / 800.0));
    const int riga = static_cast<int>(std::floor((y + h / 2) * 720 / 600.0));
    for (int px = sinistra - 1; px <= destra + 1; ++px)
        EXPECT_EQ(colore_word(im.pixel(px, riga)) == rosso, px == sinistra || px == destra) << px;
}

// Shrinking the window and growing it back leaves every pixel as it was.
TEST(SuperficieQt, APictureStaysWhereItWasWhenTheWindowIsResized) {
    SuperficieQt s(immagini());
    misura(s, QSize(1018, 720));
    s.BackColor(verde_tavolo);
    s.PaintPicture(faccia(21), 300, 400, 60, 110);
    s.Box(100, 100, 200, 200, rosso);
    const QImage prima = s.immagine().copy(QRect(QPoint(0, 0), s.area()));
    misura(s, QSize(700, 500));
    // The outline's pixels stay put: the logical point 100, 100 now falls
    // on another pixel.
    EXPECT_EQ(colore_word(s.immagine().pixel(127, 127)), rosso);
    EXPECT_EQ(s.Point(100, 100), verde_tavolo);
    misura(s, QSize(1018, 720));
    EXPECT_EQ(s.immagine().copy(QRect(QPoint(0, 0), s.area())), prima);
}

// A press reads the very pixel under the pointer: every column of a surface
// whose width is no multiple of 800 gives the colour of that column.
TEST(SuperficieQt, APressReadsThePixelUnderThePointer) {
    SuperficieQt s(immagini());
    misura(s, QSize(1016, 689));
    s.BackColor(verde_tavolo);
    for (int px = 0; px < 1016; px += 2) {
        // A red column one pixel wide: a box whose two corners fall on it.
        const float x = (static_cast<float>(px) + 0.5f) * 800.0f / 1016.0f;
        s.BoxFilled(x, 0, x, 599.9f, rosso);
    }
    int premuti = 0, sbagliati = 0;
    QObject::connect(&s, &SuperficieQt::premuto, [&](float X, float Y) {
        const Colore atteso = premuti % 2 == 0 ? rosso : verde_tavolo;
        sbagliati += s.Point(X, Y) != atteso;
        ++premuti;
    });
    for (int px = 0; px < 1016; ++px) QTest::mousePress(&s, Qt::LeftButton, {}, QPoint(px, 120));
    EXPECT_EQ(premuti, 1016);
    EXPECT_EQ(sbagliati, 0);
}

TEST(FinestraTavoloQt, ControlsKeepTheirLogicalRectanglesAtAnySize) {
    FinestraTavoloQt tavolo(immagini());
    tavolo.show();
    const Rett go{352.55f, 300, 94.95f, 18.63f};
    tavolo.controllo_cambiato(Controllo::GO, go, true, true);
    for (QSize dimensioni : {QSize(1600, 1000), QSize(830, 600), QSize(1018, 720)}) {
        tavolo.resize(dimensioni);
        QApplication::sendPostedEvents();
        const QSize superficie = tavolo.superficie().size();
        const QRect g = tavolo.widget(Controllo::GO)->geometry();
        const double kx = superficie.width() / 800.0, ky = superficie.height() / 600.0;
        EXPECT_NEAR(g.x() / kx, go.left, 1.0 / kx + 0.01);
        EXPECT_NEAR(g.y() / ky, go.top, 1.0 / ky + 0.01);
        EXPECT_NEAR(g.width() / kx, go.width, 2.0 / kx + 0.01);
        EXPECT_NEAR(g.height() / ky, go.height, 2.0 / ky + 0.01);
    }
}

TEST(FinestraTavoloQt, TheMenuTreeHasItsCaptionsAccessKeysAndCheckMarks) {
    FinestraTavoloQt tavolo(immagini());
    QStringList barra;
    for (QAction* a : tavolo.menuBar()->actions()) barra << a->text();
    EXPECT_EQ(barra, (QStringList{"&Play rate", "&Game rules", "&Music", "&Info", "&QUIT"}));

    auto figli = [&](int i) {
        QStringList nomi;
        for (QAction* a : tavolo.menuBar()->actions()[i]->menu()->actions()) nomi << a->text();
        return nomi;
    };
    EXPECT_EQ(figli(0), (QStringList{"Low", "Middle", "High"}));
    EXPECT_EQ(figli(1), (QStringList{"Italiano", "English"}));
    EXPECT_EQ(figli(2).mid(0, 2), (QStringList{"None", "SEQUENTIAL MODE"}));

    // Every mark is a check mark: no entry stands in a group of radio
    // buttons, and the game's own marks are what shows.
    for (QAction* menu : tavolo.menuBar()->actions())
        for (QAction* a : menu->menu() ? menu->menu()->actions() : QList<QAction*>{})
            EXPECT_TRUE(a->actionGroup() == nullptr || !a->actionGroup()->isExclusive()) << a->text().toStdString();
    tavolo.spunta(Voce::velocita_gioco, 2, true);
    EXPECT_TRUE(tavolo.voce_velocita(2)->isCheckable() && tavolo.voce_velocita(2)->isChecked());
}

// The primiera tables of both rules panels line their points up in one
// column, however wide each name is in the panel's proportional font.
TEST(FinestraTavoloQt, TheRulesTablesLineUpTheirPoints) {
    FinestraTavoloQt tavolo(immagini());
    tavolo.show();
    tavolo.resize(1018, 773);
    for (Controllo c : {Controllo::Text2, Controllo::Text3}) {
        tavolo.controllo_cambiato(c, rettangolo_iniziale(c), true, true);
        auto* testo = static_cast<QPlainTextEdit*>(tavolo.widget(c));
        QTextOption opzione = testo->document()->defaultTextOption();
        opzione.setTabStopDistance(testo->tabStopDistance());
        std::set<int> colonne;
        int righe = 0;
        for (QTextBlock b = testo->document()->begin(); b.isValid(); b = b.next()) {
            const int tab = static_cast<int>(b.text().indexOf(QLatin1Char('\t')));
            if (tab < 0) continue;
            QTextLayout riga(b.text(), testo->font());
            riga.setTextOption(opzione);
            riga.beginLayout();
            QTextLine linea = riga.createLine();
            riga.endLayout();
            colonne.insert(static_cast<int>(std::lround(linea.cursorToX(tab + 1))));
            ++righe;
        }
        EXPECT_EQ(righe, 7) << static_cast<int>(c);
        EXPECT_EQ(colonne.size(), 1u) << static_cast<int>(c);
    }
}

// The information panel shows every line whole, none cut at its sides or
// its foot: at the window's design size, at the narrowest the game accepts
// (its letters no smaller than 8 pixels), on a low screen, and larger.
TEST(FinestraTavoloQt, TheInformationShowsWholeInItsPanel) {
    FinestraTavoloQt tavolo(immagini());
    tavolo.show();
    tavolo.controllo_cambiato(Controllo::Text4, rettangolo_iniziale(Controllo::Text4), true, true);
    auto* testo = static_cast<QPlainTextEdit*>(tavolo.widget(Controllo::Text4));
    for (QSize dimensioni : {QSize(1018, 773), QSize(824, 600), QSize(1024, 560), QSize(1600, 1000)}) {
        tavolo.resize(dimensioni);
        QApplication::sendPostedEvents();
        const QFontMetrics misure(testo->font());
        const int margine = static_cast<int>(std::ceil(testo->document()->documentMargin()));
        const QRect vista = testo->viewport()->rect().adjusted(margine, margine, -margine, -margine);
        int righe = 0;
        for (QTextBlock b = testo->document()->begin(); b.isValid(); b = b.next()) {
            if (b.text().isEmpty()) continue;
            ++righe;
            EXPECT_LE(misure.horizontalAdvance(b.text()), vista.width())
                << b.text().toStdString() << " at " << dimensioni.width() << " px " << testo->font().pixelSize()
                << " vista " << vista.width() << "x" << vista.height();
            const QRect riga = testo->cursorRect(QTextCursor(b));
            EXPECT_LE(riga.bottom(), vista.bottom()) << b.text().toStdString() << " at " << dimensioni.width();
        }
        EXPECT_GE(righe, 2);  // the panel holds its text
    }
}

// A routine that waits on the real clock: a pause takes its time in the event
// loop, and a change of speed during it counts from the next pause.
TEST(OrologioQt, APauseLastsItsTimeAndASpeedChangeCountsFromTheNext) {
    FinestraTavoloQt tavolo(immagini());
    OrologioQt orologio;
    CasualeSistema casuale;
    MediaMuto musica, suono;
    ProgrammaFinto programma;
    ModLesta mod;
    prova::CartellaTemporanea cartella;
    Frmlesta frm(Piattaforma{tavolo, orologio, casuale, musica, suono, programma}, mod, cartella.percorso());
    orologio.al_timer2 = [&] { frm.Timer2_Timer(); };
    frm.velocita = 30;

    QElapsedTimer cronometro;
    std::vector<qint64> fine;
    auto due_pause = [&]() -> Task {
        co_await frm.ritardo(1);
        fine.push_back(cronometro.elapsed());
        co_await frm.ritardo(1);
        fine.push_back(cronometro.elapsed());
    };
    cronometro.start();
    Task t = due_pause();
    t.start();
    EXPECT_FALSE(t.done());
    QTimer::singleShot(50, [&] { frm.velocita_gioco_Click(1); });
    QTRY_VERIFY_WITH_TIMEOUT(t.done(), 3000);
    ASSERT_EQ(fine.size(), 2u);
    EXPECT_GE(fine[0], 216);
    EXPECT_LT(fine[0], 500);
    EXPECT_GE(fine[1] - fine[0], 650);
    EXPECT_LT(fine[1] - fine[0], 1000);
}

TEST(Applicazione, AScreenOf800PixelsGetsTheMessageAndTheProgramEndsOnOk) {
    // The offscreen platform's screen is 800 x 600.
    prova::CartellaTemporanea cartella;
    Applicazione lesta(immagini(), cartella.percorso());
    lesta.avvia();
    QMessageBox* box = nullptr;
    QTRY_VERIFY_WITH_TIMEOUT((box = lesta.tavolo().findChild<QMessageBox*>()) != nullptr, 2000);
    EXPECT_EQ(box->text(), "Screen resolution too low. Risoluzione di schermo troppo bassa");
    EXPECT_FALSE(lesta.finito());
    box->button(QMessageBox::Ok)->click();
    QTRY_VERIFY(lesta.finito());
    // Nothing of the hand runs after the message.
    EXPECT_FALSE(lesta.gioco().Visible(Controllo::GO));
}

// QUIT and the close control end the program at once, and the event loop
// itself ends, though the table refuses to close: the program's exec() gives
// 0, not the 1 of the timer that stops a loop that would go on.
TEST(Applicazione, QuitAndTheCloseControlEndTheEventLoop) {
    prova::CartellaTemporanea cartella;
    for (bool da_menu : {true, false}) {
        Applicazione lesta(immagini(), cartella.percorso());
        lesta.avvia();
        QTimer::singleShot(0, &lesta, [&lesta, da_menu] {
            if (da_menu)
                lesta.tavolo().voce_esci()->trigger();
            else
                lesta.tavolo().close();
            EXPECT_TRUE(lesta.finito());  // at once
        });
        QTimer scaduto;
        scaduto.setSingleShot(true);
        QObject::connect(&scaduto, &QTimer::timeout, [] { QCoreApplication::exit(1); });
        scaduto.start(5000);
        EXPECT_EQ(QApplication::exec(), 0) << (da_menu ? "QUIT" : "the close control");
    }
}

// Loading the sound and opening the device wait for the table's first
// paint: the card sound's "Open" (with Wait) does not hold up the start.
TEST(Applicazione, TheSoundIsTakenOnlyOnceTheTableIsPainted) {
    prova::CartellaTemporanea cartella;
    Applicazione lesta(immagini(), cartella.percorso());
    lesta.avvia();  // Form_Load has opened the card sound
    EXPECT_EQ(prova::thread_di_nome("SDLAudio"), 0);
    QTRY_COMPARE_WITH_TIMEOUT(prova::thread_di_nome("SDLAudio"), 1, 5000);
}

}  // namespace
}  // namespace lesta
