// SPDX-License-Identifier: GPL-3.0-or-later
// lesta-sim: the game's routines without a window, on a virtual clock, hand
// after hand, writing one JSON line per hand. Side 1 is a player who picks at
// random through the same clicks a person makes; side 2 is the computer.
//
//   lesta-sim --hands N --seed S [--match single|11|21] [--player random]
//   lesta-sim --bench [--seconds T]

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>

#include "headless/casuale_fisso.h"
#include "headless/finestre.h"
#include "headless/giocatore_casuale.h"
#include "headless/orologio_virtuale.h"
#include "headless/punteggio.h"
#include "match/frmlesta.h"
#include "scoring/frmscore.h"

namespace lesta {
namespace {

struct Turno {
    int turno, slot, carta;
    std::vector<int> presa;
    int riga = 0, colonna = 0;  // 0: not laid on the table
    bool lesta;
};

// A JSON array of numbers.
template <class Sequenza>
std::string lista(const Sequenza& s) {
    std::string testo = "[";
    for (const auto& x : s) {
        if (testo.size() > 1) testo += ',';
        testo += std::to_string(x);
    }
    return testo + "]";
}

class Simulatore final : public Osservatore, public Programma {
public:
    Simulatore(std::uint32_t seme, int tipo, bool con_foglio)
        : casuale_(seme),
          frm_(Piattaforma{finestra_, orologio_, casuale_, musica_, suono_, *this, cronista_}, mod_, {}),
          foglio_(foglio_finestra_, mod_),
          giocatore_(frm_, seme ^ 0x9E3779B9u),
          tipo_(tipo),
          con_foglio_(con_foglio) {
        orologio_.al_timer2 = [this] { frm_.Timer2_Timer(); };
        orologio_.ingresso = [this] { return ingresso(); };
        if (con_foglio_) frm_.osservatore = this;
        frm_.Form_Load();
        foglio_.Form_Load();
    }

    // Plays one hand, from the start panel or the shuffle to the sheet's
    // button; false if the game stopped waiting for something nobody gives.
    bool mano() {
        turni_.clear();
        resto_.clear();
        leste_prima_ = 0;
        Task attivazione = frm_.Form_Activate();
        attivazione.start();
        if (!attivazione.done()) return false;
        if (con_foglio_) foglio_.Command1_Click();
        ++mani_;
        return true;
    }

    const std::string& riga_json() const { return json_; }

    // ---- what the game asks of the program ----
    void End() override {}
    void messaggio_e_fine(std::string_view) override {}
    void Show_frmscore() override {
        if (!con_foglio_) return;
        std::ostringstream j;
        scrivi_mano(j);
        const int giocatore_prima = mod_.tipo_partita == 0 ? 0 : mod_.punti_giocatore;
        const int computer_prima = mod_.tipo_partita == 0 ? 0 : mod_.punti_computer;
        foglio_.Show();
        j << ",\"settanta\":[" << frm_.settanta[1] << "," << frm_.settanta[2] << "]"
          << ",\"migliori\":[" << lista(std::vector<int>(mod_.migliori[1].begin() + 1, mod_.migliori[1].end())) << ","
          << lista(std::vector<int>(mod_.migliori[2].begin() + 1, mod_.migliori[2].end())) << "]"
          << ",\"vince_settanta\":" << int{mod_.vince_settanta} << ",\"punti\":["
          << mod_.punti_giocatore - giocatore_prima << "," << mod_.punti_computer - computer_prima << "]"
          << ",\"punti_giocatore\":" << int{mod_.punti_giocatore} << ",\"punti_computer\":" << int{mod_.punti_computer}
          << ",\"caption\":\"" << mod_.command1 << "\""
          << ",\"mazziere_dopo\":" << int{mod_.mazziere} << "}";
        json_ = j.str();
    }

    // ---- what the game tells of each move ----
    void mossa_eseguita(const Frmlesta& f) override {
        std::vector<int> presa;
        for (int i = 1; i <= f.quante; ++i)
            if (f.presa[i] != 0) presa.push_back(f.presa[i]);
        if (turni_.size() == 36) {  // the cards left on the table, to the last side to capture
            resto_ = presa;
            return;
        }
        Turno t{f.turno, f.slot, f.carta_giocata, presa, 0, 0, false};
        const auto r = static_cast<std::size_t>(f.riga), c = static_cast<std::size_t>(f.colonna);
        if (f.quante == 0 && r >= 1 && r <= 3 && c >= 1 && c <= 4 && f.tavolo[r][c] == f.carta_giocata)
            t.riga = static_cast<int>(r), t.colonna = static_cast<int>(c);
        const int leste = mod_.leste[1] + mod_.leste[2];
        t.lesta = leste != leste_prima_;
        leste_prima_ = leste;
        turni_.push_back(std::move(t));
    }

    std::int64_t millisecondi() const { return orologio_.millisecondi(); }

private:
    bool ingresso() {
        // The start panel: the match chosen at the command line, and GO.
        if (frm_.Visible(Controllo::GO)) {
            frm_.Option1_Click(tipo_);
            frm_.GO_Click();
            return true;
        }
        return giocatore_.clic();
    }

    void scrivi_mano(std::ostringstream& j) const {
        j << "{\"hand\":" << mani_ + 1 << ",\"tipo_partita\":" << int{mod_.tipo_partita}
          << ",\"partite\":" << int{mod_.partite} << ",\"mazziere\":" << int{mod_.mazziere}
          << ",\"mazzo\":" << lista(std::vector<int>(mod_.mazzo.begin() + 1, mod_.mazzo.end())) << ",\"turns\":[";
        for (std::size_t i = 0; i < turni_.size(); ++i) {
            const Turno& t = turni_[i];
            j << (i ? "," : "") << "{\"turno\":" << t.turno << ",\"slot\":" << t.slot << ",\"carta\":" << t.carta
              << ",\"presa\":" << lista(t.presa)
              << ",\"cella\":" << (t.riga ? lista(std::array{t.riga, t.colonna}) : "null")
              << ",\"lesta\":" << (t.lesta ? "true" : "false") << "}";
        }
        j << "],\"ultima_presa\":" << frm_.ultima_presa << ",\"resto\":" << lista(resto_) << ",\"leste\":["
          << mod_.leste[1] << "," << mod_.leste[2] << "],\"numcarte\":" << mod_.numcarte
          << ",\"numdenari\":" << mod_.numdenari << ",\"settebello\":" << (mod_.settebello ? "true" : "false");
    }

    FinestraNulla finestra_;
    OrologioVirtuale orologio_;
    CasualeFisso casuale_;
    MediaMuto musica_, suono_;
    CronistaMuto cronista_;
    ModLesta mod_;
    Frmlesta frm_;
    PunteggioSenzaSchermo foglio_finestra_;
    Frmscore foglio_;
    GiocatoreCasuale giocatore_;
    int tipo_;
    bool con_foglio_;
    int mani_ = 0;
    std::vector<Turno> turni_;
    std::vector<int> resto_;
    int leste_prima_ = 0;
    std::string json_;
};

int uso() {
    std::cerr << "usage: lesta-sim --hands N --seed S [--match single|11|21] [--player random]\n"
                 "       lesta-sim --bench [--seconds T]\n";
    return 2;
}

// Hands a second of the game alone: no score sheet and no output.
int banco_di_prova(double secondi) {
    using orologio = std::chrono::steady_clock;
    Simulatore sim(1, 0, false);
    const auto inizio = orologio::now();
    long mani = 0;
    while (std::chrono::duration<double>(orologio::now() - inizio).count() < secondi) {
        for (int i = 0; i < 1000; ++i)
            if (!sim.mano()) return 1;
        mani += 1000;
    }
    const double trascorsi = std::chrono::duration<double>(orologio::now() - inizio).count();
    std::printf("%ld hands in %.2f s: %.0f hands per second\n", mani, trascorsi, mani / trascorsi);
    return 0;
}

}  // namespace
}  // namespace lesta

int main(int argc, char* argv[]) {
    long mani = -1;
    std::uint32_t seme = 0;
    bool ha_seme = false, bench = false;
    int tipo = 0;
    double secondi = 3;
    for (int i = 1; i < argc; ++i) {
        const std::string_view a = argv[i];
        const char* valore = i + 1 < argc ? argv[i + 1] : nullptr;
        if (a == "--bench") {
            bench = true;
        } else if (valore == nullptr) {
            return lesta::uso();
        } else if (a == "--hands") {
            mani = std::strtol(valore, nullptr, 10), ++i;
        } else if (a == "--seed") {
            seme = static_cast<std::uint32_t>(std::strtoul(valore, nullptr, 10)), ha_seme = true, ++i;
        } else if (a == "--seconds") {
            secondi = std::strtod(valore, nullptr), ++i;
        } else if (a == "--match") {
            const std::string_view m = valore;
            ++i;
            if (m == "single")
                tipo = 0;
            else if (m == "11")
                tipo = 1;
            else if (m == "21")
                tipo = 2;
            else
                return lesta::uso();
        } else if (a == "--player") {
            if (std::string_view(valore) != "random") return lesta::uso();
            ++i;
        } else {
            return lesta::uso();
        }
    }
    if (bench) return lesta::banco_di_prova(secondi);
    if (mani < 0 || !ha_seme) return lesta::uso();

    lesta::Simulatore sim(seme, tipo, true);
    for (long m = 0; m < mani; ++m) {
        if (!sim.mano()) {
            std::cerr << "hand " << m + 1 << " stopped: the game waits for something no player gives\n";
            return 1;
        }
        std::cout << sim.riga_json() << '\n';
    }
    return 0;
}
