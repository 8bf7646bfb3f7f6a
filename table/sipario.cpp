// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/sipario.h"

namespace lesta {

void sipario(Superficie& finestra, Colore colore) {
    const float larghezza = finestra.ScaleWidth(), altezza = finestra.ScaleHeight();
    // The upper half fills from the left while the lower half fills from the
    // right; they meet at the end.
    for (int i = 0; finestra.conserva() && static_cast<float>(i) <= larghezza; ++i) {
        const float x = static_cast<float>(i);
        finestra.Line(x, 0, x, altezza / 2 + 1, colore);
        finestra.Line(larghezza - x, altezza, larghezza - x, altezza / 2, colore);
    }
    finestra.BackColor(colore);
}

}  // namespace lesta
