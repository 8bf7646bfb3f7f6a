// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program on its real windows: the table and the score sheet, the
// real timers at "High", every move made by a mouse click on the widgets at
// the place the game's state gives, or by a key pressed on the table window,
// on an offscreen screen of 1024 x 768. A witness counts what each side takes
// as a person watching the table would, and the sheet must show the same.
//
// The hand played by the keys' places runs again on a real X server with a
// French and a Russian layout (tests/sotto_x11 --layout), where the keys are
// pressed through the server by their keycodes.
//
// The same tests run as a Wayland client of a Weston of their own
// (tests/sotto_weston). There the compositor places and stacks the windows,
// and screenshots of its screen show which window is in front: the sheet at
// the end of each hand, the table again once the sheet's button is pressed.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>
#include <fstream>
#include <functional>
#include <vector>

#include "banco.h"
#include "headless/giocatore_casuale.h"
#include "racconto_atteso.h"
#include "table/qt/applicazione.h"
#include "table/qt/immagini.h"
#include "table/qt/superficie_qt.h"
#include "tastiere.h"

// Texts of the sheet in failure messages.
inline void PrintTo(const QString& testo, std::ostream* os) { *os << '"' << testo.toStdString() << '"'; }

namespace lesta {
namespace {

constexpr int attesa_massima_ms = 120'000;  // one wait of the game, at most

Immagini& immagini() {
    static Immagini tutte;
    return tutte;
}

// The program that takes a screenshot of the whole screen as the compositor
// shows it, writing a PNG into the folder it runs in; none on the offscreen
// screen, which stacks nothing.
QString fotografo() { return qEnvironmentVariable("LESTA_SCHERMATA"); }

QImage schermata() {
    QTemporaryDir cartella;
    QProcess processo;
    processo.setWorkingDirectory(cartella.path());
    processo.start(fotografo(), {});
    if (!processo.waitForFinished(10'000)) {
        processo.kill();
        processo.waitForFinished();
        return {};
    }
    const QStringList foto = QDir(cartella.path()).entryList({QStringLiteral("*.png")}, QDir::Files);
    if (processo.exitCode() != 0 || foto.size() != 1) return {};
    return QImage(cartella.filePath(foto.first())).convertToFormat(QImage::Format_RGB32);
}

// The share of the picture in exactly this colour.
double quota(const QImage& foto, QColor colore) {
    const QRgb cercato = colore.rgb() & 0xFFFFFFu;
    qsizetype quanti = 0;
    for (int y = 0; y < foto.height(); ++y) {
        const auto* riga = reinterpret_cast<const QRgb*>(foto.constScanLine(y));
        for (int x = 0; x < foto.width(); ++x) quanti += (riga[x] & 0xFFFFFFu) == cercato;
    }
    return static_cast<double>(quanti) / std::max<qsizetype>(1, qsizetype{foto.width()} * foto.height());
}

// What each side has taken in the hand, from the moves alone.
class Testimone final : public Osservatore {
public:
    void mossa_eseguita(const Frmlesta& f) override {
        ++mosse;
        if (mosse == 37) {  // the cards left on the table, to the last side to capture
            for (int i = 1; i <= f.quante; ++i) prende(f.ultima_presa, f.presa[i]);
            return;
        }
        const int lato = f.turno;
        const auto r = static_cast<std::size_t>(f.riga), c = static_cast<std::size_t>(f.colonna);
        const bool posata = f.quante == 0 && r >= 1 && r <= 3 && c >= 1 && c <= 4 && f.tavolo[r][c] == f.carta_giocata;
        if (posata) return;
        prende(lato, f.carta_giocata);
        for (int i = 1; i <= f.quante; ++i) prende(lato, f.presa[i]);
        // A capture that empties the table is a sweep, but for the last card.
        bool vuoto = true;
        for (int rr = 1; rr <= 3; ++rr)
            for (int cc = 1; cc <= 4; ++cc) vuoto = vuoto && f.tavolo[rr][cc] == 0;
        if (vuoto && f.quante > 0 && mosse < 36) ++leste[lato];
    }

    void prende(int lato, Carta c) {
        if (c == 0) return;
        ++carte[lato];
        if (denaro(c)) ++denari[lato];
        if (c == settebello_carta) settebello = lato;
    }

    int mosse = 0;
    std::array<int, 3> carte{}, denari{}, leste{};
    int settebello = 0;
};

class PartitaVera {
public:
    // How the player makes its moves: the mouse, the keys by their character
    // alone (as a platform that gives no key's place sends them), or the
    // keys by their place.
    enum Comandi { mouse, tastiera, posto };

    explicit PartitaVera(std::uint32_t seme, Comandi comandi = mouse)
        : comandi_(comandi),
          lesta_(immagini(), con_impostazioni(cartella_.percorso())),
          giocatore_(
              lesta_.gioco(), seme, [this](float x, float y) { clic_tavolo(x, y); }, tasti_del_giocatore()) {
        if (comandi == posto)
            QObject::connect(&lesta_.tavolo(), &FinestraTavoloQt::tasto, [this](char t) { giunti_ += t; });
    }

    Applicazione& lesta() { return lesta_; }
    FinestraPunteggioQt& foglio() { return lesta_.foglio(); }
    Testimone& testimone() { return testimone_; }

    void avvia() {
        lesta_.avvia();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&lesta_.tavolo()));
        ASSERT_TRUE(QTest::qWaitFor([&] { return widget(Controllo::GO)->isVisible(); }, 5000));
        ASSERT_TRUE(lesta_.tavolo().isMaximized());
        lesta_.tavolo().windowHandle()->installEventFilter(&tastiera_);
        // Maximised, the table is as wide as the screen's free area, which is
        // what the game's screen check reads.
        EXPECT_EQ(lesta_.tavolo().frameGeometry().width(), lesta_.tavolo().screen()->availableGeometry().width());
    }

    // Starts, then a single hand by keys at the quickest pace (the pause's
    // divisor at the top of its byte: a unit of 25 ms instead of High's 216).
    void avvia_a_tasti() {
        ASSERT_NO_FATAL_FAILURE(avvia());
        ASSERT_TRUE(QTest::qWaitForWindowActive(&lesta_.tavolo()));
        lesta_.gioco().velocita = 255;
        scegli(0);
    }

    // The start panel: a kind of match, then GO.
    // By keys (a single hand, the choice as the panel comes up): GO holds
    // the keyboard, and Enter starts.
    void scegli(int tipo) {
        testimone_ = {};
        lesta_.gioco().osservatore = &testimone_;
        if (comandi_ == mouse) {
            QTest::mouseClick(widget(Option1(tipo)), Qt::LeftButton);
            QTest::mouseClick(widget(Controllo::GO), Qt::LeftButton);
            return;
        }
        ASSERT_EQ(tipo, 0);
        ASSERT_TRUE(widget(Controllo::GO)->hasFocus());
        QTest::keyClick(lesta_.tavolo().windowHandle(), Qt::Key_Return);
        tastiera_.testi.clear();
    }

    // Called at each wait of the game for the player, before the player acts.
    std::function<void()> ad_ogni_attesa;

    // Plays the hand under way until the sheet comes up; false if the game
    // stops waiting for anything, or if the player's clicks or keys seem to
    // do nothing (a hand takes the player well under 200).
    bool gioca_mano() {
        const Frmlesta& f = lesta_.gioco();
        auto tocca_al_giocatore = [&] {
            return (f.modo == Modo::gioco1 && f.carta_giocata == 0) || f.modo == Modo::selezione;
        };
        // The sheet stays up behind the table between hands: what counts is
        // that it shows a finished hand that no button has answered yet.
        auto foglio_pronto = [&] { return foglio().isVisible() && foglio().frm().attende_scelta; };
        for (int colpi = 0; colpi < 200; ++colpi) {
            if (!QTest::qWaitFor([&] { return foglio_pronto() || tocca_al_giocatore(); }, attesa_massima_ms))
                return false;
            if (foglio_pronto()) return true;
            if (ad_ogni_attesa) ad_ogni_attesa();
            if (!giocatore_.clic()) return false;
        }
        return false;
    }

    // The sheet's button: the next hand, or back to the start panel.
    void continua() {
        testimone_ = {};
        QTest::mouseClick(foglio().bottone(1), Qt::LeftButton);
    }

    // The compositor shows this window in front: most of the screen in the
    // ground of its surface, and nothing in that of the other window. The
    // screen is looked at again until it does, for at most five seconds.
    ::testing::AssertionResult davanti(const char* nome, const SuperficieQt& sua, const SuperficieQt& altra) {
        double questa = 0, quella = 0;
        const bool si = QTest::qWaitFor(
            [&] {
                const QImage schermo = schermata();
                if (schermo.isNull()) return false;
                const QColor fondo = colore_qt(sua.BackColor()), altro = colore_qt(altra.BackColor());
                questa = quota(schermo, fondo);
                quella = fondo == altro ? 0 : quota(schermo, altro);
                return questa > 0.4 && quella < 0.02;
            },
            5000);
        if (si) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << nome << " is not in front: " << questa
                                             << " of the screen in its ground, " << quella << " in the other window's";
    }
    // Under a compositor, the sheet or the table is in front (the offscreen
    // screen stacks nothing, and nothing is looked at there).
    void foglio_davanti(const std::string& quando) {
        if (!fotografo().isEmpty()) {
            EXPECT_TRUE(davanti("the sheet", foglio().superficie(), lesta_.tavolo().superficie())) << quando;
        }
    }
    void tavolo_davanti(const std::string& quando) {
        if (!fotografo().isEmpty()) {
            EXPECT_TRUE(davanti("the table", lesta_.tavolo().superficie(), foglio().superficie())) << quando;
        }
    }

    QString dato(int indice) { return lesta_.foglio().etichetta({Gruppo::LBLdat, indice})->text(); }
    QString totale(int lato) { return lesta_.foglio().etichetta({Gruppo::lblTot, lato - 1})->text(); }
    QWidget* widget(Controllo c) { return lesta_.tavolo().widget(c); }

private:
    static std::filesystem::path con_impostazioni(const std::filesystem::path& cartella) {
        std::ofstream(cartella / "Config.brx", std::ios::binary) << " 3 \r\n 0 \r\n 75 \r\n";  // High, no music
        return cartella;
    }

public:
    // A click on the table at a point in logical units, as the mouse makes it.
    void clic_tavolo(float x, float y) {
        SuperficieQt& s = lesta_.tavolo().superficie();
        const QPoint pixel(static_cast<int>(std::lround(x * s.width() / 800.0)),
                           static_cast<int>(std::lround(y * s.height() / 600.0)));
        QTest::mouseClick(&s, Qt::LeftButton, {}, pixel);
    }

    // A key ('1' or 'Q') pressed and let go on the table window: the window
    // gives it to the control that holds the keyboard, as it does a person's.
    // Every other digit comes from the keypad, and every other letter with
    // Shift.
    void tasto(char t, Qt::KeyboardModifiers modificatori = {}) {
        const bool cifra = t >= '0' && t <= '9';
        if (++tasti_ % 2 == 0) modificatori |= cifra ? Qt::KeypadModifier : Qt::ShiftModifier;
        QTest::keyClick(lesta_.tavolo().windowHandle(), static_cast<Qt::Key>(t), modificatori);
    }

    // A key at the place where a US keyboard prints this name. On X11 the
    // key itself, pressed through the server whatever its layout, and then
    // waited for until the table has seen it let go; elsewhere the key as a
    // Russian or a French keyboard sends it, by turns: the place's code with
    // that layout's character.
    void tasto_al_posto(char nome) {
        const prova::TastoCheGioca& t = prova::tasto_di_nome(nome);
        premuti_ += nome;
        if (QGuiApplication::platformName() == QLatin1String("xcb")) {
            const int prima = tastiera_.rilasci;
            QProcess::execute(QStringLiteral("xdotool"), {QStringLiteral("key"), QString::number(t.codice_x)});
            EXPECT_TRUE(QTest::qWaitFor([&] { return tastiera_.rilasci > prima; }, 5000)) << nome;
            return;
        }
        const prova::Segno segno = ++tasti_ % 2 == 0 ? t.fr : t.ru;
        for (QEvent::Type tipo : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent e = prova::evento_tasto(tipo, t.codice_x, segno);
            QCoreApplication::sendEvent(lesta_.tavolo().windowHandle(), &e);
        }
    }

    // The keys pressed by their place, the names the table gave them, and
    // what the keyboard's layout typed with them (from the first key after
    // the start panel's).
    const std::string& premuti() const { return premuti_; }
    const std::string& giunti() const { return giunti_; }
    const QString& battuti() const { return tastiera_.testi; }
    // What a layout types with the keys pressed so far: "fr", "ru", or those
    // two by turns, as tasto_al_posto sends them off X11.
    QString battuti_con(std::string_view layout) const {
        QString testi;
        for (std::size_t i = 0; i < premuti_.size(); ++i) {
            const prova::TastoCheGioca& t = prova::tasto_di_nome(premuti_[i]);
            const bool fr = layout == "fr" || (layout != "ru" && i % 2 == 1);
            testi += QString::fromUtf16((fr ? t.fr : t.ru).testo);
        }
        return testi;
    }

private:
    GiocatoreCasuale::Tasto tasti_del_giocatore() {
        switch (comandi_) {
            case mouse: return {};
            case tastiera: return [this](char t) { tasto(t); };
            case posto: return [this](char t) { tasto_al_posto(t); };
        }
        return {};
    }

    // What a window has seen of the keyboard: the text of each key pressed,
    // and how many were let go.
    struct Tastiera final : QObject {
        bool eventFilter(QObject*, QEvent* e) override {
            if (e->type() == QEvent::KeyPress) testi += static_cast<QKeyEvent*>(e)->text();
            rilasci += e->type() == QEvent::KeyRelease;
            return false;
        }
        QString testi;
        int rilasci = 0;
    };

    Comandi comandi_;
    prova::CartellaTemporanea cartella_;
    Applicazione lesta_;
    GiocatoreCasuale giocatore_;
    Testimone testimone_;
    int tasti_ = 0;
    Tastiera tastiera_;
    std::string premuti_, giunti_;
};

QString numero(int n) { return QStringLiteral(" %1").arg(n); }
QString si_no(bool si) { return si ? QStringLiteral("YES") : QStringLiteral("NO"); }

// The points of one side's row as the sheet shows it.
int punti_della_riga(PartitaVera& p, int primo) {
    return (p.dato(primo).toInt() > 20) + (p.dato(primo + 1).toInt() > 5) + (p.dato(primo + 2) == "YES") +
           (p.dato(primo + 3) == "YES") + p.dato(primo + 4).toInt();
}

// Checks the hand's row against the witness; returns the points of the hand.
std::array<int, 3> controlla_riga(PartitaVera& p, int riga) {
    const Testimone& t = p.testimone();
    const int primo = 13 + 10 * riga;
    // The deck comes from the system's generator: on a failure, this is the hand.
    std::string mazzo;
    for (int i = 1; i <= 40; ++i) mazzo += std::to_string(p.lesta().gioco().mod.mazzo[i]) + " ";
    SCOPED_TRACE("deck: " + mazzo);
    // 36 cards played, and the gathering of what is left, if anything is.
    EXPECT_TRUE(t.mosse == 36 || t.mosse == 37) << t.mosse;
    EXPECT_EQ(t.carte[1] + t.carte[2], 40);
    EXPECT_EQ(p.dato(primo), numero(t.carte[1]));
    EXPECT_EQ(p.dato(primo + 5), numero(t.carte[2]));
    EXPECT_EQ(p.dato(primo + 1), numero(t.denari[1]));
    EXPECT_EQ(p.dato(primo + 6), numero(t.denari[2]));
    EXPECT_EQ(p.dato(primo + 3), si_no(t.settebello == 1));
    EXPECT_EQ(p.dato(primo + 8), si_no(t.settebello == 2));
    EXPECT_FALSE(p.dato(primo + 2) == "YES" && p.dato(primo + 7) == "YES");
    EXPECT_EQ(p.dato(primo + 4), numero(t.leste[1]));
    EXPECT_EQ(p.dato(primo + 9), numero(t.leste[2]));
    return {0, punti_della_riga(p, primo), punti_della_riga(p, primo + 5)};
}

// The sheet of a single hand agrees with the table, and its totals are the
// hand's points.
void controlla_mano_singola(PartitaVera& p) {
    const auto punti = controlla_riga(p, 0);
    EXPECT_EQ(p.totale(1), numero(punti[1]));
    EXPECT_EQ(p.totale(2), numero(punti[2]));
}

TEST(FinestreVere, TheScreenIsLargeEnoughForTheGame) {
    // Without this, the game ends at its screen check and nothing below runs.
    ASSERT_GE(QGuiApplication::primaryScreen()->availableGeometry().width(), 1024);
}

// Under a compositor the tests below look at the screen; a run that cannot
// take a picture of it fails here rather than check nothing.
TEST(FinestreVere, UnderACompositorTheScreenCanBeSeen) {
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) GTEST_SKIP() << "offscreen: no compositor";
    ASSERT_FALSE(fotografo().isEmpty()) << "LESTA_SCHERMATA names no screenshot program";
    const QImage schermo = schermata();
    ASSERT_FALSE(schermo.isNull()) << fotografo().toStdString() << " took no screenshot";
    EXPECT_EQ(schermo.size(), QGuiApplication::primaryScreen()->geometry().size() *
                                  QGuiApplication::primaryScreen()->devicePixelRatio());
}

TEST(FinestreVere, ASingleHandPlayedByMouseEndsOnASheetThatAgreesWithTheTable) {
    PartitaVera p(11);
    p.avvia();
    p.tavolo_davanti("the start panel");
    p.scegli(0);
    ASSERT_TRUE(p.gioca_mano());
    p.foglio_davanti("the end of the hand");
    controlla_mano_singola(p);
    EXPECT_EQ(p.foglio().bottone(1)->text(), "NEW GAME");

    p.continua();
    EXPECT_TRUE(QTest::qWaitFor([&] { return p.widget(Controllo::GO)->isVisible(); }, 10'000));
    p.tavolo_davanti("after NEW GAME");
}

// A single hand with every card played and every table card chosen by its
// key. First, at the player's first turn: the English rules, clicked, keep
// the keys typed in them; a click on the bare table closes them and gives the
// keys back to the table; a key with Alt plays nothing; and the Italian
// rules, reached by Tab, keep their keys too, though they are read only.
// Quicker than the mouse's hand, as the match below.
TEST(FinestreVere, ASingleHandPlayedByKeysEndsOnASheetThatAgreesWithTheTable) {
    PartitaVera p(23, PartitaVera::tastiera);
    ASSERT_NO_FATAL_FAILURE(p.avvia_a_tasti());
    const Frmlesta& f = p.lesta().gioco();
    ASSERT_TRUE(QTest::qWaitFor([&] { return f.modo == Modo::gioco1; }, attesa_massima_ms));

    p.lesta().tavolo().voce_english()->trigger();
    auto* regole = static_cast<QPlainTextEdit*>(p.widget(Controllo::Text2));
    ASSERT_TRUE(regole->isVisible());
    QTest::mouseClick(regole->viewport(), Qt::LeftButton, {}, QPoint(5, 5));
    p.tasto('1');
    p.tasto('Q');
    EXPECT_TRUE(regole->toPlainText().contains(QStringLiteral("1q"), Qt::CaseInsensitive));
    EXPECT_EQ(f.carta_giocata, 0);
    p.clic_tavolo(250, 560);
    EXPECT_FALSE(regole->isVisible());
    p.tasto('2', Qt::AltModifier);
    EXPECT_EQ(f.carta_giocata, 0);
    p.lesta().tavolo().voce_italiano()->trigger();
    QTest::keyClick(p.lesta().tavolo().windowHandle(), Qt::Key_Tab);
    ASSERT_TRUE(p.widget(Controllo::Text3)->hasFocus());
    p.tasto('3');
    EXPECT_EQ(f.carta_giocata, 0);
    p.clic_tavolo(250, 560);

    ASSERT_TRUE(p.gioca_mano());
    controlla_mano_singola(p);
}

// A single hand played by the keys' places: on any layout the same twelve
// keys, in the same rectangle, choose the table's cards, and 1, 2 and 3 the
// hand's. Each key reaches the game as the name a US keyboard prints on it,
// whatever the layout typed with it. On X11, LESTA_LAYOUT names the layout
// the server was given, and the keys must have typed what it types.
TEST(FinestreVere, ASingleHandPlayedByTheKeysPlacesOnAnyLayout) {
    PartitaVera p(31, PartitaVera::posto);
    ASSERT_NO_FATAL_FAILURE(p.avvia_a_tasti());
    ASSERT_TRUE(p.gioca_mano()) << "keys pressed: " << p.premuti() << ", keys named: " << p.giunti();
    EXPECT_EQ(p.giunti(), p.premuti());
    const bool x11 = QGuiApplication::platformName() == QLatin1String("xcb");
    const std::string layout = x11 ? qEnvironmentVariable("LESTA_LAYOUT").toStdString() : "";
    if (x11) {
        ASSERT_TRUE(layout == "fr" || layout == "ru") << "LESTA_LAYOUT: \"" << layout << '"';
    }
    EXPECT_EQ(p.battuti(), p.battuti_con(layout));
    controlla_mano_singola(p);
}

// Enter or the space bar starts the match, of the kind last chosen, whatever
// holds the keyboard on the start panel: a match choice just clicked, or the
// table, after a click in the English rules and then one on the table that
// closes them.
TEST(FinestreVere, EnterStartsTheMatchAfterAClickOnAChoiceOrOnThePanelsAndTheTable) {
    struct Caso {
        const char* come;
        int tipo;
        Qt::Key tasto;
        bool dalle_regole;
    };
    for (const Caso caso : {Caso{"Single Game", 0, Qt::Key_Return, false},
                            {"11 points Game", 1, Qt::Key_Return, false},
                            {"21 points Game", 2, Qt::Key_Space, false},
                            {"the rules, then the table", 0, Qt::Key_Return, true}}) {
        SCOPED_TRACE(caso.come);
        PartitaVera p(3);
        ASSERT_NO_FATAL_FAILURE(p.avvia());
        if (caso.dalle_regole) {
            p.lesta().tavolo().voce_english()->trigger();
            auto* regole = static_cast<QPlainTextEdit*>(p.widget(Controllo::Text2));
            QTest::mouseClick(regole->viewport(), Qt::LeftButton, {}, QPoint(5, 5));
            ASSERT_TRUE(regole->hasFocus());
            p.clic_tavolo(700, 500);
            ASSERT_FALSE(regole->isVisible());
        } else {
            QTest::mouseClick(p.widget(Option1(caso.tipo)), Qt::LeftButton);
        }
        QTest::keyClick(p.lesta().tavolo().windowHandle(), caso.tasto);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !p.widget(Controllo::GO)->isVisible(); }, 5000));
        EXPECT_EQ(p.lesta().gioco().mod.tipo_partita, caso.tipo);
    }
}

// What the game hands to a screen reader: the kind of event, and the role
// and name of the object it is about.
struct Sentito {
    QAccessible::Event tipo;
    QAccessible::Role ruolo;
    QString nome;
};

// A single hand played by keys with the game told as to a screen reader: the
// notifications it shows name every card of both sides as it is played and
// taken, each deal and each lesta, in the order they happen; at each of the
// player's turns the table's objects name the hand and the table as they
// stand; and the sheet comes with its first button holding the keyboard,
// its reading telling the hand's points as the sheet shows them.
TEST(FinestreVere, AHandPlayedByEarIsToldAsItHappensAndTheTableNamesWhatItShows) {
    PartitaVera p(47, PartitaVera::tastiera);
    p.avvia();
    std::vector<Sentito> sentiti;
    p.lesta().cronista().ascolta_senza_lettore([&sentiti](QAccessibleEvent& e) {
        if (QAccessibleInterface* oggetto = e.accessibleInterface())
            sentiti.push_back({e.type(), oggetto->role(), oggetto->text(QAccessible::Name)});
    });
    p.lesta().gioco().velocita = 255;
    p.scegli(0);
    prova::RaccontoAtteso racconto(false, &p.testimone());
    const Frmlesta& f = p.lesta().gioco();
    p.lesta().gioco().osservatore = &racconto;

    int turni = 0;
    p.ad_ogni_attesa = [&] {
        ++turni;
        QAccessibleInterface* tavolo = QAccessible::queryAccessibleInterface(&p.lesta().tavolo().superficie());
        ASSERT_NE(tavolo, nullptr);
        for (int k = 1; k <= 3; ++k) {
            const bool in_mano = f.giocate[k] == 0;
            const std::string atteso =
                std::to_string(k) + ": " + (in_mano ? racconto.nome(f.mod.mazzo[f.posizione_mazzo - 3 + k]) : "empty");
            EXPECT_EQ(tavolo->child(k - 1)->text(QAccessible::Name).toStdString(), atteso);
        }
        for (int cella = 0; cella < 12; ++cella) {
            const Carta c = f.tavolo[cella / 4 + 1][cella % 4 + 1];
            std::string atteso = std::string(1, tasti_celle[static_cast<std::size_t>(cella)]) + ": " +
                                 (c != 0 ? racconto.nome(c) : "empty");
            if (c != 0 && f.carta[c].tag == Tag::SEL) atteso += ", marked";
            EXPECT_EQ(tavolo->child(3 + cella)->text(QAccessible::Name).toStdString(), atteso);
        }
    };
    ASSERT_TRUE(p.gioca_mano());
    EXPECT_GT(turni, 18);

    std::vector<std::string> notifiche;
    for (const Sentito& s : sentiti)
        if (s.tipo == QAccessible::ObjectShow && s.ruolo == QAccessible::Notification)
            notifiche.push_back(s.nome.toStdString());
    EXPECT_TRUE(racconto.sentito_in(notifiche));
    EXPECT_EQ(racconto.mosse, p.testimone().mosse);

    const auto punti = controlla_riga(p, 0);
    QPushButton* avanti = p.foglio().bottone(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return avanti->hasFocus(); }, 5000));
    const QString lettura = avanti->accessibleDescription();
    for (int lato = 1; lato <= 2; ++lato) {
        const QString riga = QStringLiteral("Leste %1; %2 point").arg(p.testimone().leste[lato]).arg(punti[lato]);
        EXPECT_TRUE(lettura.contains(riga)) << lettura.toStdString() << " has no " << riga.toStdString();
    }
    QTest::keyClick(avanti, Qt::Key_Return);  // Enter goes on
    EXPECT_TRUE(QTest::qWaitFor([&] { return p.widget(Controllo::GO)->isVisible(); }, 10'000));
}

TEST(FinestreVere, AMatchTo11GoesOnUntilASideHasWonAndThenStartsAgain) {
    PartitaVera p(5);
    p.avvia();
    // The same real timers, with the pause's divisor at the top of its byte:
    // a unit of 25 ms instead of High's 216, and the match in about a minute
    // instead of six.
    p.lesta().gioco().velocita = 255;
    p.scegli(1);
    std::array<int, 3> totali{};
    for (int riga = 0;; ++riga) {
        ASSERT_LT(riga, 12) << "a match to 11 that never ends";
        ASSERT_TRUE(p.gioca_mano()) << "hand " << riga + 1;
        p.foglio_davanti("the end of hand " + std::to_string(riga + 1));
        const auto punti = controlla_riga(p, riga);
        totali[1] += punti[1];
        totali[2] += punti[2];
        EXPECT_EQ(p.totale(1), numero(totali[1]));
        EXPECT_EQ(p.totale(2), numero(totali[2]));
        const bool finita = totali[1] != totali[2] && std::max(totali[1], totali[2]) >= 11;
        ASSERT_EQ(p.foglio().bottone(1)->text(), finita ? "NEW GAME" : "CONTINUE");
        p.continua();
        p.tavolo_davanti("after hand " + std::to_string(riga + 1));
        if (finita) break;
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return p.widget(Controllo::GO)->isVisible(); }, 10'000));
}

}  // namespace
}  // namespace lesta
