// SPDX-License-Identifier: GPL-3.0-or-later
// From the program's start to the shuffle of each hand: the load, the
// activation that starts a hand, the start panel, and the ways out.

#include <cmath>

#include "match/frmlesta.h"
#include "match/geometria.h"
#include "table/sipario.h"
#include "turns/frasi.h"
#include "turns/ritardo.h"

namespace lesta {

void Frmlesta::Form_Load() {
    riempi_canzoni();
    Trova_Combinazioni();

    Set_Read();
    spunta_velocita_gioco(velocita, true);
    velocita = static_cast<std::uint8_t>(velocita * 10);

    avvia_musica();

    // The card sound is opened once and stays open for the whole run.
    auto& suono = piattaforma.MMCw;
    suono.Wait(true);
    suono.Command("Close");
    suono.FileName((cartella / "carta.wav").string());
    suono.Command("Open");

    piattaforma.casuale.Randomize();
    mod.mazziere = static_cast<std::uint8_t>(std::floor(2.0 * piattaforma.casuale.Rnd() + 1.0));
}

Task Frmlesta::Form_Activate() {
    finestra.Cls();
    // A maximised window narrower than 824 pixels means a screen too small
    // for the table.
    if (finestra.larghezza_pixel() < 824) {
        piattaforma.programma.messaggio_e_fine("Screen resolution too low. Risoluzione di schermo troppo bassa");
        co_return;
    }

    meta_larghezza = finestra.ScaleWidth() / 2;
    meta_altezza = finestra.ScaleHeight() / 2;
    finestra.BackColor(blu);

    for (auto pannello : {Controllo::Text2, Controllo::Text3, Controllo::Text4}) Move(pannello, 5, 0);
    Move(Controllo::testo, meta_larghezza - rett(Controllo::testo).width / 2, 184.6f);
    Visible(Controllo::testo, true);
    if (canzone != 0) Quadro_Song();

    for (int i = 0; i < 3; ++i) {
        Move(Option1(i), meta_larghezza - rett(Option1(i)).width / 2, 100.0f + 30.0f * static_cast<float>(i));
        Visible(Option1(i), false);
    }
    Move(Controllo::GO, meta_larghezza - rett(Controllo::GO).width / 2, 300);
    Visible(Controllo::GO, false);

    for (int i = 0; i < 2; ++i) {
        Move(Verde(i), 800, 600);
        Move(Rosso(i), 800, 600);
    }

    piattaforma.casuale.Randomize();
    for (int c = 1; c <= 40; ++c) carta[c].tag = Tag::vuoto;

    Visible(Controllo::testo, false);

    if (mod.command1 != "CONTINUE") {
        co_await ritardo(pausa::schermo_blu);
        sipario(finestra, rosa_pannello);
        if (canzone != 0) Quadro_Song();
        co_await pannello_inizio();
    }

    const Misure misure = misure_a_scala(scala, meta_larghezza, meta_altezza);
    larghezza_carta = misure.larghezza_carta;
    altezza_carta = misure.altezza_carta;
    tavolox = misure.tavolox;
    tavoloy = misure.tavoloy;

    Mescola();
    racconta([this](Lingua l) {
        return frasi::nuova_mano(l, mod.tipo_partita, mod.partite / 10 + 1, mod.mazziere, tavolo);
    });
    daicarte();
    co_await gioco();
}

// The start panel: the match choice and GO, on a blue panel with the title
// under the choice. Returns when GO is pressed; the painted panel stays until
// the shuffle wipes the window.
Task Frmlesta::pannello_inizio() {
    mod.punti_giocatore = 0;
    mod.punti_computer = 0;

    const float x = meta_larghezza, y = meta_altezza;
    finestra.BoxFilled(x - 200, y - 250, x + 200, y + 110, blu);
    finestra.Box(x - 202, y - 252, x + 202, y + 112, nero);

    Move(Controllo::Shape1, x - rett(Controllo::Shape1).width / 2, rett(Option1(0)).top - 10);
    Visible(Controllo::Shape1, true);

    const Rett& titolo = rett(Controllo::testo);
    const Rett& ultima_opzione = rett(Option1(2));
    finestra.PaintPicture(Figura::Titolo, x - titolo.width / 4, ultima_opzione.top + ultima_opzione.height + 10,
                          titolo.width / 2, titolo.height / 2);

    for (int i = 0; i < 3; ++i) Visible(Option1(i), true);
    Visible(Controllo::GO, true);

    partenza = false;
    co_await finche(piattaforma.orologio, [this] { return partenza; });

    for (int i = 0; i < 3; ++i) Visible(Option1(i), false);
    Visible(Controllo::GO, false);
    Visible(Controllo::Shape1, false);
}

void Frmlesta::Option1_Click(int indice) {
    mod.partite = 0;
    mod.tipo_partita = static_cast<std::uint8_t>(indice);
}

void Frmlesta::GO_Click() {
    for (auto pannello : {Controllo::Text2, Controllo::Text3, Controllo::Text4}) Visible(pannello, false);
    partenza = true;
}

void Frmlesta::esci_Click() { Form_Unload(); }

void Frmlesta::Form_Unload() {
    piattaforma.MMC1.Command("close");
    piattaforma.MMCw.Command("close");
    piattaforma.programma.End();
}

}  // namespace lesta
