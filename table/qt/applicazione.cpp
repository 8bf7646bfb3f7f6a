// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/qt/applicazione.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>

#include "scoring/lettura_foglio.h"
#include "table/qt/cornice_fissa.h"
#include "table/qt/superficie_qt.h"

namespace lesta {

Applicazione::Applicazione(Immagini& immagini, std::filesystem::path cartella)
    : immagini_(immagini),
      tavolo_(immagini),
      frm_(Piattaforma{tavolo_, orologio_, casuale_, musica_, suono_, *this, cronista_}, mod_, std::move(cartella)) {
    // The program folder's settings file, or the player's own when the game
    // is installed where the player may not write.
    frm_.posto_impostazioni = trova_posto_impostazioni(frm_.cartella);
    cronista_.leggi(frm_);
    orologio_.al_timer2 = [this] { frm_.Timer2_Timer(); };

    connect(&tavolo_, &FinestraTavoloQt::go, this, [this] { evento([this] { frm_.GO_Click(); }); });
    connect(&tavolo_, &FinestraTavoloQt::opzione, this,
            [this](int i) { evento([this, i] { frm_.Option1_Click(i); }); });
    connect(&tavolo_, &FinestraTavoloQt::velocita_gioco, this,
            [this](int i) { evento([this, i] { frm_.velocita_gioco_Click(i); }); });
    connect(&tavolo_.superficie(), &SuperficieQt::premuto, this,
            [this](float x, float y) { evento([this, x, y] { frm_.Form_MouseDown(x, y); }); });
    connect(&tavolo_, &FinestraTavoloQt::tasto, this, [this](char t) { evento([this, t] { frm_.Form_KeyDown(t); }); });
    connect(&tavolo_, &FinestraTavoloQt::canzone, this,
            [this](int i) { evento([this, i] { frm_.canzoni_Click(i); }); });
    connect(&tavolo_, &FinestraTavoloQt::tutte_le_canzoni, this, [this] { evento([this] { frm_.All_Click(0); }); });
    connect(&tavolo_, &FinestraTavoloQt::nessuna_musica, this, [this] { evento([this] { frm_.nomusic_Click(0); }); });
    connect(tavolo_.voce_italiano(), &QAction::triggered, this, [this] { evento([this] { frm_.Italiano_Click(); }); });
    connect(tavolo_.voce_english(), &QAction::triggered, this, [this] { evento([this] { frm_.english_Click(); }); });
    connect(tavolo_.voce_info(), &QAction::triggered, this, [this] { evento([this] { frm_.menu_about_Click(); }); });
    connect(&tavolo_, &FinestraTavoloQt::cliccato, this, [this](Controllo c) {
        evento([this, c] {
            if (c == Controllo::Text3) frm_.Text3_Click();
            if (c == Controllo::Text4) frm_.Text4_Click();
            for (int i = 0; i < 2; ++i) {
                if (c == Verde(i)) frm_.Verde_Click(i);
                if (c == Rosso(i)) frm_.Rosso_Click(i);
            }
        });
    });
    connect(&tavolo_, &FinestraTavoloQt::esci, this, [this] { evento([this] { frm_.esci_Click(); }); });
    // The window's own close control ends the program at once.
    connect(&tavolo_, &FinestraTavoloQt::chiusa, this, [this] { End(); });
    // The table's first coming on screen activates it: the window has its
    // maximised size by then, so the blue screen is painted at its place,
    // and before the window's first frame, which shows all of it.
    connect(&tavolo_, &FinestraTavoloQt::prima_volta, this, &Applicazione::attiva);
    // The sound (its libraries, the device, the card sound and the song) is
    // taken only once the table is painted: until then its commands queue.
    // So are the score sheet and the table's controls built, unless needed
    // sooner: the table comes up as fast as a bare window.
    trattieni_suoni();
    tavolo_.superficie().installEventFilter(this);
}

Applicazione::~Applicazione() = default;

FinestraPunteggioQt& Applicazione::foglio() {
    if (foglio_ != nullptr) return *foglio_;
    foglio_ = std::make_unique<FinestraPunteggioQt>(immagini_, mod_);
    FinestraPunteggioQt* foglio = foglio_.get();
    // The score sheet's buttons: the next hand, or the end.
    connect(foglio, &FinestraPunteggioQt::mostra_tavolo, this, [this, foglio] {
        if (finito_) return;
        tavolo_.show();
        tavolo_.raise();
        tavolo_.activateWindow();
        // On Wayland a window cannot raise itself, so the sheet would stay in
        // front: there it steps aside instead, and is shown anew at the end
        // of the next hand, which puts it on top.
        if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) foglio->hide();
        attiva();
    });
    connect(foglio, &FinestraPunteggioQt::scarica_tavolo, this, [this] { evento([this] { frm_.Form_Unload(); }); });
    connect(foglio, &FinestraPunteggioQt::fine, this, [this] { End(); });
    return *foglio;
}

bool Applicazione::eventFilter(QObject* oggetto, QEvent* e) {
    if (e->type() == QEvent::Paint && oggetto == &tavolo_.superficie()) {
        tavolo_.superficie().removeEventFilter(this);
        QMetaObject::invokeMethod(
            this,
            [this] {
                foglio();
                tavolo_.completa();
                libera_suoni();
            },
            Qt::QueuedConnection);
    }
    return false;
}

void Applicazione::avvia() {
    frm_.Form_Load();
    mostra_a_cornice_fissa(tavolo_);
}

void Applicazione::attiva() {
    if (finito_ || !attivazione_.done()) return;
    attivazione_ = frm_.Form_Activate();
    attivazione_.start();
}

// The table has finished a hand: the sheet comes up and fills itself, once.
void Applicazione::Show_frmscore() {
    foglio().frm().Show();
    if (cronista_.in_ascolto())
        foglio().leggi_il_foglio(QString::fromStdString(lettura_del_foglio(mod_, cronista_.lingua())));
}

void Applicazione::End() {
    if (finito_) return;
    finito_ = true;
    orologio_.ferma();
    // Not quit(): that first asks every window to close, and the table and
    // the score sheet refuse (their close control is an event of the game),
    // so the program would go on.
    QCoreApplication::exit(0);
}

void Applicazione::messaggio_e_fine(std::string_view messaggio) {
    auto* box = new QMessageBox(QMessageBox::NoIcon, tavolo_.windowTitle(),
                                QString::fromUtf8(messaggio.data(), static_cast<qsizetype>(messaggio.size())),
                                QMessageBox::Ok, &tavolo_);
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(box, &QMessageBox::finished, this, [this] { End(); });
    box->open();
}

}  // namespace lesta
