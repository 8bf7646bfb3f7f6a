// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The game's waits on Qt's own event loop. A waiting routine is suspended and
// the loop sleeps; Timer2 is a QTimer; after every event that reaches the
// game, sveglia() goes on with the waiting routine if what it waits for has
// come. Nothing polls and nothing spins the loop by hand.

#include <QObject>
#include <QTimer>
#include <functional>

#include "turns/orologio.h"

namespace lesta {

class OrologioQt final : public QObject, public Orologio {
    Q_OBJECT
public:
    OrologioQt();

    std::function<void()> al_timer2;  // Timer2's event

    void Timer2(int intervallo_ms, bool acceso) override;
    bool sospendi(Risveglio& r) override;
    bool sospendi_un_frame(std::coroutine_handle<> chi) override;

    void sveglia();
    // The program is ending: nothing is resumed any more.
    void ferma();

private:
    QTimer timer2_;
    QTimer frame_;
    Risveglio* sospeso_ = nullptr;
    std::coroutine_handle<> dopo_il_frame_;
    bool fermo_ = false;
};

}  // namespace lesta
