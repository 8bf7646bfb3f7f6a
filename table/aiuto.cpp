// SPDX-License-Identifier: GPL-3.0-or-later
// The help panels: the English rules (Text2), the Italian rules (Text3) and
// the information panel (Text4). They lie on the same spot over the top left
// corner of the table and hold no state but whether they show; the hand goes
// on behind them.

#include "match/frmlesta.h"
#include "table/testi_aiuto.h"

namespace lesta {

void Frmlesta::english_Click() {
    Visible(Controllo::Text2, true);
    ZOrder(Controllo::Text2);
    Visible(Controllo::Text3, false);
    Visible(Controllo::Text4, false);
    racconta([](Lingua l) { return lettura_pannello(Controllo::Text2, l); });
}

void Frmlesta::Italiano_Click() {
    Visible(Controllo::Text3, true);
    ZOrder(Controllo::Text3);
    Visible(Controllo::Text2, false);
    Visible(Controllo::Text4, false);
    racconta([](Lingua l) { return lettura_pannello(Controllo::Text3, l); });
}

// The English rules are left as they are: the information opens over them,
// and closing it shows them again.
void Frmlesta::menu_about_Click() {
    Visible(Controllo::Text3, false);
    if (!Visible(Controllo::Text4)) {
        Visible(Controllo::Text4, true);
        ZOrder(Controllo::Text4);
        racconta([](Lingua l) { return lettura_pannello(Controllo::Text4, l); });
    } else {
        Visible(Controllo::Text4, false);
    }
}

// A click on the Italian rules or on the information closes them; the English
// rules can be edited, so a click there only moves the caret.
void Frmlesta::Text3_Click() { Visible(Controllo::Text3, false); }
void Frmlesta::Text4_Click() { Visible(Controllo::Text4, false); }

void Frmlesta::Verde_Click(int) {
    for (auto pannello : {Controllo::Text2, Controllo::Text3, Controllo::Text4}) Visible(pannello, false);
}

void Frmlesta::Rosso_Click(int) {
    for (auto pannello : {Controllo::Text2, Controllo::Text3, Controllo::Text4}) Visible(pannello, false);
}

}  // namespace lesta
