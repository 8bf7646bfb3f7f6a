// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The wipe of a window: lines from the left fill the upper half while lines
// from the right fill the lower half; the colour stays as the window's ground.

#include "table/finestra.h"

namespace lesta {

void sipario(Superficie& finestra, Colore colore);

}  // namespace lesta
