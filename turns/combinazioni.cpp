// SPDX-License-Identifier: GPL-3.0-or-later
#include "match/frmlesta.h"

namespace lesta {

// The table of subset masks: for each mask m, eight characters, the digit p
// at position p where bit p-1 of m is set and '0' elsewhere. Position p
// stands for the p-th candidate of the capture search, in scan order.
void Frmlesta::Trova_Combinazioni() {
    for (int m = 255; m >= 1; --m) {
        auto& voce = combinazioni[static_cast<std::size_t>(m)];
        voce.fill('0');
        int k = 0;
        for (int resto = m; resto != 0; resto /= 2, ++k)
            if (resto % 2 == 1) voce[static_cast<std::size_t>(k)] = static_cast<char>('1' + k);
    }
}

}  // namespace lesta
