// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/qt/tavolo_accessibile.h"

#include <QWidget>

#include "match/frmlesta.h"
#include "table/qt/superficie_qt.h"
#include "table/vista.h"
#include "turns/frasi.h"

namespace lesta {

namespace {

QString testo_qt(const std::string& s) { return QString::fromStdString(s); }

// The key that a place stands for, or 0 for a place that plays nothing.
char tasto_del_posto(int posto) {
    if (posto < posto_cella) return static_cast<char>('1' + posto);
    if (posto < posto_in_gioco) return frasi::tasto_cella((posto - posto_cella) / 4 + 1, (posto - posto_cella) % 4 + 1);
    return 0;
}

// An object of the table that has no widget and no children of its own.
class FiglioDelTavolo : public QAccessibleInterface {
public:
    explicit FiglioDelTavolo(const TavoloAccessibile& tavolo) : tavolo_(tavolo) {}

    bool isValid() const override { return tavolo_.isValid(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return tavolo_.window(); }
    QAccessibleInterface* parent() const override { return const_cast<TavoloAccessibile*>(&tavolo_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    void setText(QAccessible::Text, const QString&) override {}

protected:
    const TavoloAccessibile& tavolo_;
};

// One place of the table: a name, a place on the surface and, for a hand
// slot or a cell, a press.
class PostoAccessibile final : public FiglioDelTavolo, public QAccessibleActionInterface {
public:
    PostoAccessibile(const TavoloAccessibile& tavolo, int posto) : FiglioDelTavolo(tavolo), posto_(posto) {}

    QString text(QAccessible::Text t) const override {
        return t == QAccessible::Name ? nome_del_posto(tavolo_.fonte(), posto_) : QString();
    }
    QRect rect() const override {
        const auto* superficie = static_cast<const SuperficieQt*>(tavolo_.superficie());
        const Frmlesta* gioco = tavolo_.fonte().gioco;
        if (gioco == nullptr) return {};
        const QRect r = superficie->in_pixel(rett_posto(*gioco, posto_));
        return QRect(superficie->mapToGlobal(r.topLeft()), r.size());
    }
    QAccessible::Role role() const override {
        return tasto_del_posto(posto_) != 0 ? QAccessible::Button : QAccessible::StaticText;
    }
    QAccessible::State state() const override {
        QAccessible::State s;
        s.invisible = !tavolo_.superficie()->isVisible();
        return s;
    }
    void* interface_cast(QAccessible::InterfaceType t) override {
        if (t == QAccessible::ActionInterface && tasto_del_posto(posto_) != 0)
            return static_cast<QAccessibleActionInterface*>(this);
        return nullptr;
    }

    // A hand slot or a cell is pressed as its key is.
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& azione) override {
        if (azione == pressAction() && tavolo_.fonte().premi) tavolo_.fonte().premi(tasto_del_posto(posto_));
    }
    QStringList keyBindingsForAction(const QString& azione) const override {
        if (azione != pressAction()) return {};
        return {QString(QChar::fromLatin1(tasto_del_posto(posto_)))};
    }

private:
    int posto_;
};

// What the game tells, shown to a screen reader as a notification.
class AnnuncioAccessibile final : public FiglioDelTavolo {
public:
    AnnuncioAccessibile(const TavoloAccessibile& tavolo, int quale) : FiglioDelTavolo(tavolo), quale_(quale) {}

    QString text(QAccessible::Text t) const override {
        return t == QAccessible::Name ? tavolo_.fonte().annunci[static_cast<std::size_t>(quale_)] : QString();
    }
    QRect rect() const override { return {}; }
    QAccessible::Role role() const override { return QAccessible::Notification; }
    QAccessible::State state() const override {
        QAccessible::State s;
        s.invisible = true;
        return s;
    }

private:
    int quale_;
};

}  // namespace

int figlio_annuncio(int i) { return numero_posti + i; }

QString nome_del_posto(const FonteTavolo& fonte, int posto) {
    if (fonte.gioco == nullptr) return {};
    return testo_qt(nome_posto(vista_del_tavolo(*fonte.gioco), fonte.gioco->mod, posto, fonte.lingua));
}

TavoloAccessibile::TavoloAccessibile(QWidget* superficie, const FonteTavolo& fonte)
    : QAccessibleWidget(superficie, QAccessible::Canvas), fonte_(fonte) {
    for (int posto = 0; posto < numero_posti; ++posto)
        figli_.push_back(QAccessible::registerAccessibleInterface(new PostoAccessibile(*this, posto)));
    for (int i = 0; i < static_cast<int>(fonte_.annunci.size()); ++i)
        figli_.push_back(QAccessible::registerAccessibleInterface(new AnnuncioAccessibile(*this, i)));
}

TavoloAccessibile::~TavoloAccessibile() {
    for (QAccessible::Id id : figli_) QAccessible::deleteAccessibleInterface(id);
}

int TavoloAccessibile::childCount() const { return static_cast<int>(figli_.size()); }

QAccessibleInterface* TavoloAccessibile::child(int indice) const {
    if (indice < 0 || indice >= childCount()) return nullptr;
    return QAccessible::accessibleInterface(figli_[static_cast<std::size_t>(indice)]);
}

int TavoloAccessibile::indexOfChild(const QAccessibleInterface* figlio) const {
    for (std::size_t i = 0; i < figli_.size(); ++i)
        if (QAccessible::accessibleInterface(figli_[i]) == figlio) return static_cast<int>(i);
    return -1;
}

QAccessibleInterface* TavoloAccessibile::childAt(int x, int y) const {
    for (int i = 0; i < childCount(); ++i)
        if (child(i)->rect().contains(x, y)) return child(i);
    return nullptr;
}

QString TavoloAccessibile::text(QAccessible::Text t) const {
    if (t == QAccessible::Name) return testo_qt(std::string(nome_del_tavolo(fonte_.lingua)));
    return QAccessibleWidget::text(t);
}

}  // namespace lesta
