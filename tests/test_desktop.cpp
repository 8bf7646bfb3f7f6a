// SPDX-License-Identifier: GPL-3.0-or-later
// The table window on Qt, offscreen: the painted surface read back with
// Point, controls that keep their logical places at any size, the menus, the
// keys, the real pauses, and the ways out.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QActionGroup>
#include <QApplication>
#include <QElapsedTimer>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTimer>
#include <cmath>
#include <set>

#include "banco.h"
#include "scoring/qt/finestra_punteggio.h"
#include "table/qt/applicazione.h"
#include "table/qt/finestra_tavolo.h"
#include "table/qt/immagini.h"
#include "table/qt/orologio_qt.h"
#include "table/qt/superficie_qt.h"
#include "table/sipario.h"
#include "tastiere.h"
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

// A surface nothing was painted on yet shows its back colour everywhere, at
// whatever size, and the first thing painted lies on that colour.
TEST(SuperficieQt, UntilSomethingIsPaintedTheSurfaceShowsItsBackColour) {
    SuperficieQt s(immagini());
    misura(s, QSize(640, 480));
    s.BackColor(rosso);
    s.Cls();
    s.BackColor(verde_tavolo);
    misura(s, QSize(1018, 720));
    const auto tutta_verde = [&s](const QImage& im) {
        for (int y = 0; y < s.area().height(); y += 7)
            for (int x = 0; x < s.area().width(); x += 7)
                if (colore_word(im.pixel(x, y)) != verde_tavolo) return false;
        return true;
    };
    EXPECT_TRUE(tutta_verde(s.grab().toImage()));
    EXPECT_EQ(s.Point(400, 300), verde_tavolo);
    s.Box(100, 100, 200, 200, rosso);
    EXPECT_EQ(s.Point(100, 100), rosso);
    s.BoxFilled(100, 100, 200, 200, verde_tavolo);
    EXPECT_TRUE(tutta_verde(s.grab().toImage()));
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

// ---- the keys ----

// The table window on screen, and the names of the keys it passes on.
struct TavoloConTasti {
    TavoloConTasti() {
        tavolo.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&tavolo));
        QObject::connect(&tavolo, &FinestraTavoloQt::tasto, [this](char t) { nomi += t; });
        QObject::connect(&tavolo, &FinestraTavoloQt::go, [this] { ++go; });
        QObject::connect(&tavolo, &FinestraTavoloQt::opzione, [this](int i) { scelte.push_back(i); });
    }
    // The names given to one key pressed as a keyboard sends it.
    std::string premi(quint32 codice_x, prova::Segno segno, Qt::KeyboardModifiers m = {}, bool ripetuto = false) {
        nomi.clear();
        QKeyEvent e = prova::evento_tasto(QEvent::KeyPress, codice_x, segno, m, ripetuto);
        QCoreApplication::sendEvent(tavolo.windowHandle(), &e);
        return nomi;
    }
    void mostra(Controllo c, bool visibile = true) {
        tavolo.controllo_cambiato(c, rettangolo_iniziale(c), visibile, true);
    }

    FinestraTavoloQt tavolo{immagini()};
    std::string nomi;
    int go = 0;
    std::vector<int> scelte;
};

// A key is named by its place, as a US keyboard prints it there: the twelve
// letters and three digits that play give the same names on a US, a French
// and a Russian layout, Shift or not, and so do the keypad's digits with Num
// Lock on or off. Keys at other places have no name, and no key plays with
// Ctrl, Alt or Meta, held down, or while a help panel holds the keyboard.
// A key without a place (the offscreen screen gives none) is named by its
// character, if that is a name.
TEST(FinestraTavoloQt, AKeyIsNamedByItsPlaceOnEveryLayout) {
    TavoloConTasti t;
    for (const prova::TastoCheGioca& k : prova::tasti_che_giocano) {
        const std::string nome(1, k.nome);
        for (prova::Segno segno : {k.us, k.fr, k.ru}) {
            const std::string carattere = QString::fromUtf16(segno.testo).toStdString();
            EXPECT_EQ(t.premi(k.codice_x, segno), nome) << carattere;
            EXPECT_EQ(t.premi(k.codice_x, segno, Qt::ShiftModifier), nome) << carattere;
            for (auto m : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
                EXPECT_EQ(t.premi(k.codice_x, segno, m), "") << carattere << " " << m;
            EXPECT_EQ(t.premi(k.codice_x, segno, {}, true), "") << carattere << " held";
        }
    }
    const prova::Segno keypad[][2] = {{{Qt::Key_1, u"1"}, {Qt::Key_End, u""}},
                                      {{Qt::Key_2, u"2"}, {Qt::Key_Down, u""}},
                                      {{Qt::Key_3, u"3"}, {Qt::Key_PageDown, u""}}};
    for (int i = 0; i < 3; ++i)
        for (prova::Segno segno : keypad[i])
            EXPECT_EQ(t.premi(87 + static_cast<quint32>(i), segno, Qt::KeypadModifier), std::string(1, '1' + i));
    // Escape, F1, Tab, the space bar, the key beside the left Shift of
    // European keyboards, a keycode xdotool lends to a sign no key types,
    // the keypad's 4 in the place of nothing the game names... none plays:
    // T and the keypad's 4 have names but no use in the game, which judges.
    EXPECT_EQ(t.premi(9, {Qt::Key_Escape, u""}), "");
    EXPECT_EQ(t.premi(67, {Qt::Key_F1, u""}), "");
    EXPECT_EQ(t.premi(23, {Qt::Key_Tab, u""}), "");
    EXPECT_EQ(t.premi(65, {Qt::Key_Space, u" "}), "");
    EXPECT_EQ(t.premi(94, {Qt::Key_Less, u"<"}), "");
    EXPECT_EQ(t.premi(8, {Qt::Key_Q, u"q"}), "");
    EXPECT_EQ(t.premi(28, {0x415, u"е"}), "T");
    EXPECT_EQ(t.premi(83, {Qt::Key_4, u"4"}, Qt::KeypadModifier), "4");

    // No place: the character, when it is a name.
    EXPECT_EQ(t.premi(0, {Qt::Key_Q, u"q"}), "Q");
    EXPECT_EQ(t.premi(0, {Qt::Key_Q, u"Q"}, Qt::ShiftModifier), "Q");
    EXPECT_EQ(t.premi(0, {Qt::Key_2, u"2"}, Qt::KeypadModifier), "2");
    EXPECT_EQ(t.premi(0, {Qt::Key_A, u"a"}), "A");  // a French Q: all there is
    EXPECT_EQ(t.premi(0, {0x419, u"й"}), "");
    EXPECT_EQ(t.premi(0, {Qt::Key_Exclam, u"!"}), "");
    EXPECT_EQ(t.premi(0, {Qt::Key_Space, u" "}), "");
    EXPECT_EQ(t.premi(0, {Qt::Key_Q, u"q"}, Qt::AltModifier), "");

    for (Controllo pannello : {Controllo::Text2, Controllo::Text3, Controllo::Text4}) {
        t.mostra(pannello);
        t.tavolo.widget(pannello)->setFocus();
        EXPECT_EQ(t.premi(24, prova::tasto_di_nome('Q').fr), "") << static_cast<int>(pannello);
        EXPECT_EQ(t.premi(0, {Qt::Key_1, u"1"}), "") << static_cast<int>(pannello);
        t.mostra(pannello, false);
        EXPECT_EQ(t.premi(24, prova::tasto_di_nome('Q').ru), "Q") << static_cast<int>(pannello);
    }
}

// While the start panel shows, Enter, the keypad's Enter and the space bar
// press GO whoever holds the keyboard: GO, a match choice (which the space
// bar does not pick), the table, the song's button, the Italian rules or the
// information. The English rules, which the player can write in, keep them,
// and so does the menu bar when Alt has given it the keyboard.
// The arrows move between the choices and pick them. Held, or with Ctrl,
// Alt or Meta, they do nothing; with the panel gone, they press nothing.
TEST(FinestraTavoloQt, EnterAndTheSpaceBarPressGoWheneverTheStartPanelShows) {
    TavoloConTasti t;
    for (int i = 0; i < 3; ++i) t.mostra(Option1(i));
    t.mostra(Controllo::GO);
    t.mostra(Controllo::CmdSong);
    t.mostra(Controllo::Text3);
    t.mostra(Controllo::Text4);
    ASSERT_EQ(t.tavolo.focusWidget(), t.tavolo.widget(Controllo::GO));
    QWindow* finestra = t.tavolo.windowHandle();
    auto scelta = [&](int i) { return static_cast<QAbstractButton*>(t.tavolo.widget(Option1(i))); };
    ASSERT_TRUE(scelta(0)->isChecked());
    const std::pair<const char*, QWidget*> chi[] = {
        {"GO", t.tavolo.widget(Controllo::GO)},
        {"a choice", scelta(2)},
        {"the table", &t.tavolo.superficie()},
        {"the song's button", t.tavolo.widget(Controllo::CmdSong)},
        {"the Italian rules", t.tavolo.widget(Controllo::Text3)},
        {"the information", t.tavolo.widget(Controllo::Text4)},
    };
    for (auto [nome, w] : chi) {
        for (Qt::Key k : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            w->setFocus();
            const int prima = t.go;
            QTest::keyClick(finestra, k, k == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
            EXPECT_EQ(t.go, prima + 1) << nome << ", key " << QKeySequence(k).toString().toStdString();
        }
    }
    EXPECT_TRUE(scelta(0)->isChecked());
    EXPECT_EQ(t.scelte, std::vector<int>{});

    const int go = t.go;
    t.mostra(Controllo::Text2);
    auto* inglese = static_cast<QPlainTextEdit*>(t.tavolo.widget(Controllo::Text2));
    inglese->setFocus();
    const qsizetype lunghezza = inglese->toPlainText().size();
    // Pressed and not let go: on a compositor with no keyboard, Qt's Wayland
    // plugin fails when the text box, on a key let go, asks for the input
    // method.
    for (auto [k, testo] : {std::pair{Qt::Key_Space, " "}, std::pair{Qt::Key_Return, "\r"}}) {
        QKeyEvent e(QEvent::KeyPress, k, {}, QString::fromLatin1(testo));
        QCoreApplication::sendEvent(finestra, &e);
    }
    EXPECT_EQ(inglese->toPlainText().size(), lunghezza + 2);
    t.mostra(Controllo::Text2, false);
    t.tavolo.menuBar()->setFocus();
    QTest::keyClick(finestra, Qt::Key_Return);

    // The arrows move the keyboard only in the active window, which a
    // compositor with no keyboard never makes the table.
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&t.tavolo));
        scelta(0)->setFocus();
        QTest::keyClick(finestra, Qt::Key_Down);
        EXPECT_EQ(t.tavolo.focusWidget(), scelta(1));
        EXPECT_TRUE(scelta(1)->isChecked());
        EXPECT_EQ(t.scelte, std::vector<int>{1});
    }

    t.tavolo.widget(Controllo::GO)->setFocus();
    for (auto m : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
        QKeyEvent e(QEvent::KeyPress, Qt::Key_Return, m, QStringLiteral("\r"));
        QCoreApplication::sendEvent(finestra, &e);
    }
    QKeyEvent tenuto(QEvent::KeyPress, Qt::Key_Space, {}, QStringLiteral(" "), true);
    QCoreApplication::sendEvent(finestra, &tenuto);
    t.mostra(Controllo::GO, false);
    for (Qt::Key k : {Qt::Key_Return, Qt::Key_Space}) QTest::keyClick(finestra, k);
    EXPECT_EQ(t.go, go);
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
    CronistaMuto cronista;
    ModLesta mod;
    prova::CartellaTemporanea cartella;
    Frmlesta frm(Piattaforma{tavolo, orologio, casuale, musica, suono, programma, cronista}, mod,
                 cartella.percorso());
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

// What the first frames do not show waits for the table's first paint, so
// that the table comes up as fast as a bare window: loading the sound and
// opening the device (the card sound's "Open", with Wait, does not hold up
// the start), the score sheet, the controls but the title, and the help
// panels. A panel asked for sooner is built at once, and a click on it
// reaches the game.
TEST(Applicazione, WhatTheFirstFrameDoesNotShowWaitsForTheTablesFirstPaint) {
    prova::CartellaTemporanea cartella;
    const auto fogli = [] {
        int n = 0;
        for (QWidget* w : QApplication::topLevelWidgets()) n += qobject_cast<FinestraPunteggioQt*>(w) != nullptr;
        return n;
    };
    {
        Applicazione lesta(immagini(), cartella.percorso());
        const auto pannelli = [&lesta] { return lesta.tavolo().findChildren<QPlainTextEdit*>().size(); };
        const auto scelte = [&lesta] { return lesta.tavolo().findChildren<QRadioButton*>().size(); };
        lesta.avvia();  // Form_Load has opened the card sound
        EXPECT_EQ(prova::thread_di_nome("SDLAudio"), 0);
        EXPECT_EQ(fogli(), 0);
        EXPECT_EQ(pannelli(), 0);
        EXPECT_EQ(scelte(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(prova::thread_di_nome("SDLAudio"), 1, 5000);
        EXPECT_EQ(fogli(), 1);
        EXPECT_EQ(pannelli(), 3);
        EXPECT_EQ(scelte(), 3);
    }
    Applicazione lesta(immagini(), cartella.percorso());
    lesta.avvia();
    lesta.tavolo().voce_italiano()->trigger();
    QWidget* regole = lesta.tavolo().widget(Controllo::Text3);
    EXPECT_TRUE(regole->isVisible());
    QTest::mouseClick(static_cast<QPlainTextEdit*>(regole)->viewport(), Qt::LeftButton);
    EXPECT_FALSE(regole->isVisible());
}

}  // namespace
}  // namespace lesta
