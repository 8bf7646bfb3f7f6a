// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/qt/orologio_qt.h"

#include <utility>

namespace lesta {

namespace {
// One frame of a slide: the step just painted reaches the screen before the
// next, at about the rate a screen refreshes.
constexpr int millisecondi_frame = 16;
}  // namespace

OrologioQt::OrologioQt() {
    timer2_.setTimerType(Qt::PreciseTimer);
    connect(&timer2_, &QTimer::timeout, this, [this] {
        if (al_timer2) al_timer2();
        sveglia();
    });
    frame_.setSingleShot(true);
    frame_.setTimerType(Qt::PreciseTimer);
    connect(&frame_, &QTimer::timeout, this, [this] {
        auto chi = std::exchange(dopo_il_frame_, {});
        if (chi && !fermo_) chi.resume();
    });
}

void OrologioQt::Timer2(int intervallo_ms, bool acceso) {
    timer2_.setInterval(intervallo_ms);
    if (acceso && !fermo_)
        timer2_.start();
    else
        timer2_.stop();
}

bool OrologioQt::sospendi(Risveglio& r) {
    if (r.pronto()) return false;
    sospeso_ = &r;
    return true;
}

bool OrologioQt::sospendi_un_frame(std::coroutine_handle<> chi) {
    dopo_il_frame_ = chi;
    frame_.start(millisecondi_frame);
    return true;
}

void OrologioQt::sveglia() {
    if (fermo_ || sospeso_ == nullptr || !sospeso_->pronto()) return;
    auto chi = std::exchange(sospeso_, nullptr)->chi;
    chi.resume();
}

void OrologioQt::ferma() {
    fermo_ = true;
    timer2_.stop();
    frame_.stop();
}

}  // namespace lesta
