// SPDX-License-Identifier: GPL-3.0-or-later
#include "scoring/lettura_foglio.h"

#include <string_view>

#include "scoring/frmscore.h"
#include "scoring/linee.h"
#include "scoring/settanta.h"

namespace lesta {

namespace {

const char* in(Lingua l, const char* inglese, const char* italiano) {
    return l == Lingua::italiano ? italiano : inglese;
}

// A side's row as the sheet writes it, under the column heads, and the
// points it gives.
std::string riga(Lingua l, const char* lato, const Linee& linee) {
    auto si_no = [l](bool si) { return std::string(si ? in(l, "yes", "sì") : "no"); };
    const int punti = linee.totale();
    return std::string(lato) + ": Carte " + std::to_string(linee.carte) + ", Denari " +
           std::to_string(linee.denari) + ", Primiera " + si_no(linee.primiera) + ", Settebello " +
           si_no(linee.settebello) + ", Leste " + std::to_string(linee.leste) + "; " + std::to_string(punti) +
           (punti == 1 ? in(l, " point. ", " punto. ") : in(l, " points. ", " punti. "));
}

// A side's best card in each suit it holds, as the sheet shows them.
std::string migliori(Lingua l, const ModLesta& mod, int lato) {
    std::string testo;
    for (int u = 1; u <= 4; ++u) {
        const int c = carta_migliore(u, mod.migliori[static_cast<std::size_t>(lato)][static_cast<std::size_t>(u)]);
        if (c == 0) continue;
        if (!testo.empty()) testo += ", ";
        testo += nome_carta(static_cast<Carta>(c), l);
    }
    return testo.empty() ? std::string(in(l, "none", "nessuna")) : testo;
}

}  // namespace

std::string lettura_del_foglio(const ModLesta& mod, Lingua l) {
    const bool partita = mod.tipo_partita != 0;
    std::string testo;
    if (partita)
        testo = std::string(in(l, "Score sheet, hand ", "Foglio dei punti, mano ")) + std::to_string(mod.partite / 10) +
                (mod.tipo_partita == 1 ? in(l, " of a match to 11 points. ", " di una partita a 11 punti. ")
                                       : in(l, " of a match to 21 points. ", " di una partita a 21 punti. "));
    else
        testo = in(l, "Score sheet of a single hand. ", "Foglio dei punti della partita singola. ");

    const auto linee = linee_della_mano(mod);
    testo += riga(l, in(l, "Player", "Giocatore"), linee[0]) + riga(l, "Computer", linee[1]);
    const int tu = mod.punti_giocatore, computer = mod.punti_computer;
    testo += std::string(in(l, "Totals: Player ", "Totali: Giocatore ")) + std::to_string(tu) + ", Computer " +
             std::to_string(computer) + ". ";
    testo += std::string(in(l, "Best cards of the primiera: Player: ", "Carte migliori della settanta: Giocatore: ")) +
             migliori(l, mod, 1) + "; Computer: " + migliori(l, mod, 2) + ". ";

    const bool finita = mod.command1 == nuova_partita;
    if (partita && !finita)
        testo += in(l, "The match goes on. ", "La partita continua. ");
    else if (tu == computer)
        testo += in(l, "The hand ends in a draw. ", "La mano finisce pari. ");
    else if (partita)
        testo += tu > computer ? in(l, "You win the match. ", "Vinci la partita. ")
                               : in(l, "The computer wins the match. ", "Il computer vince la partita. ");
    else
        testo += tu > computer ? in(l, "You win the hand. ", "Vinci la mano. ")
                               : in(l, "The computer wins the hand. ", "Il computer vince la mano. ");
    return testo + in(l, "Enter: ", "Invio: ") + mod.command1 + ".";
}

}  // namespace lesta
