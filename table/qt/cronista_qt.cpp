// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/qt/cronista_qt.h"

#include <QAccessible>
#include <QLocale>
#include <QTimer>

#include "table/qt/superficie_qt.h"
#include "table/vista.h"

namespace lesta {

namespace {

// The table's surface carries a pointer to what its places are read from;
// Qt asks this factory for the accessible object of every object it meets,
// and only the table's surface has one of its own.
const char* const proprieta_fonte = "lesta_fonte_tavolo";

QAccessibleInterface* fabbrica(const QString&, QObject* oggetto) {
    auto* superficie = qobject_cast<SuperficieQt*>(oggetto);
    if (superficie == nullptr) return nullptr;
    auto* fonte = static_cast<const FonteTavolo*>(superficie->property(proprieta_fonte).value<void*>());
    return fonte != nullptr ? new TavoloAccessibile(superficie, *fonte) : nullptr;
}

}  // namespace

Lingua lingua_del_desktop() {
    const QStringList lingue = QLocale::system().uiLanguages();
    return !lingue.isEmpty() && lingue.front().startsWith(QLatin1String("it")) ? Lingua::italiano : Lingua::inglese;
}

CronistaQt::CronistaQt(SuperficieQt& superficie, std::function<void(char tasto)> premi) : superficie_(superficie) {
    fonte_.lingua = lingua_del_desktop();
    fonte_.premi = std::move(premi);
    superficie_.setProperty(proprieta_fonte, QVariant::fromValue(static_cast<void*>(&fonte_)));
    QAccessible::installFactory(fabbrica);
}

CronistaQt::~CronistaQt() {
    QAccessible::removeFactory(fabbrica);
    superficie_.setProperty(proprieta_fonte, QVariant());
}

bool CronistaQt::in_ascolto() const { return consegna_ || QAccessible::isActive(); }

void CronistaQt::consegna(QAccessibleEvent& evento) {
    if (consegna_)
        consegna_(evento);
    else
        QAccessible::updateAccessibility(&evento);
}

void CronistaQt::racconta(std::string riga) {
    // The first line of a burst sends the notification once the game waits
    // again: every line told in between goes with it, in order.
    if (in_attesa_.isEmpty()) QTimer::singleShot(0, this, &CronistaQt::annuncia);
    in_attesa_.push_back(QString::fromStdString(riga));
}

void CronistaQt::annuncia() {
    QAccessibleInterface* tavolo = QAccessible::queryAccessibleInterface(&superficie_);
    const QString testo = in_attesa_.join(QLatin1Char(' '));
    in_attesa_.clear();
    if (tavolo == nullptr) return;

    fonte_.annunci[static_cast<std::size_t>(prossimo_)] = testo;
    QAccessibleEvent mostrato(tavolo->child(figlio_annuncio(prossimo_)), QAccessible::ObjectShow);
    consegna(mostrato);
    prossimo_ = (prossimo_ + 1) % static_cast<int>(fonte_.annunci.size());

    if (nomi_.size() != numero_posti) nomi_ = QStringList(numero_posti, QString());
    for (int posto = 0; posto < numero_posti; ++posto) {
        const QString nome = nome_del_posto(fonte_, posto);
        if (nome == nomi_[posto]) continue;
        nomi_[posto] = nome;
        QAccessibleEvent cambiato(tavolo->child(posto), QAccessible::NameChanged);
        consegna(cambiato);
    }
}

}  // namespace lesta
