// SPDX-License-Identifier: GPL-3.0-or-later
// The score sheet: its load, its filling at the end of a hand, the points of
// the hand and the match totals, and its buttons.

#include "scoring/frmscore.h"

#include <array>
#include <cmath>
#include <string>

#include "scoring/linee.h"
#include "scoring/settanta.h"
#include "table/sipario.h"

namespace lesta {

namespace {

constexpr std::string_view colonne[5] = {"Carte", "Denari", "Primiera", "Settebello", "Leste"};

// Left of column k (0..4) of each side's block.
constexpr float sinistra_giocatore(int k) { return 20.0f + 70.0f * static_cast<float>(k); }
constexpr float sinistra_computer(int k) { return 432.0f + 70.0f * static_cast<float>(k); }
constexpr float larghezza_casella = 67.8f;
constexpr float altezza_casella = 15;
constexpr float alto_intestazioni = 75;

// A number on the sheet: decimal, after one leading blank.
std::string numero(int n) {
    std::string testo(1, ' ');
    testo += std::to_string(n);
    return testo;
}
std::string si_no(bool si) { return si ? "YES" : "NO"; }

// Totals and the count of hands are bytes: an addition that would pass 255
// does not take place, and the value stays as it was.
void aggiungi(std::uint8_t& a, int n) {
    const int somma = a + n;
    if (somma >= 0 && somma <= 255) a = static_cast<std::uint8_t>(somma);
}

// A side's five cells of the hand's row.
std::array<std::string, 5> celle(const Linee& l) {
    return {numero(l.carte), numero(l.denari), si_no(l.primiera), si_no(l.settebello), numero(l.leste)};
}

// A match ends when a side has reached the target and the totals differ; a
// tie at or above the target is played off.
bool partita_finita(const ModLesta& mod) {
    const int obiettivo = mod.tipo_partita == 1 ? 11 : 21;
    return mod.punti_giocatore != mod.punti_computer &&
           (mod.punti_giocatore >= obiettivo || mod.punti_computer >= obiettivo);
}

// The size loaded with the images (372 x 600 twips) and the height of the
// totals (372 twips).
constexpr float larghezza_imgset = punteggio_x(372);
constexpr float altezza_imgset = punteggio_y(600);
constexpr float altezza_totale = punteggio_y(372);

// The images stand over the title strip: the player's suits from the left,
// the computer's from the right half.
constexpr float sinistra_imgset(int i) {
    return i <= 4 ? 50.0f * static_cast<float>(i) : 50.0f * static_cast<float>(i - 4) + 500.0f;
}

}  // namespace

Frmscore::Frmscore(FinestraPunteggio& finestra_, ModLesta& mod_) : mod(mod_), finestra(finestra_) {}

// ---- load and size ----

void Frmscore::Form_Load() {
    // The window as it was designed: orange, with the title, the model label,
    // the heads of the sides, the totals, eight empty images and the buttons.
    finestra.BackColor(arancio);

    LBLtit = Etichetta{{20, 5, 760, 40}, "SCORE", giallo_chiaro, rosso_scuro, 19.5f, true, true};
    LBLdat.clear();
    LBLdat[0] = Etichetta{{sinistra_giocatore(0), alto_intestazioni, larghezza_casella, altezza_casella},
                          "",
                          verde_chiaro,
                          nero,
                          12,
                          false,
                          false};
    LBLdat[1] = Etichetta{{20, 45, 348, 30}, "", azzurro, nero, 12, false, true};
    LBLdat[2] = Etichetta{{432, 45, 348, 30}, "", azzurro, nero, 12, false, true};
    lblTot[0] = Etichetta{{20, 107, 348, altezza_totale}, "", arancio_chiaro, bianco, 12, true, true};
    lblTot[1] = Etichetta{{432, 107, 348, altezza_totale}, "", arancio_chiaro, bianco, 12, true, true};
    for (int i = 1; i <= 8; ++i) imgset[i] = Imgset{{sinistra_imgset(i), 5, larghezza_imgset, altezza_imgset}, 0, true};
    Command1 = Bottone{{125, 520, 150, 30}, true};
    Command2 = Bottone{{525, 520, 150, 30}, true};
    attende_scelta = false;
    disegna_tutto();

    larghezza_iniziale = finestra.Width();
    altezza_iniziale = finestra.Height();
}

// The window system's list of controls holds the labels made at run time
// first, then the controls of the design, with the model label LBLdat(0)
// last. The resize scales every control but the last of the list; scaling
// in the old scale and then declaring 800 x 600 again leaves a scaled
// control's logical rectangle as it was, so only the model changes here: it
// keeps its real size, and its logical rectangle shrinks or grows against
// the window. It never shows, and each label copied from it is placed anew.
void Frmscore::Form_Resize() {
    if (finestra.minimizzata()) return;
    const float larghezza = finestra.Width();
    const float altezza = finestra.Height();
    if (larghezza_iniziale > 0 && altezza_iniziale > 0 && larghezza > 0 && altezza > 0) {
        auto modello = LBLdat.find(0);
        if (modello != LBLdat.end()) {
            Rett& r = modello->second.r;
            if (altezza != altezza_iniziale) {
                const float rapporto = altezza / altezza_iniziale;
                r.height /= rapporto;
                r.top /= rapporto;
            }
            if (larghezza != larghezza_iniziale) {
                const float rapporto = larghezza / larghezza_iniziale;
                r.width /= rapporto;
                r.left /= rapporto;
            }
            disegna({Gruppo::LBLdat, 0});
        }
    }
    larghezza_iniziale = larghezza;
    altezza_iniziale = altezza;
}

// ---- the end of a hand ----

void Frmscore::Show() {
    finestra.Show();
    Form_Activate();
}

void Frmscore::Form_Activate() {
    LBLtit.r = {20, 5, finestra.ScaleWidth() - 40, 40};
    disegna({Gruppo::LBLtit, 0});
    Load_LBLdat(1);
    LBLdat[1].r = {20, 45, 348, 30};
    disegna({Gruppo::LBLdat, 1});
    Load_LBLdat(2);
    LBLdat[2].r = {432, 45, 348, 30};
    disegna({Gruppo::LBLdat, 2});

    // The column heads, the player's block and then the computer's; on every
    // activation after the first they exist already and are only placed anew.
    for (int k = 0; k < 5; ++k) casella(3 + k, sinistra_giocatore(k), alto_intestazioni, colonne[k]);
    for (int k = 0; k < 5; ++k) casella(8 + k, sinistra_computer(k), alto_intestazioni, colonne[k]);

    risultato();
    mostrasettanta();
    attende_scelta = true;
}

void Frmscore::risultato() {
    if (mod.tipo_partita == 0) {
        // A single hand shows that hand's points alone.
        mod.punti_giocatore = 0;
        mod.punti_computer = 0;
        mod.command1 = nuova_partita;
    }

    cornice();

    // The deal passes to the other side after every hand, match or not.
    mod.mazziere = static_cast<std::uint8_t>(mod.mazziere + 1);
    if (mod.mazziere == 3) mod.mazziere = 1;

    // The hand's row: ten indices and 20 units of height per hand.
    const auto linee = linee_della_mano(mod);
    const auto giocatore = celle(linee[0]), computer = celle(linee[1]);
    const int primo = mod.partite + 13;
    const float alto = 2.0f * static_cast<float>(mod.partite) + 91.0f;
    for (int k = 0; k < 5; ++k) casella(primo + k, sinistra_giocatore(k), alto, giocatore[k]);
    for (int k = 0; k < 5; ++k) casella(primo + 5 + k, sinistra_computer(k), alto, computer[k]);

    // The five lines are added one by one, each side's to its total.
    for (int punto : linee[0].punti()) aggiungi(mod.punti_giocatore, punto);
    for (int punto : linee[1].punti()) aggiungi(mod.punti_computer, punto);

    // The totals stand under the newest row, the greater in red; equal
    // totals both dark red.
    const float sotto = std::nearbyint(LBLdat.rbegin()->second.r.top + 16.0f);
    const int totali[2] = {mod.punti_giocatore, mod.punti_computer};
    for (int i = 0; i < 2; ++i) {
        Etichetta& totale = lblTot[static_cast<std::size_t>(i)];
        totale.r = {i == 0 ? 20.0f : 432.0f, sotto, 348, totale.r.height};
        totale.Visible = true;
        totale.ForeColor = totali[i] > totali[1 - i] ? rosso : rosso_scuro;
        totale.Caption = numero(totali[i]);
        disegna({Gruppo::lblTot, i});
    }

    if (mod.tipo_partita != 0) {
        aggiungi(mod.partite, 10);
        mod.command1 = partita_finita(mod) ? nuova_partita : continua;
    }
    disegna_bottone(1);
}

void Frmscore::cornice() {
    Command1 = Bottone{{125, 520, 150, 30}, true};
    Command2 = Bottone{{525, 520, 150, 30}, true};
    disegna_bottone(1);
    disegna_bottone(2);
    LBLtit.Visible = true;
    disegna({Gruppo::LBLtit, 0});
    for (int i = 1; i <= 2; ++i) {
        Load_LBLdat(i);
        Etichetta& lato = LBLdat[i];
        lato.Caption = i == 1 ? "Player" : "Computer";
        lato.ForeColor = rosso_scuro;
        lato.Visible = true;
        disegna({Gruppo::LBLdat, i});
    }
}

void Frmscore::mostrasettanta() {
    for (int i = 1; i <= 8; ++i) {
        const int lato = i <= 4 ? 1 : 2;
        const int u = i <= 4 ? i : i - 4;
        Imgset& im = imgset[i];
        im.r.left = sinistra_imgset(i);
        im.r.top = 5;
        // A suit that the side does not hold leaves its place empty.
        const int c = carta_migliore(u, mod.migliori[lato][u]);
        if (c == 0) {
            im.Visible = false;
        } else {
            im.carta = c;
            im.Visible = true;
        }
        disegna_imgset(i);
    }
}

// ---- the buttons ----

void Frmscore::Command1_Click() {
    if (!attende_scelta) return;
    attende_scelta = false;

    if (mod.command1 == nuova_partita) {
        LBLtit.Visible = false;
        for (auto& [indice, etichetta] : LBLdat) etichetta.Visible = false;
        for (auto& totale : lblTot) totale.Visible = false;
        for (int i = 1; i <= 8; ++i) imgset[i].Visible = false;
        Command1.Visible = false;
        Command2.Visible = false;
        disegna_tutto();

        mod.partite = 0;
        sipario(finestra, oliva);
        mod.punti_giocatore = 0;
        mod.punti_computer = 0;
        for (int i = LBLdat_UBound(); i >= 3; --i) Unload_LBLdat(i);
    }
    // The sheet stays as it is, behind the table.
    finestra.Show_frmlesta();
}

void Frmscore::Command2_Click() {
    int Cancel = 0;
    Form_QueryUnload(Cancel, 1);
    if (Cancel == 0) Form_Unload();
}

void Frmscore::Form_QueryUnload(int& /*Cancel*/, int UnloadMode) {
    if (UnloadMode == 0) finestra.End();
}

void Frmscore::Form_Unload() {
    finestra.Unload_frmlesta();
    finestra.End();
}

// ---- labels ----

void Frmscore::Load_LBLdat(int indice) {
    if (LBLdat.contains(indice)) return;
    Etichetta copia = LBLdat.contains(0) ? LBLdat[0] : Etichetta{};
    copia.Visible = false;
    LBLdat[indice] = copia;
    disegna({Gruppo::LBLdat, indice});
}

void Frmscore::Unload_LBLdat(int indice) {
    if (indice == 0 || LBLdat.erase(indice) == 0) return;
    finestra.etichetta_distrutta(indice);
}

void Frmscore::casella(int indice, float left, float top, std::string_view caption) {
    Load_LBLdat(indice);
    Etichetta& e = LBLdat[indice];
    e.r = {left, top, larghezza_casella, altezza_casella};
    e.ForeColor = rosso_scuro;
    e.FontSize = 8;
    e.Caption = caption;
    e.Visible = true;
    disegna({Gruppo::LBLdat, indice});
}

Etichetta& Frmscore::etichetta(QualeEtichetta quale) {
    switch (quale.gruppo) {
        case Gruppo::LBLtit: return LBLtit;
        case Gruppo::LBLdat: return LBLdat[quale.indice];
        case Gruppo::lblTot: return lblTot[static_cast<std::size_t>(quale.indice)];
    }
    return LBLtit;
}

void Frmscore::disegna(QualeEtichetta quale) { finestra.etichetta_cambiata(quale, etichetta(quale)); }

void Frmscore::disegna_imgset(int indice) {
    finestra.imgset_cambiata(indice, imgset[static_cast<std::size_t>(indice)]);
}

void Frmscore::disegna_bottone(int indice) {
    if (indice == 1)
        finestra.bottone_cambiato(1, Command1, mod.command1);
    else
        finestra.bottone_cambiato(2, Command2, Command2_Caption);
}

void Frmscore::disegna_tutto() {
    disegna({Gruppo::LBLtit, 0});
    for (const auto& [indice, etichetta] : LBLdat) disegna({Gruppo::LBLdat, indice});
    disegna({Gruppo::lblTot, 0});
    disegna({Gruppo::lblTot, 1});
    for (int i = 1; i <= 8; ++i) disegna_imgset(i);
    disegna_bottone(1);
    disegna_bottone(2);
}

}  // namespace lesta
