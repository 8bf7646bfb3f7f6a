// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A table without a screen for the tests: the game on a window stand-in (a
// raster unless told otherwise), a virtual clock, a seeded random stream with
// room for scripted draws, music and a card sound that write down what they
// are told, and a folder of its own for the settings file.

#include <unistd.h>
#include <array>
#include <atomic>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "headless/casuale_fisso.h"
#include "headless/finestre.h"
#include "headless/orologio_virtuale.h"
#include "match/frmlesta.h"
#include "match/geometria.h"
#include "sound/media.h"

namespace lesta::prova {

// The threads of this process whose name starts with `prefisso` (SDL names
// its audio thread "SDLAudio...").
inline int thread_di_nome(std::string_view prefisso) {
    int n = 0;
    for (const auto& t : std::filesystem::directory_iterator("/proc/self/task")) {
        std::string nome;
        std::getline(std::ifstream(t.path() / "comm"), nome);
        n += nome.rfind(prefisso, 0) == 0;
    }
    return n;
}

// A whole file's bytes, and a file made of these bytes.
inline std::string leggi_tutto(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}
inline void scrivi_tutto(const std::filesystem::path& p, std::string_view testo) {
    std::ofstream(p, std::ios::binary) << testo;
}

// A fresh folder under the system's temporary folder, removed at the end.
class CartellaTemporanea {
public:
    CartellaTemporanea() {
        static std::atomic<int> contatore{0};
        percorso_ = std::filesystem::temp_directory_path() /
                    ("lesta-prova-" + std::to_string(::getpid()) + "-" + std::to_string(contatore++));
        std::filesystem::create_directories(percorso_);
    }
    ~CartellaTemporanea() {
        std::error_code ignorato;
        std::filesystem::remove_all(percorso_, ignorato);
    }
    CartellaTemporanea(const CartellaTemporanea&) = delete;
    CartellaTemporanea& operator=(const CartellaTemporanea&) = delete;
    const std::filesystem::path& percorso() const { return percorso_; }

private:
    std::filesystem::path percorso_;
};

// Plays nothing; writes down the words it is told and the files it opens,
// and counts the times it is told to play.
class MediaRegistrata final : public Media {
public:
    void FileName(const std::string& percorso) override { file = percorso; }
    void Command(std::string_view c) override {
        parole.emplace_back(c);
        if (c == "Open") aperti.push_back(file);
        suonate += c == "Play";
    }
    void From(int) override {}
    void Wait(bool) override {}
    std::string file;
    std::vector<std::string> parole, aperti;
    int suonate = 0;
};

// Writes down every line the game tells, in order, once it is told to
// listen (until then the game composes none, as for a player who needs none);
// a test may look at each line as it is told.
class CronistaRegistrato final : public Cronista {
public:
    bool in_ascolto() const override { return ascolta; }
    Lingua lingua() const override { return lingua_; }
    void racconta(std::string riga) override {
        if (guarda) guarda(riga);
        righe.push_back(std::move(riga));
    }
    bool ascolta = false;
    Lingua lingua_ = Lingua::inglese;
    std::function<void(const std::string&)> guarda;
    std::vector<std::string> righe;
};

// The table's grid in scan order: row 1 columns 1..4, then rows 2 and 3; 0
// is an empty cell.
using Griglia = std::array<Carta, 12>;

template <class F = FinestraRaster>
struct Banco {
    explicit Banco(std::uint32_t seme = 1) : casuale(seme) {
        orologio.al_timer2 = [this] { frm.Timer2_Timer(); };
    }
    // With the cards already at the given scale, as the start of a hand
    // leaves them.
    Banco(std::uint32_t seme, float scala) : Banco(seme) { prepara_carte(scala); }
    Banco(const Banco&) = delete;
    Banco& operator=(const Banco&) = delete;

    // The capture masks, and the card size and the grid's corner for the
    // scale, set as the start of a hand sets them.
    void prepara_carte(float scala) {
        frm.Trova_Combinazioni();
        frm.scala = scala;
        const Misure misure = misure_a_scala(scala, frm.meta_larghezza, frm.meta_altezza);
        frm.larghezza_carta = misure.larghezza_carta;
        frm.altezza_carta = misure.altezza_carta;
        frm.tavolox = misure.tavolox;
        frm.tavoloy = misure.tavoloy;
    }
    // The window cleared to the table colour, and the game told so.
    void tavolo_verde() {
        frm.sfondo = static_cast<std::int32_t>(verde_tavolo);
        finestra.BackColor(verde_tavolo);
    }

    float cella_x(int k) const { return sinistra_cella(static_cast<float>(k), frm.tavolox, frm.larghezza_carta); }
    float cella_y(int r) const { return alto_cella(static_cast<float>(r), frm.tavoloy, frm.altezza_carta); }
    // Lays the cards in their cells, painted, unmarked.
    void tavolo(const Griglia& g) {
        for (int i = 0; i < 12; ++i) {
            const int r = i / 4 + 1, k = i % 4 + 1;
            const Carta c = g[static_cast<std::size_t>(i)];
            frm.tavolo[r][k] = c;
            if (c == 0) continue;
            frm.carta[c].Left = cella_x(k);
            frm.carta[c].Top = cella_y(r);
            frm.carta[c].tag = Tag::vuoto;
            finestra.PaintPicture(faccia(c), frm.carta[c].Left, frm.carta[c].Top, frm.larghezza_carta,
                                  frm.altezza_carta);
        }
    }

    CartellaTemporanea cartella;
    F finestra;
    OrologioVirtuale orologio;
    CasualeFisso casuale;
    MediaRegistrata musica, suono;
    ProgrammaFinto programma;
    CronistaRegistrato cronista;
    ModLesta mod;
    Frmlesta frm{Piattaforma{finestra, orologio, casuale, musica, suono, programma, cronista}, mod,
                 cartella.percorso()};
};

// The draw u in [0, 1) for which floor(n x u) is k.
inline float estrazione(int k, int n) { return (static_cast<float>(k) + 0.5f) / static_cast<float>(n); }

}  // namespace lesta::prova
