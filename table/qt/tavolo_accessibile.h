// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The table as a screen reader finds it: the painted surface, named as the
// table, holds one object for each place the game names (the hand slots,
// the cells, the card in play, the computer's hand, the deck, whose turn it
// is, the leste and the match), each named by the game for what it shows
// now, at its place on the screen. A hand slot or a cell can be pressed:
// that is its key, for a player who reaches it with the screen reader.
//
// More objects, never seen, carry what the game tells: notifications, which
// a screen reader speaks as each is shown, whatever holds the keyboard,
// queued behind what it is still saying. They take turns: a screen reader
// reads a notification's words only when it comes to it, and drops a second
// showing of one object that comes before it has spoken the first, so each
// keeps its words until several more have been shown.

#include <QAccessibleWidget>
#include <QString>
#include <array>
#include <functional>
#include <vector>

#include "match/nomi_carte.h"

namespace lesta {

class Frmlesta;

// What the objects are read from: the game, in a language; and where a
// press of a place goes (its key, as the game takes keys).
struct FonteTavolo {
    const Frmlesta* gioco = nullptr;
    Lingua lingua = Lingua::inglese;
    std::function<void(char tasto)> premi;
    std::array<QString, 8> annunci;  // what each notification says
};

// The index of notification i among the surface's objects.
int figlio_annuncio(int i);

class TavoloAccessibile final : public QAccessibleWidget {
public:
    TavoloAccessibile(QWidget* superficie, const FonteTavolo& fonte);
    ~TavoloAccessibile() override;

    int childCount() const override;
    QAccessibleInterface* child(int indice) const override;
    int indexOfChild(const QAccessibleInterface* figlio) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QString text(QAccessible::Text t) const override;

    const FonteTavolo& fonte() const { return fonte_; }
    QWidget* superficie() const { return widget(); }

private:
    const FonteTavolo& fonte_;
    std::vector<QAccessible::Id> figli_;
};

// The name of a place now, as the game gives it.
QString nome_del_posto(const FonteTavolo& fonte, int posto);

}  // namespace lesta
