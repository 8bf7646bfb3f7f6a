// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The running program: the table window, the game behind it and what the
// game uses of the system, wired together. It starts the hand when the window
// is shown and ends the program when asked.

#include <QObject>
#include <filesystem>
#include <memory>

#include "match/casuale_sistema.h"
#include "match/frmlesta.h"
#include "match/stato.h"
#include "scoring/qt/finestra_punteggio.h"
#include "sound/sdl/media_sdl.h"
#include "table/qt/cronista_qt.h"
#include "table/qt/finestra_tavolo.h"
#include "table/qt/orologio_qt.h"

namespace lesta {

class Immagini;

class Applicazione final : public QObject, public Programma {
    Q_OBJECT
public:
    Applicazione(Immagini& immagini, std::filesystem::path cartella);
    ~Applicazione() override;

    // Loads the game and shows the table maximised; the first activation
    // follows the first show.
    void avvia();
    // One activation of the table: one hand. Does nothing while a hand runs.
    void attiva();

    void End() override;
    void messaggio_e_fine(std::string_view messaggio) override;
    void Show_frmscore() override;

    Frmlesta& gioco() { return frm_; }
    FinestraTavoloQt& tavolo() { return tavolo_; }
    // The score sheet, built by the first call.
    FinestraPunteggioQt& foglio();
    CronistaQt& cronista() { return cronista_; }
    bool finito() const { return finito_; }

protected:
    // The table's first paint.
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    // Every event reaches the game through here, and then the waiting
    // routine goes on if what it waits for has come.
    template <class Evento>
    void evento(Evento e) {
        if (finito_) return;
        e();
        orologio_.sveglia();
    }

    Immagini& immagini_;
    ModLesta mod_;
    OrologioQt orologio_;
    CasualeSistema casuale_;
    // The end of a song reaches the game as an event, like any other.
    MediaSdl musica_{TipoDispositivo::Sequencer, [this] { evento([this] { frm_.MMC1_Done(1); }); }};
    MediaSdl suono_{TipoDispositivo::WaveAudio};
    FinestraTavoloQt tavolo_;
    std::unique_ptr<FinestraPunteggioQt> foglio_;
    // A screen reader is told of the game, when one listens.
    CronistaQt cronista_{tavolo_.superficie(), [this](char t) { evento([this, t] { frm_.Form_KeyDown(t); }); }};
    Frmlesta frm_;
    bool finito_ = false;
    Task attivazione_;  // the hand under way; destroyed first, before what it uses
};

}  // namespace lesta
