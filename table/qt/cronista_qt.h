// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The game told through Qt's accessibility, to a screen reader: the table's
// surface and its places are accessible objects named by the game (see
// tavolo_accessibile.h), and what the game tells is shown as a notification,
// which a screen reader speaks whatever holds the keyboard, queued behind
// what it is still saying. The lines told together, with no wait of the
// game between them, go as one notification. When no assistive technology
// listens, nothing of this is made or done.

#include <QAccessible>
#include <QObject>
#include <QStringList>

#include "table/qt/tavolo_accessibile.h"
#include "turns/cronista.h"

namespace lesta {

class SuperficieQt;

// The desktop's language as the game speaks it: Italian when the first
// language the desktop asks for is Italian, English otherwise.
Lingua lingua_del_desktop();

class CronistaQt final : public QObject, public Cronista {
    Q_OBJECT
public:
    // The table's surface, and where a press of one of its places goes.
    CronistaQt(SuperficieQt& superficie, std::function<void(char tasto)> premi);
    ~CronistaQt() override;
    // The game whose table is read; set once both exist.
    void leggi(const Frmlesta& gioco) { fonte_.gioco = &gioco; }

    bool in_ascolto() const override;
    Lingua lingua() const override { return fonte_.lingua; }
    void racconta(std::string riga) override;

    const FonteTavolo& fonte() const { return fonte_; }
    // For a test on a screen with no accessibility of its own (where Qt
    // hands no event on): everything is told as if a screen reader listened,
    // and each event goes to `consegna` instead of to Qt.
    void ascolta_senza_lettore(std::function<void(QAccessibleEvent&)> consegna) { consegna_ = std::move(consegna); }

private:
    // The lines told since the last notification go out as one, and every
    // place whose name has changed is told so.
    void annuncia();
    void consegna(QAccessibleEvent& evento);

    SuperficieQt& superficie_;
    FonteTavolo fonte_;
    QStringList in_attesa_;                            // lines told and not yet shown
    int prossimo_ = 0;                                 // the notification that shows next
    QStringList nomi_;                                 // each place's name when last told
    std::function<void(QAccessibleEvent&)> consegna_;  // the test's, if any
};

}  // namespace lesta
