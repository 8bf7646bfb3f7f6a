// SPDX-License-Identifier: GPL-3.0-or-later
#include "turns/ritardo.h"

namespace lesta {

// A pause of `unita` units: 650 ms at "Low", 325 at "Middle", 216 at "High"
// for one unit (the whole milliseconds, not the nearest). A change of speed
// during the pause counts from the next one.
Frmlesta::Pausa Frmlesta::ritardo(float unita) {
    return Pausa(*this, static_cast<int>(unita * 6500.0f / static_cast<float>(velocita)));
}

void Frmlesta::Timer2_Timer() { scattato = true; }

}  // namespace lesta
