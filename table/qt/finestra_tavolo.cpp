// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/qt/finestra_tavolo.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QShowEvent>
#include <QTextDocument>
#include <QTextOption>
#include <QVBoxLayout>
#include <QWindow>
#include <cmath>

#include "table/qt/controllo_figura.h"
#include "table/qt/cronista_qt.h"
#include "table/qt/immagini.h"
#include "table/qt/nome_tasto.h"
#include "table/qt/superficie_qt.h"
#include "table/testi_aiuto.h"
#include "turns/frasi.h"

namespace lesta {

namespace {

QString css(Colore c) { return colore_qt(c).name(); }

// The keys that keep a key from playing.
constexpr auto altri_tasti = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

// A control named for a player who follows the game by ear, if the game
// names it (the panels, the lights, the lamp, the title).
void nomina(QWidget* w, Controllo c) {
    const std::string_view nome = nome_controllo(c, lingua_del_desktop());
    if (!nome.empty()) w->setAccessibleName(QString::fromUtf8(nome.data(), static_cast<qsizetype>(nome.size())));
}

// The frame round the match choice: a rounded outline, clear inside.
class Cornice final : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(palette().color(QPalette::Base), 1));
        const qreal raggio = std::min(width(), height()) / 8.0;
        p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), raggio, raggio);
    }
};

// The tables of the rules (a name, a tab, the points) line up their points
// in one column, a blank to the right of the longest name.
void allinea_tabelle(QPlainTextEdit* testo) {
    const QFontMetricsF misure(testo->font());
    qreal piu_lungo = 0;
    for (const QString& riga : testo->toPlainText().split(QLatin1Char('\n'))) {
        const qsizetype tab = riga.indexOf(QLatin1Char('\t'));
        if (tab >= 0) piu_lungo = std::max(piu_lungo, misure.horizontalAdvance(riga.left(tab)));
    }
    if (piu_lungo > 0) testo->setTabStopDistance(piu_lungo + misure.horizontalAdvance(QLatin1Char(' ')));
}

// A font of this many points, italic or not: its size does not follow the
// window's.
QFont in_punti(const QWidget* w, double punti, bool corsivo = false) {
    QFont f = w->font();
    f.setPointSizeF(punti);
    f.setItalic(corsivo);
    return f;
}

// A radio button of the match choice, in the panel's colours.
QRadioButton* opzione_partita(const char* nome, QWidget* genitore) {
    auto* b = new QRadioButton(QString::fromLatin1(nome), genitore);
    b->setAutoFillBackground(true);
    b->setStyleSheet(QStringLiteral("QRadioButton { background: %1; color: %2; padding-left: 4px; }")
                         .arg(css(0xC0E0FF), css(0x000080)));
    b->setFont(in_punti(b, 8));
    return b;
}

// The song's title button: the title in italics, broken over lines as a
// button does.
QPushButton* bottone_canzone(QWidget* genitore) {
    auto* canzone = new QPushButton(genitore);
    canzone->setStyleSheet(
        QStringLiteral("QPushButton { background: %1; border: 1px solid #404040; }").arg(css(0xC0FFFF)));
    auto* titolo = new QLabel(canzone);
    titolo->setObjectName(QStringLiteral("titolo"));
    titolo->setAlignment(Qt::AlignCenter);
    titolo->setWordWrap(true);
    titolo->setAttribute(Qt::WA_TransparentForMouseEvents);
    titolo->setFont(in_punti(titolo, 9.75, true));
    auto* disposizione = new QVBoxLayout(canzone);
    disposizione->setContentsMargins(3, 3, 3, 3);
    disposizione->addWidget(titolo);
    return canzone;
}

// A help panel: the rules in English (the player may write in them), the
// rules in Italian, or the information, centred and with no scroll bar.
QPlainTextEdit* pannello_aiuto(Controllo pannello, std::string_view contenuto, QWidget* genitore) {
    auto* testo = new QPlainTextEdit(genitore);
    testo->setStyleSheet(QStringLiteral("QPlainTextEdit { background: %1; color: black; }").arg(css(0xC0FFFF)));
    testo->setPlainText(QString::fromUtf8(contenuto.data(), static_cast<qsizetype>(contenuto.size())));
    testo->setReadOnly(pannello != Controllo::Text2);
    testo->setLineWrapMode(QPlainTextEdit::NoWrap);
    testo->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    if (pannello == Controllo::Text4) {
        testo->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        QTextOption opzione = testo->document()->defaultTextOption();
        opzione.setAlignment(Qt::AlignHCenter);
        testo->document()->setDefaultTextOption(opzione);
    } else {
        testo->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    }
    return testo;
}

}  // namespace

FinestraTavoloQt::FinestraTavoloQt(Immagini& immagini) : immagini_(immagini) {
    setWindowTitle(QStringLiteral("Brontex - Lesta"));
    setWindowIcon(QIcon(QPixmap::fromImage(immagini_.immagine(Figura::Icona, QSize(32, 32)))));
    // A fixed frame: minimise and close, no maximise.
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint);

    superficie_ = new SuperficieQt(immagini_, this);
    setCentralWidget(superficie_);
    // The design size of the table's client area, for the moment before the
    // window is maximised.
    resize(1018, 773 + menuBar()->sizeHint().height());
    connect(superficie_, &SuperficieQt::ridimensionata, this, &FinestraTavoloQt::posiziona_tutti);

    // The title fills its box; it is the one control of the first frames.
    auto* titolo = new ControlloFigura(immagini_, Figura::Titolo, superficie_);
    titolo->hide();
    nomina(titolo, Controllo::testo);
    widget_[static_cast<std::size_t>(Controllo::testo)] = titolo;
    crea_menu();
}

// The other controls are built when the game first shows one or names one,
// or by completa(): the window comes up without them, as none shows in its
// first frames. Each is built hidden, at the place the game and the window's
// size have given it meanwhile, with the caption it was given. The song
// frame's holder has none: the frame is painted on the table.
void FinestraTavoloQt::crea_controlli() {
    if (widget_[static_cast<std::size_t>(Controllo::Led)] != nullptr) return;
    auto metti = [this](Controllo c, QWidget* w) {
        w->hide();
        nomina(w, c);
        widget_[static_cast<std::size_t>(c)] = w;
        posiziona(c);
    };

    // The lamp and the turn lights show at their own size, 13 and 32 pixels
    // square, as pictures in a picture box do.
    auto* led = new ControlloFigura(immagini_, Figura::Led, superficie_, QSize(13, 13));
    led->setAttribute(Qt::WA_TransparentForMouseEvents);
    metti(Controllo::Led, led);
    for (int i = 0; i < 2; ++i) {
        metti(Verde(i), new ControlloFigura(immagini_, Figura::Verde, superficie_, QSize(32, 32)));
        metti(Rosso(i), new ControlloFigura(immagini_, Figura::Rosso, superficie_, QSize(32, 32)));
        widget_[static_cast<std::size_t>(Verde(i))]->installEventFilter(this);
        widget_[static_cast<std::size_t>(Rosso(i))]->installEventFilter(this);
    }

    auto* cornice = new Cornice(superficie_);
    cornice->setAttribute(Qt::WA_TransparentForMouseEvents);
    metti(Controllo::Shape1, cornice);
    opzioni_ = new QButtonGroup(this);
    const char* nomi[] = {"Single Game", "11 points Game", "21 points Game"};
    for (int i = 0; i < 3; ++i) {
        auto* b = opzione_partita(nomi[i], superficie_);
        opzioni_->addButton(b, i);
        metti(Option1(i), b);
    }
    // The first match is a single hand unless the player picks another.
    opzioni_->button(0)->setChecked(true);
    connect(opzioni_, &QButtonGroup::idClicked, this, &FinestraTavoloQt::opzione);
    // GO says which match it starts, for a player who follows the game by ear.
    auto scelta_su_go = [this] {
        const QAbstractButton* scelta = opzioni_->checkedButton();
        if (scelta == nullptr) return;  // between one choice and the next
        const std::string testo = frasi::partita_scelta(lingua_del_desktop(), scelta->text().toStdString());
        widget_[static_cast<std::size_t>(Controllo::GO)]->setAccessibleDescription(QString::fromStdString(testo));
    };
    connect(opzioni_, &QButtonGroup::idToggled, this, scelta_su_go);
    auto* go = new QPushButton(QStringLiteral("GO"), superficie_);
    go->setAutoDefault(true);  // Enter presses it while it has the keyboard
    go->setFont(in_punti(go, 8));
    go->setStyleSheet(QStringLiteral("QPushButton { background: %1; border: 1px solid #404040; }"
                                     "QPushButton:focus { border: 2px solid black; }")
                          .arg(css(0x80FF80)));
    connect(go, &QPushButton::clicked, this, &FinestraTavoloQt::go);
    metti(Controllo::GO, go);
    scelta_su_go();

    QPushButton* canzone = bottone_canzone(superficie_);
    canzone->findChild<QLabel*>(QStringLiteral("titolo"))->setText(titolo_canzone_);
    canzone->setAccessibleName(titolo_canzone_);  // the button's words are its label's
    metti(Controllo::CmdSong, canzone);
}

// The help panels, the dearest controls to build (their texts are laid out
// line by line), come later still: none shows before the player asks. Built
// after the others, they stand above them.
void FinestraTavoloQt::crea_pannelli() {
    if (widget_[static_cast<std::size_t>(Controllo::Text2)] != nullptr) return;
    crea_controlli();
    const std::pair<Controllo, std::string_view> pannelli[] = {
        {Controllo::Text2, testo_inglese}, {Controllo::Text3, testo_italiano}, {Controllo::Text4, testo_informazioni}};
    for (auto [pannello, contenuto] : pannelli) {
        QPlainTextEdit* testo = pannello_aiuto(pannello, contenuto, superficie_);
        testo->hide();
        nomina(testo, pannello);
        widget_[static_cast<std::size_t>(pannello)] = testo;
        posiziona(pannello);
        if (pannello != Controllo::Text2) testo->viewport()->installEventFilter(this);
    }
}

void FinestraTavoloQt::completa() { crea_pannelli(); }

QWidget* FinestraTavoloQt::widget(Controllo c) {
    QWidget*& w = widget_[static_cast<std::size_t>(c)];
    if (w == nullptr && pannello(c)) crea_pannelli();
    if (w == nullptr) crea_controlli();
    return w;
}

// The window's own events: its first coming on screen, and the keys that
// press GO, taken on their way to it (see showEvent). And a click on the
// Italian rules, on the information or on a turn light: not a click on the
// table, it goes to the game as the control's own, and no further.
bool FinestraTavoloQt::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == windowHandle()) {
        if (evento->type() == QEvent::Expose && !esposta_ && windowHandle()->isExposed()) {
            esposta_ = true;
            emit prima_volta();
        }
        return evento->type() == QEvent::KeyPress && premi_go(*static_cast<QKeyEvent*>(evento));
    }
    if (evento->type() != QEvent::MouseButtonPress) return false;
    for (Controllo c : {Controllo::Text3, Controllo::Text4}) {
        auto* testo = static_cast<QPlainTextEdit*>(widget_[static_cast<std::size_t>(c)]);
        if (testo != nullptr && oggetto == testo->viewport()) {
            emit cliccato(c);
            return true;
        }
    }
    for (int i = 0; i < 2; ++i) {
        for (Controllo c : {Verde(i), Rosso(i)}) {
            if (oggetto == widget_[static_cast<std::size_t>(c)]) {
                emit cliccato(c);
                return true;
            }
        }
    }
    return false;
}

void FinestraTavoloQt::crea_menu() {
    QMenuBar* barra = menuBar();

    // Every mark of the menus is a check mark, the speeds' too: the game
    // keeps them one of three itself.
    QMenu* velocita = barra->addMenu(QStringLiteral("&Play rate"));
    const char* nomi[] = {"", "Low", "Middle", "High"};
    for (int i = 1; i <= 3; ++i) {
        QAction* a = velocita->addAction(QString::fromLatin1(nomi[i]));
        a->setCheckable(true);
        connect(a, &QAction::triggered, this, [this, i] { emit velocita_gioco(i); });
        velocita_[static_cast<std::size_t>(i)] = a;
    }

    QMenu* regole = barra->addMenu(QStringLiteral("&Game rules"));
    italiano_ = regole->addAction(QStringLiteral("Italiano"));
    english_ = regole->addAction(QStringLiteral("English"));

    musica_ = barra->addMenu(QStringLiteral("&Music"));
    nomusic_ = musica_->addAction(QStringLiteral("None"));
    nomusic_->setCheckable(true);
    connect(nomusic_, &QAction::triggered, this, &FinestraTavoloQt::nessuna_musica);
    all_ = musica_->addAction(QStringLiteral("SEQUENTIAL MODE"));
    all_->setCheckable(true);
    connect(all_, &QAction::triggered, this, &FinestraTavoloQt::tutte_le_canzoni);

    info_ = barra->addAction(QStringLiteral("&Info"));
    esci_ = barra->addAction(QStringLiteral("&QUIT"));
    connect(esci_, &QAction::triggered, this, &FinestraTavoloQt::esci);
}

// ---- the controls ----
void FinestraTavoloQt::controllo_cambiato(Controllo c, const Rett& r, bool visibile, bool in_primo_piano) {
    rett_[static_cast<std::size_t>(c)] = r;
    // A control not yet built keeps its place for when it is, and is built
    // to be shown. (What is brought to the front is shown, so nothing is lost
    // of the order of the controls while they are hidden.)
    QWidget* w = visibile ? widget(c) : widget_[static_cast<std::size_t>(c)];
    if (w == nullptr) return;
    posiziona(c);
    // A control that goes holds the keyboard no more: the table takes it, so
    // that the keys play again. (Qt would leave it with a hidden panel when no
    // other control can hold it, and the keys would write there unseen.)
    if (!visibile && tiene_tastiera(c)) superficie_->setFocus();
    const bool compare = visibile && !w->isVisible();
    w->setVisible(visibile);
    if (in_primo_piano) w->raise();
    // GO takes the keyboard as the start panel comes up, so that Enter or the
    // space bar starts the match as a click does; Tab and the arrows reach
    // the match choice.
    if (c == Controllo::GO && compare) w->setFocus();
}

void FinestraTavoloQt::posiziona(Controllo c) {
    QWidget* w = widget_[static_cast<std::size_t>(c)];
    if (w == nullptr) return;
    w->setGeometry(superficie_->in_pixel(rett_[static_cast<std::size_t>(c)]));
    if (auto* testo = qobject_cast<QPlainTextEdit*>(w)) {
        // The texts are broken by hand at about 38 characters, for the width
        // of the rules panels.
        const int larghezza_regole = superficie_->in_pixel(rettangolo_iniziale(Controllo::Text2)).width();
        QFont f = w->font();
        f.setPixelSize(std::max(8, larghezza_regole / 22));
        w->setFont(f);
        allinea_tabelle(testo);
    }
}

// The controls keep their logical places at any size of the window.
void FinestraTavoloQt::posiziona_tutti() {
    for (int i = 0; i < numero_controlli; ++i) posiziona(static_cast<Controllo>(i));
}

void FinestraTavoloQt::spunta(Voce voce, int indice, bool spuntata) {
    QAction* voce_menu = nullptr;
    switch (voce) {
        case Voce::velocita_gioco:
            if (indice >= 1 && indice <= 3) voce_menu = velocita_[static_cast<std::size_t>(indice)];
            break;
        case Voce::nomusic: voce_menu = nomusic_; break;
        case Voce::All: voce_menu = all_; break;
        case Voce::canzoni: voce_menu = voce_canzone(indice); break;
    }
    if (voce_menu != nullptr) voce_menu->setChecked(spuntata);
}

// The check marks are the game's: a menu entry does not check itself, the
// game checks what it decides.
void FinestraTavoloQt::voce_canzone(int indice, std::string_view titolo) {
    if (indice < 1) return;
    if (static_cast<int>(canzoni_.size()) <= indice) canzoni_.resize(static_cast<std::size_t>(indice) + 1, nullptr);
    auto*& voce = canzoni_[static_cast<std::size_t>(indice)];
    if (voce == nullptr) {
        voce = musica_->addAction(QString());
        voce->setCheckable(true);
        connect(voce, &QAction::triggered, this, [this, indice] { emit canzone(indice); });
    }
    voce->setText(QString::fromUtf8(titolo.data(), static_cast<qsizetype>(titolo.size())));
}

QAction* FinestraTavoloQt::voce_canzone(int indice) const {
    return indice >= 1 && indice < static_cast<int>(canzoni_.size()) ? canzoni_[static_cast<std::size_t>(indice)]
                                                                     : nullptr;
}

void FinestraTavoloQt::caption(Controllo c, std::string_view testo) {
    const QString t = QString::fromUtf8(testo.data(), static_cast<qsizetype>(testo.size()));
    if (c == Controllo::CmdSong) titolo_canzone_ = t;  // for the button, if it is not built yet
    QWidget* w = widget_[static_cast<std::size_t>(c)];
    if (w == nullptr) return;
    if (c == Controllo::CmdSong) {
        w->findChild<QLabel*>(QStringLiteral("titolo"))->setText(t);
        w->setAccessibleName(t);
    } else if (auto* bottone = qobject_cast<QAbstractButton*>(w))
        bottone->setText(t);
}

int FinestraTavoloQt::larghezza_pixel() const {
    // The window is maximised: its width is that of the screen's free area,
    // which is known at once, before the window manager has done its work.
    const QScreen* schermo = screen();
    return schermo != nullptr ? schermo->availableGeometry().width() : frameGeometry().width();
}

// ---- the window's own events ----
void FinestraTavoloQt::closeEvent(QCloseEvent* evento) {
    evento->ignore();
    emit chiusa();
}

// A shown window is not yet on screen: the window manager first gives it
// its place and its maximised size, and only then shows it. The first time
// it comes on screen is told as it comes, before it is painted.
void FinestraTavoloQt::showEvent(QShowEvent* evento) {
    QMainWindow::showEvent(evento);
    // The window's own events are looked at on their way to it (its handle
    // exists from the first show): its first coming on screen, and the keys
    // that press GO.
    if (!mostrata_) {
        mostrata_ = true;
        windowHandle()->installEventFilter(this);
    }
}

// A key comes here when nothing on the window takes it: the table holds the
// keyboard, or a control that has no use for the key. The game judges it
// (Frmlesta::Form_KeyDown) by the name a US keyboard prints on it: the key
// counts by its place, so that the same keys, in the same rectangle, play on
// every layout (see nome_del_tasto). Not a key while a help panel holds the
// keyboard: the English rules can be written in, and the others are the
// player's reading. Not with Ctrl, Alt or Meta: Alt and a letter opens a
// menu, and the menus take those keys before any window sees them. Shift
// does not matter. A key held down plays once, as a held mouse button clicks
// once.
void FinestraTavoloQt::keyPressEvent(QKeyEvent* evento) {
    const char nome = nome_del_tasto(*evento);
    if (nome == 0 || evento->isAutoRepeat() || (evento->modifiers() & altri_tasti) || pannello_con_tastiera()) {
        QMainWindow::keyPressEvent(evento);
        return;
    }
    emit tasto(nome);
}

// Enter and the space bar press GO whenever the start panel shows, whatever
// holds the keyboard: a match choice, GO, the table, the song's button, or
// the Italian rules or the information, which are only read. The English
// rules keep them, as they keep every key: there they write, and a blank
// typed in them starts nothing. So does the menu bar, reached by Alt: there
// Enter opens the menu it points at. The keys are taken on their way to the
// window, before the control that holds the keyboard sees them, so that the
// space bar does not pick the choice that holds it; the arrows still go to
// the choices and move between them. Held down, or with Ctrl, Alt or Meta,
// Enter and the space bar do nothing there.
bool FinestraTavoloQt::premi_go(const QKeyEvent& e) {
    const bool avvio = e.key() == Qt::Key_Return || e.key() == Qt::Key_Enter || e.key() == Qt::Key_Space;
    auto* go = static_cast<QAbstractButton*>(widget_[static_cast<std::size_t>(Controllo::GO)]);
    if (!avvio || go == nullptr || !go->isVisible() || tiene_tastiera(Controllo::Text2) || focusWidget() == menuBar())
        return false;
    if (!e.isAutoRepeat() && !(e.modifiers() & altri_tasti)) go->click();
    return true;
}

bool FinestraTavoloQt::tiene_tastiera(Controllo c) const {
    const QWidget* attivo = focusWidget();
    const QWidget* w = widget_[static_cast<std::size_t>(c)];  // a control not built holds nothing
    return attivo != nullptr && w != nullptr && (attivo == w || w->isAncestorOf(attivo));
}

bool FinestraTavoloQt::pannello_con_tastiera() const {
    return tiene_tastiera(Controllo::Text2) || tiene_tastiera(Controllo::Text3) || tiene_tastiera(Controllo::Text4);
}

}  // namespace lesta
