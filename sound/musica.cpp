// The song frame on the table.

#include "match/frmlesta.h"

namespace lesta {

void Frmlesta::Quadro_Song() {
    const Rett& cornice = rett(Controllo::quadro);
    const Rett& titolo = rett(Controllo::CmdSong);
    finestra.PaintPicture(Figura::Quadro, 10, meta_altezza - cornice.height / 2, cornice.width, cornice.height);
    Move(Controllo::CmdSong, 10 + (cornice.width - titolo.width) / 2, meta_altezza - titolo.height / 2);
    Visible(Controllo::CmdSong, true);
}

}  // namespace lesta
