// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the card sound as a wave file:
//   lesta-suono-carta <file>

#include <iostream>

#include "sound/file_wav.h"
#include "tools/suono_carta.h"

int main(int argc, char* argv[]) {
    using namespace lesta;
    if (argc != 2) {
        std::cerr << "usage: lesta-suono-carta <file>\n";
        return 2;
    }
    if (!scrivi_file(argv[1], wav::file_wav(carta::campioni(), carta::frequenza, 1))) {
        std::cerr << "lesta-suono-carta: cannot write " << argv[1] << "\n";
        return 1;
    }
    return 0;
}
