// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The score sheet on Qt: "Brontex - Lesta", maximised with a fixed frame, a
// painted surface in the sheet's colour, and on it the labels, the eight card
// images and the two buttons, each at its logical rectangle scaled to the
// window. It holds the sheet's logic (Frmscore) and passes its own events to
// it; what goes out of the sheet comes out as signals.
//
// The window's activation by the window system does nothing: the sheet is
// filled by an explicit call of frm().Show() (or frm().Form_Activate()) when
// the table has finished a hand.

#include <QWidget>
#include <array>
#include <map>
#include <utility>

#include "scoring/frmscore.h"
#include "table/qt/su_superficie_qt.h"

class QLabel;
class QPushButton;

namespace lesta {

class Immagini;

class FinestraPunteggioQt final : public QWidget, public SuSuperficieQt<FinestraPunteggio> {
    Q_OBJECT
public:
    // Builds and loads the window (Form_Load); it is not shown.
    FinestraPunteggioQt(Immagini& immagini, ModLesta& mod, QWidget* genitore = nullptr);
    ~FinestraPunteggioQt() override;

    Frmscore& frm() { return frm_; }

    // ---- the controls ----
    void etichetta_cambiata(QualeEtichetta quale, const Etichetta& etichetta) override;
    void etichetta_distrutta(int indice) override;
    void imgset_cambiata(int indice, const Imgset& immagine) override;
    void bottone_cambiato(int indice, const Bottone& bottone, std::string_view caption) override;

    float Width() const override;
    float Height() const override;
    bool minimizzata() const override;

    void Show() override;
    // For a player who follows the game by ear: the sheet's first button
    // takes the keyboard, so that Enter goes on, and the sheet's reading
    // comes with it as its description.
    void leggi_il_foglio(const QString& lettura);
    void Show_frmlesta() override { emit mostra_tavolo(); }
    void Unload_frmlesta() override { emit scarica_tavolo(); }
    void End() override { emit fine(); }

    // ---- for tests ----
    SuperficieQt& superficie() const override { return *superficie_; }
    QLabel* etichetta(QualeEtichetta quale) const;
    QWidget* immagine(int indice) const;
    QPushButton* bottone(int indice) const;

signals:
    // Show of the table: the desktop brings it up and starts the next hand.
    void mostra_tavolo();
    // Unload of the table: the desktop unloads it (media closed, program ended).
    void scarica_tavolo();
    // The program ends at once.
    void fine();

protected:
    void closeEvent(QCloseEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    struct EtichettaQt {
        QLabel* widget = nullptr;
        Etichetta stato;
    };
    using Chiave = std::pair<int, int>;  // group and index
    static Chiave chiave(QualeEtichetta q) { return {static_cast<int>(q.gruppo), q.indice}; }

    void posiziona(EtichettaQt& e);
    void posiziona_immagine(int indice);
    void posiziona_bottone(int indice);
    void posiziona_tutti();

    Immagini& immagini_;
    SuperficieQt* superficie_;
    std::map<Chiave, EtichettaQt> etichette_;
    std::array<QWidget*, 9> immagini_carte_{};  // 1..8
    std::array<Imgset, 9> stato_immagini_{};
    std::array<QPushButton*, 3> bottoni_{};  // 1..2
    std::array<Bottone, 3> stato_bottoni_{};
    Frmscore frm_;  // last: its load draws on everything above
};

}  // namespace lesta
