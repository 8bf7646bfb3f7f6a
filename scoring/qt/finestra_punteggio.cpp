// SPDX-License-Identifier: GPL-3.0-or-later
#include "scoring/qt/finestra_punteggio.h"

#include <QCloseEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QResizeEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "table/qt/controllo_figura.h"
#include "table/qt/cornice_fissa.h"
#include "table/qt/immagini.h"
#include "table/qt/superficie_qt.h"

namespace lesta {

namespace {

// The client area as designed: 15360 x 11985 twips at 15 twips a pixel.
constexpr int larghezza_disegno = 1024;
constexpr int altezza_disegno = 799;

QString testo_qt(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

}  // namespace

FinestraPunteggioQt::FinestraPunteggioQt(Immagini& immagini, ModLesta& mod, QWidget* genitore)
    : QWidget(genitore), immagini_(immagini), superficie_(new SuperficieQt(immagini, this)), frm_(*this, mod) {
    setWindowTitle(QStringLiteral("Brontex - Lesta"));
    setWindowIcon(QIcon(QPixmap::fromImage(immagini_.immagine(Figura::Icona, QSize(32, 32)))));
    // A fixed frame: minimise and close, no maximise.
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint);

    auto* strato = new QVBoxLayout(this);
    strato->setContentsMargins(0, 0, 0, 0);
    strato->setSpacing(0);
    strato->addWidget(superficie_);
    resize(larghezza_disegno, altezza_disegno);
    connect(superficie_, &SuperficieQt::ridimensionata, this, &FinestraPunteggioQt::posiziona_tutti);

    // The images stand over the title strip, so they are made before any
    // label and every label is stacked under them.
    for (int i = 1; i <= 8; ++i) {
        auto* im = new ControlloFigura(immagini_, std::nullopt, superficie_);
        im->setAttribute(Qt::WA_TransparentForMouseEvents);
        im->hide();
        immagini_carte_[static_cast<std::size_t>(i)] = im;
    }
    for (int i = 1; i <= 2; ++i) {
        auto* b = new QPushButton(superficie_);
        b->hide();
        bottoni_[static_cast<std::size_t>(i)] = b;
    }
    connect(bottoni_[1], &QPushButton::clicked, this, [this] { frm_.Command1_Click(); });
    connect(bottoni_[2], &QPushButton::clicked, this, [this] { frm_.Command2_Click(); });

    frm_.Form_Load();
}

FinestraPunteggioQt::~FinestraPunteggioQt() = default;

// ---- the controls ----

void FinestraPunteggioQt::etichetta_cambiata(QualeEtichetta quale, const Etichetta& etichetta) {
    EtichettaQt& e = etichette_[chiave(quale)];
    if (e.widget == nullptr) {
        e.widget = new QLabel(superficie_);
        e.widget->setTextFormat(Qt::PlainText);
        e.widget->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        e.widget->setMargin(0);
        e.widget->setAutoFillBackground(true);
        e.widget->setAttribute(Qt::WA_TransparentForMouseEvents);
        e.widget->stackUnder(immagini_carte_[1]);
    }
    e.stato = etichetta;
    QPalette colori = e.widget->palette();
    colori.setColor(QPalette::Window, colore_qt(etichetta.BackColor));
    colori.setColor(QPalette::WindowText, colore_qt(etichetta.ForeColor));
    e.widget->setPalette(colori);
    e.widget->setText(testo_qt(etichetta.Caption));
    posiziona(e);
    e.widget->setVisible(etichetta.Visible);
}

void FinestraPunteggioQt::etichetta_distrutta(int indice) {
    auto it = etichette_.find(chiave({Gruppo::LBLdat, indice}));
    if (it == etichette_.end()) return;
    delete it->second.widget;
    etichette_.erase(it);
}

void FinestraPunteggioQt::imgset_cambiata(int indice, const Imgset& immagine) {
    if (indice < 1 || indice > 8) return;
    stato_immagini_[static_cast<std::size_t>(indice)] = immagine;
    auto* im = static_cast<ControlloFigura*>(immagini_carte_[static_cast<std::size_t>(indice)]);
    im->figura(immagine.carta >= 1 && immagine.carta <= 40 ? std::optional(faccia(immagine.carta)) : std::nullopt);
    posiziona_immagine(indice);
    im->setVisible(immagine.Visible);
}

void FinestraPunteggioQt::bottone_cambiato(int indice, const Bottone& bottone, std::string_view caption) {
    if (indice != 1 && indice != 2) return;
    stato_bottoni_[static_cast<std::size_t>(indice)] = bottone;
    QPushButton* b = bottoni_[static_cast<std::size_t>(indice)];
    b->setText(testo_qt(caption));
    posiziona_bottone(indice);
    b->setVisible(bottone.Visible);
}

void FinestraPunteggioQt::posiziona(EtichettaQt& e) {
    QFont f;
    f.setFamilies({QStringLiteral("MS Sans Serif"), QStringLiteral("Microsoft Sans Serif"),
                   QFontDatabase::systemFont(QFontDatabase::GeneralFont).family()});
    f.setStyleHint(QFont::SansSerif);
    f.setPointSizeF(e.stato.FontSize);
    f.setBold(e.stato.FontBold);
    e.widget->setFont(f);
    e.widget->setGeometry(superficie_->in_pixel(e.stato.r));
}

void FinestraPunteggioQt::posiziona_immagine(int indice) {
    immagini_carte_[static_cast<std::size_t>(indice)]->setGeometry(
        superficie_->in_pixel(stato_immagini_[static_cast<std::size_t>(indice)].r));
}

void FinestraPunteggioQt::posiziona_bottone(int indice) {
    QPushButton* b = bottoni_[static_cast<std::size_t>(indice)];
    b->setGeometry(superficie_->in_pixel(stato_bottoni_[static_cast<std::size_t>(indice)].r));
}

// Every control keeps its logical rectangle at any size of the window; the
// texts keep their sizes in points.
void FinestraPunteggioQt::posiziona_tutti() {
    for (auto& [k, e] : etichette_) posiziona(e);
    for (int i = 1; i <= 8; ++i) posiziona_immagine(i);
    for (int i = 1; i <= 2; ++i) posiziona_bottone(i);
}

QLabel* FinestraPunteggioQt::etichetta(QualeEtichetta quale) const {
    auto it = etichette_.find(chiave(quale));
    return it == etichette_.end() ? nullptr : it->second.widget;
}

QWidget* FinestraPunteggioQt::immagine(int indice) const {
    return indice >= 1 && indice <= 8 ? immagini_carte_[static_cast<std::size_t>(indice)] : nullptr;
}

QPushButton* FinestraPunteggioQt::bottone(int indice) const {
    return indice == 1 || indice == 2 ? bottoni_[static_cast<std::size_t>(indice)] : nullptr;
}

// ---- the window ----

float FinestraPunteggioQt::Width() const { return static_cast<float>(frameGeometry().width()); }
float FinestraPunteggioQt::Height() const { return static_cast<float>(frameGeometry().height()); }
bool FinestraPunteggioQt::minimizzata() const { return isMinimized(); }

void FinestraPunteggioQt::Show() {
    if (!isVisible() || isMinimized()) mostra_a_cornice_fissa(*this);
    raise();
    activateWindow();
}

void FinestraPunteggioQt::leggi_il_foglio(const QString& lettura) {
    QPushButton* avanti = bottoni_[1];
    avanti->setAccessibleDescription(lettura);
    avanti->setAutoDefault(true);  // Enter presses it while it holds the keyboard
    avanti->setFocus(Qt::OtherFocusReason);
}

void FinestraPunteggioQt::closeEvent(QCloseEvent* evento) {
    evento->ignore();
    int Cancel = 0;
    frm_.Form_QueryUnload(Cancel, 0);
}

void FinestraPunteggioQt::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    frm_.Form_Resize();
    posiziona_tutti();
}

}  // namespace lesta
