// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a player who follows a hand by ear must hear of it, from the moves
// alone, as a witness sees them go by: each deal with the player's three new
// cards, each card played with every card it takes, or laid with the cell
// it lies in, each lesta, and the gathering of what is left. Cards are named
// here from a table of the test's own, as the rules name them, so that a
// card the game names wrongly is heard wrongly.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "match/frmlesta.h"
#include "match/geometria.h"

namespace lesta::prova {

class RaccontoAtteso final : public Osservatore {
public:
    // `poi`, if given, sees every move after this witness.
    explicit RaccontoAtteso(bool italiano, Osservatore* poi = nullptr) : it_(italiano), poi_(poi) {}

    // "Seven of Denari", "Sette di Denari".
    std::string nome(Carta c) const {
        static constexpr std::array<const char*, 11> valori_en{"",    "Ace",   "Two",  "Three", "Four", "Five",
                                                               "Six", "Seven", "Girl", "Horse", "King"};
        static constexpr std::array<const char*, 11> valori_it{"",    "Asso",  "Due",   "Tre",     "Quattro", "Cinque",
                                                               "Sei", "Sette", "Donna", "Cavallo", "Re"};
        static constexpr std::array<const char*, 5> semi{"", "Denari", "Coppe", "Bastoni", "Spade"};
        const int v = c % 10 == 0 ? 10 : c % 10;
        return std::string(it_ ? valori_it[v] : valori_en[v]) + (it_ ? " di " : " of ") + semi[(c - 1) / 10 + 1];
    }
    // With its article: "the Seven of Denari", "l'Asso di Coppe".
    std::string la(Carta c) const {
        if (!it_) return "the " + nome(c);
        return (c % 10 == 1 ? "l'" : c % 10 == 8 ? "la " : "il ") + nome(c);
    }

    void mossa_eseguita(const Frmlesta& f) override {
        ++mosse;
        if (f.posizione_mazzo != mazzo_visto_) {  // a deal came before this move
            mazzo_visto_ = f.posizione_mazzo;
            const int p = f.posizione_mazzo;
            attese.push_back({in("Deal ", "Distribuzione ") + std::to_string((p - 4) / 3) + in(" of 6", " di 6"),
                              nome(f.mod.mazzo[p - 2]), nome(f.mod.mazzo[p - 1]), nome(f.mod.mazzo[p])});
        }
        std::vector<std::string> parti;
        for (int i = 1; i <= f.quante; ++i)
            if (f.presa[i] != 0) parti.push_back(la(f.presa[i]));
        if (mosse == 37) {  // the gathering of what is left, to the side that took last
            parti.insert(parti.begin(),
                         f.turno == 1 ? in("goes to you", "va a te") : in("goes to the computer", "va al computer"));
            attese.push_back(parti);
        } else {
            mossa(f, parti);
        }
        if (poi_ != nullptr) poi_->mossa_eseguita(f);
    }

    // The lines heard hold, in order, every item expected: an item is heard
    // in a line that holds all of its parts.
    ::testing::AssertionResult sentito_in(const std::vector<std::string>& righe) const {
        std::size_t i = 0;
        for (const auto& riga : righe)
            if (i < attese.size() && std::all_of(attese[i].begin(), attese[i].end(), [&riga](const std::string& p) {
                    return riga.find(p) != std::string::npos;
                }))
                ++i;
        if (i == attese.size()) return ::testing::AssertionSuccess();
        std::string atteso;
        for (const auto& p : attese[i]) atteso += "[" + p + "] ";
        return ::testing::AssertionFailure() << "not heard, or out of order: " << atteso;
    }

    std::vector<std::vector<std::string>> attese;
    int mosse = 0, leste = 0;

private:
    std::string in(const char* inglese, const char* italiano) const { return it_ ? italiano : inglese; }

    // A capture names the card played and every card taken; a card laid, the
    // cell it lies in; a card that finds every cell taken, the pile it goes
    // to. Then the lesta, if it made one.
    void mossa(const Frmlesta& f, std::vector<std::string> parti) {
        const bool prende = !parti.empty();
        const bool io = f.turno == 1;
        parti.insert(parti.begin(), (io ? (prende ? in("You play ", "Giochi ") : in("You lay ", "Metti "))
                                        : (prende ? in("The computer plays ", "Il computer gioca ")
                                                  : in("The computer lays ", "Il computer mette "))) +
                                        la(f.carta_giocata));
        bool in_tavola = false;
        for (int r = 1; r <= 3; ++r)
            for (int k = 1; k <= 4; ++k)
                if (f.tavolo[r][k] == f.carta_giocata) {
                    parti.push_back(std::string(" ") + tasti_celle[static_cast<std::size_t>((r - 1) * 4 + k - 1)] +
                                    ".");
                    in_tavola = true;
                }
        if (!prende && !in_tavola)
            parti = {la(f.carta_giocata),
                     io ? in("your pile", "tuo mazzetto") : in("computer's pile", "mazzetto del computer")};
        attese.push_back(parti);
        if (f.mod.leste[f.turno] != leste_[static_cast<std::size_t>(f.turno)]) {
            leste_[static_cast<std::size_t>(f.turno)] = f.mod.leste[f.turno];
            attese.push_back({"Lesta!"});
            ++leste;
        }
    }

    bool it_;
    Osservatore* poi_;
    int mazzo_visto_ = 4;
    std::array<int, 3> leste_{};
};

}  // namespace lesta::prova
