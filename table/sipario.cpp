#include "match/frmlesta.h"

namespace lesta {

void sipario(Superficie& finestra, Colore colore) {
    const float larghezza = finestra.ScaleWidth();
    for (int i = 0; static_cast<float>(i) <= larghezza; ++i) {
        const float x = static_cast<float>(i);
        const float altezza = finestra.ScaleHeight();
        finestra.Line(x, 0, x, altezza / 2 + 1, colore);
        finestra.Line(larghezza - x, altezza, larghezza - x, altezza / 2, colore);
    }
    finestra.BackColor(colore);
}

}  // namespace lesta
