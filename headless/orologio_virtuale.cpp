// SPDX-License-Identifier: GPL-3.0-or-later
#include "headless/orologio_virtuale.h"

namespace lesta {

void OrologioVirtuale::Timer2(int intervallo_ms, bool acceso) {
    intervallo_ = intervallo_ms;
    acceso_ = acceso;
}

bool OrologioVirtuale::esegui_fino(const Risveglio& r) {
    while (!r.pronto()) {
        if (acceso_) {
            millisecondi_ += intervallo_;
            ++pause_;
            if (al_timer2) al_timer2();
        } else if (!ingresso || !ingresso()) {
            return false;
        }
    }
    return true;
}

bool OrologioVirtuale::pausa_immediata(int intervallo_ms) {
    if (acceso_ || !al_timer2) return false;
    millisecondi_ += intervallo_ms;
    ++pause_;
    al_timer2();
    return true;
}

bool OrologioVirtuale::sospendi(Risveglio& r) {
    if (esegui_fino(r)) return false;
    sospeso_ = &r;
    return true;
}

bool OrologioVirtuale::sospendi_un_frame(std::coroutine_handle<>) {
    ++frame_;
    return false;
}

void OrologioVirtuale::sveglia() {
    if (sospeso_ == nullptr || !esegui_fino(*sospeso_)) return;
    auto chi = sospeso_->chi;
    sospeso_ = nullptr;
    chi.resume();
}

}  // namespace lesta
