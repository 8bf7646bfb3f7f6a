// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The table window on Qt: "Brontex - Lesta", maximised, with its menu bar, the
// painted surface and the controls that the game places on it. It draws what
// the game tells it and passes every event on to the game; it decides nothing.

#include <QMainWindow>
#include <QString>
#include <array>
#include <vector>

#include "table/finestra.h"
#include "table/qt/su_superficie_qt.h"

class QAction;
class QButtonGroup;
class QMenu;

namespace lesta {

class Immagini;

class FinestraTavoloQt final : public QMainWindow, public SuSuperficieQt<Finestra> {
    Q_OBJECT
public:
    explicit FinestraTavoloQt(Immagini& immagini);

    // ---- what the game draws ----
    void controllo_cambiato(Controllo c, const Rett& r, bool visibile, bool in_primo_piano) override;
    void spunta(Voce voce, int indice, bool spuntata) override;
    void voce_canzone(int indice, std::string_view titolo) override;
    void caption(Controllo c, std::string_view testo) override;
    int larghezza_pixel() const override;

    SuperficieQt& superficie() const override { return *superficie_; }
    // The control's widget, built by the first call if it is not yet.
    QWidget* widget(Controllo c);
    // Builds the controls the table may still lack. Called once the table is
    // on screen.
    void completa();
    QAction* voce_velocita(int indice) const { return velocita_[static_cast<std::size_t>(indice)]; }
    QAction* voce_esci() const { return esci_; }
    QAction* voce_canzone(int indice) const;
    QAction* voce_italiano() const { return italiano_; }
    QAction* voce_english() const { return english_; }
    QAction* voce_info() const { return info_; }

signals:
    // The events of the window, for the game.
    void go();
    void opzione(int indice);
    void velocita_gioco(int indice);
    void canzone(int indice);
    void tutte_le_canzoni();
    void nessuna_musica();
    void esci();
    // A key pressed on the table, by the name a US keyboard prints at its
    // place ('1', 'Q'...): see keyPressEvent and nome_del_tasto.
    void tasto(char nome);
    void chiusa();  // the window's own close control
    // The window is on screen for the first time, at the size the window
    // manager gave it, and about to be painted.
    void prima_volta();
    // A click on the Italian rules, the information or a turn light.
    void cliccato(Controllo c);

protected:
    // The window's first coming on screen, Enter and the space bar on the
    // start panel, and the clicks on the panels and lights.
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void crea_controlli();
    void crea_pannelli();
    void crea_menu();
    static bool pannello(Controllo c) {
        return c == Controllo::Text2 || c == Controllo::Text3 || c == Controllo::Text4;
    }
    void posiziona(Controllo c);
    void posiziona_tutti();
    // Whether this control, or one inside it, holds the keyboard.
    bool tiene_tastiera(Controllo c) const;
    // Whether a help panel holds the keyboard.
    bool pannello_con_tastiera() const;
    // Enter or the space bar pressed GO, if the start panel shows.
    bool premi_go(const QKeyEvent& evento);

    Immagini& immagini_;
    SuperficieQt* superficie_;
    std::array<QWidget*, numero_controlli> widget_{};
    std::array<Rett, numero_controlli> rett_{};
    std::array<QAction*, 4> velocita_{};
    QMenu* musica_ = nullptr;
    QAction* nomusic_ = nullptr;
    QAction* all_ = nullptr;
    std::vector<QAction*> canzoni_{nullptr};  // 1..n
    QAction* italiano_ = nullptr;
    QAction* english_ = nullptr;
    QAction* info_ = nullptr;
    QAction* esci_ = nullptr;
    QButtonGroup* opzioni_ = nullptr;
    QString titolo_canzone_;  // the song's title
    bool mostrata_ = false;
    bool esposta_ = false;
};

}  // namespace lesta
