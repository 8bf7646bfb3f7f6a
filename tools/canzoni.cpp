// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/canzoni.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <sstream>

#include "sound/file_midi.h"

namespace lesta::canzoni {
namespace {

// ---- the songs ----

// General MIDI programs, counted from 0.
constexpr int fisarmonica = 21;
constexpr int mandolino = 105;  // the banjo stands in: plucked and bright
constexpr int chitarra = 24;
constexpr int contrabbasso = 32;
constexpr int violino = 40;

std::vector<Canzone> crea_canzoni() {
    std::vector<Canzone> c;

    // Teodoro Cottrau, Naples 1849: a barcarola in 3/8. Units of a
    // sixteenth, six to the bar.
    c.push_back({
        "Santa Lucia",
        "Teodoro Cottrau, 1849",
        3,
        8,
        16,
        72,
        fisarmonica,
        chitarra,
        contrabbasso,
        {
            {'I', "r:6 | r:6", "C | G7"},
            // Sul mare luccica l'astro d'argento,
            // placida è l'onda, prospero è il vento.
            {'A',
             "G4:3 G4:1 C5:2 | E5:3 E5:1 D5:2 | C5:3 D5:1 F5:2 | A5:4 G5:2 |"
             "F4:3 F4:1 B4:2 | D5:3 D5:1 C5:2 | B4:3 C5:1 E5:2 | G5:4 G5:2",
             "C | C | F | C | G7 | G7 | G7 | C"},
            // Venite all'agile barchetta mia,
            // Santa Lucia! Santa Lucia!
            {'B',
             "G4:3 G4:1 C5:2 | E5:3 E5:1 D5:2 | C5:3 B4:1 C5:2 | D5:2 E5:2 F5:2 |"
             "A5:3 A5:1 D6:2 | B5:3 G5:1 A5:2 | G5:3 F5:1 D5:2 | C5:6",
             "C | C | C | G7 | D7 | G | G7 | C"},
        },
        "IAABBAB",
    });

    // Luigi Denza, words by Peppino Turco, Naples 1880: in 6/8. Units of an
    // eighth, six to the bar.
    c.push_back({
        "Funiculì, Funiculà",
        "Luigi Denza, 1880",
        6,
        8,
        8,
        138,
        mandolino,
        chitarra,
        contrabbasso,
        {
            {'I', "r:6 | r:6 | r:6 | r:5 G3:1", "C | C | G7 | C"},
            // Aissera, Nanninè, me ne sagliette, tu saje addò...
            {'V',
             "C4:2 C4:1 C4:1 E4:1 D4:1 | C4:2 C4:1 C4:1 E4:1 D4:1 | D4:2 D4:1 D4:1 F4:1 E4:1 | D4:3 r:2 D4:1 |"
             "E4:2 E4:1 E4:1 G4:1 F4:1 | E4:2 E4:1 E4:1 G4:1 F4:1 | F4:1 E4:1 D4:1 C4:1 B3:1 A3:1 | G3:3 r:2 G3:1",
             "C | C | G7 | G7 | C | C | G7 | C"},
            // Jammo, jammo, 'ncoppa, jammo jà! (twice)
            {'J',
             "D5:3 B4:3 | D5:3 B4:3 | D5:1 D5:1 D5:1 E5:1 D5:1 C5:1 | B4:3 G4:2 r:1 |"
             "D5:3 B4:3 | D5:3 B4:3 | D5:1 E5:1 F5:1 G5:1 F5:1 D5:1 | G5:5 r:1",
             "G | G | G | G | G7 | G7 | G7 | G7"},
            // Funiculì, funiculà! 'Ncoppa, jammo jà, funiculì, funiculà!
            {'F',
             "G#4:1 A4:1 B4:1 D5:3 | C5:3 A4:3 | G#4:1 A4:1 B4:1 D5:3 | C5:5 r:1 |"
             "A4:2 C5:1 F5:3 | E5:2 D5:1 C5:3 | B4:2 C5:1 D5:3",
             "E7 | Am | E7 | Am | F | C | G7"},
            // The last bar of the chorus: back to the verse, or the end.
            {'X', "C5:5 G3:1", "C"},
            {'Z', "C5:6", "C"},
        },
        "IVVJFXVVJFZ",
    });

    // A traditional song of Trieste and Istria, words and tune of unknown
    // authors: in 2/4, a polka of the osterie. Units of an eighth, four to
    // the bar. The verse is sung twice, the second time to the end of its
    // story; then the cry "Perché non m'ami più?".
    c.push_back({
        "La mula de Parenzo",
        "traditional, Trieste and Istria",
        2,
        4,
        8,
        104,
        violino,
        fisarmonica,
        contrabbasso,
        {
            {'I', "r:4 | r:4 | r:4 | r:3 G4:1", "C | F | G7 | C"},
            // La mula de Parenzo ga messo su botega,
            // de tuto la vendeva...
            {'P',
             "C5:1 C5:1 C5:1 D5:1 | E5:2 C5:1 G4:1 | D5:1 D5:1 D5:1 E5:1 | F5:2 D5:1 B4:1 |"
             "E5:1 E5:1 E5:1 F5:1 | G5:2 E5:1 C5:1",
             "C | C | G7 | G7 | C | C"},
            // ...de tuto la vendeva.
            {'Q', "F5:1 F5:1 E5:1 D5:1 | D5:2 B4:1 G4:1", "G7 | G7"},
            // ...fora che 'l bacalà!
            {'R', "F5:1 E5:1 D5:1 B4:1 | C5:3 r:1", "G7 | C"},
            // Perché non m'ami più? And the last time, the end.
            {'T', "r:1 G5:1 G5:1 F5:1 | E5:1 D5:1 C5:1 G4:1", "G7 | C"},
            {'Z', "r:1 G5:1 G5:1 F5:1 | E5:1 D5:1 C5:2", "G7 | C"},
        },
        "IPQPRTPQPRTPQPRTPQPRZ",
    });
    return c;
}

// ---- reading the notation ----

int classe_di(char lettera) {
    switch (lettera) {
        case 'C': return 0;
        case 'D': return 2;
        case 'E': return 4;
        case 'F': return 5;
        case 'G': return 7;
        case 'A': return 9;
        case 'B': return 11;
        default: return -1;
    }
}

std::vector<std::string> battute_di(std::string_view testo) {
    std::vector<std::string> battute(1);
    for (char ch : testo) {
        if (ch == '|') {
            battute.emplace_back();
        } else {
            battute.back() += ch;
        }
    }
    return battute;
}

std::vector<std::string> parole(const std::string& testo) {
    std::istringstream in(testo);
    std::vector<std::string> out;
    for (std::string p; in >> p;) out.push_back(p);
    return out;
}

// "G#4:3" gives pitch 68 and length 3; "r:2" a rest (pitch -1). False if the
// token is not a note.
bool leggi_nota(const std::string& t, int& altezza, int& durata) {
    const std::size_t due_punti = t.find(':');
    if (due_punti == std::string::npos || due_punti == 0) return false;
    const std::string nome = t.substr(0, due_punti), lunghezza = t.substr(due_punti + 1);
    if (lunghezza.empty() || !std::all_of(lunghezza.begin(), lunghezza.end(),
                                          [](char ch) { return std::isdigit(static_cast<unsigned char>(ch)); }))
        return false;
    durata = std::stoi(lunghezza);
    if (durata <= 0) return false;
    if (nome == "r") {
        altezza = -1;
        return true;
    }
    const int classe = classe_di(nome[0]);
    if (classe < 0) return false;
    std::size_t i = 1;
    int alterazione = 0;
    if (i < nome.size() && (nome[i] == '#' || nome[i] == 'b')) alterazione = nome[i++] == '#' ? 1 : -1;
    if (i + 1 != nome.size() || !std::isdigit(static_cast<unsigned char>(nome[i]))) return false;
    altezza = 12 * (nome[i] - '0' + 1) + classe + alterazione;
    return true;
}

bool leggi_accordo(const std::string& t, Partitura::Accordo& a) {
    if (t.empty()) return false;
    const int classe = classe_di(t[0]);
    if (classe < 0) return false;
    std::size_t i = 1;
    int alterazione = 0;
    if (i < t.size() && (t[i] == '#' || t[i] == 'b')) alterazione = t[i++] == '#' ? 1 : -1;
    const std::string tipo = t.substr(i);
    static const std::map<std::string, std::vector<int>> tipi{
        {"", {0, 4, 7}}, {"m", {0, 3, 7}}, {"7", {0, 4, 7, 10}}, {"dim", {0, 3, 6}}};
    const auto it = tipi.find(tipo);
    if (it == tipi.end()) return false;
    a.radice = (classe + alterazione + 12) % 12;
    a.intervalli = it->second;
    return true;
}

const Sezione* sezione(const Canzone& c, char nome) {
    for (const auto& s : c.sezioni) {
        if (s.nome == nome) return &s;
    }
    return nullptr;
}

// ---- the arrangement ----

constexpr int divisione = 480;  // ticks per quarter note

// A chord tone in the middle register, G3..F#4, where the guitar strums.
int voce_accordo(int classe) { return 55 + (classe - 7 + 12) % 12; }
// The bass, E2..D#3.
int voce_basso(int classe) { return 40 + (classe - 4 + 12) % 12; }

}  // namespace

const std::vector<Canzone>& tutte() {
    static const std::vector<Canzone> canzoni = crea_canzoni();
    return canzoni;
}

Partitura leggi(const Canzone& c) {
    Partitura p;
    p.unita_per_battuta = c.numeratore * c.unita / c.denominatore;
    if (c.numeratore * c.unita % c.denominatore != 0) p.errori.push_back("the bar is not a whole number of units");

    int adesso = 0;
    for (char nome : c.forma) {
        const Sezione* s = sezione(c, nome);
        if (s == nullptr) {
            p.errori.push_back(std::string("no section ") + nome);
            continue;
        }
        const auto battute = battute_di(s->melodia);
        const auto accordi = parole(std::string(s->accordi.begin(), s->accordi.end()) + " ");
        std::vector<std::string> accordi_per_battuta;
        for (const auto& a : accordi) {
            if (a != "|") accordi_per_battuta.push_back(a);
        }
        if (accordi_per_battuta.size() != battute.size()) {
            p.errori.push_back(std::string("section ") + nome + ": " + std::to_string(battute.size()) + " bars, " +
                               std::to_string(accordi_per_battuta.size()) + " chords");
        }
        for (std::size_t b = 0; b < battute.size(); ++b) {
            int lunghezza = 0;
            for (const auto& t : parole(battute[b])) {
                int altezza = 0, durata = 0;
                if (!leggi_nota(t, altezza, durata)) {
                    p.errori.push_back(std::string("section ") + nome + ": cannot read \"" + t + "\"");
                    continue;
                }
                if (altezza >= 0) p.melodia.push_back({adesso + lunghezza, durata, altezza});
                lunghezza += durata;
            }
            if (lunghezza != p.unita_per_battuta) {
                p.errori.push_back(std::string("section ") + nome + ", bar " + std::to_string(b + 1) + ": " +
                                   std::to_string(lunghezza) + " units instead of " +
                                   std::to_string(p.unita_per_battuta));
            }
            if (b < accordi_per_battuta.size() && accordi_per_battuta[b] != "-") {
                Partitura::Accordo a{adesso, 0, {}};
                if (leggi_accordo(accordi_per_battuta[b], a)) {
                    p.accordi.push_back(a);
                } else {
                    p.errori.push_back(std::string("section ") + nome + ": cannot read chord \"" +
                                       accordi_per_battuta[b] + "\"");
                }
            }
            adesso += p.unita_per_battuta;
            ++p.battute;
        }
    }
    return p;
}

double durata_secondi(const Canzone& c, const Partitura& p) {
    const double quarti = static_cast<double>(p.battute) * p.unita_per_battuta * 4.0 / c.unita;
    return quarti * 60.0 / c.quarti_al_minuto;
}

std::vector<std::uint8_t> file_midi(const Canzone& c) {
    const Partitura p = leggi(c);
    const int tick = divisione * 4 / c.unita;  // ticks per unit
    const auto t = [tick](int unita) { return static_cast<std::uint32_t>(unita * tick); };

    midi::Traccia guida(c.titolo);
    guida.tempo(0, static_cast<std::uint32_t>(60'000'000 / c.quarti_al_minuto));
    int esponente = 0;
    for (int d = c.denominatore; d > 1; d /= 2) ++esponente;
    guida.metro(0, c.numeratore, esponente);

    midi::Traccia canto("melodia"), accordi("accordi"), basso("basso");
    canto.programma(0, 0, c.strumento_melodia);
    accordi.programma(1, 0, c.strumento_accordi);
    basso.programma(2, 0, c.strumento_basso);
    canto.controllo(0, 0, 7, 110);
    accordi.controllo(1, 0, 7, 80);
    basso.controllo(2, 0, 7, 100);

    // The melody a little detached, so that repeated notes are heard.
    for (const Nota& n : p.melodia) {
        const int suona = std::max(1, n.durata * tick - tick / 6);
        canto.nota(0, t(n.inizio), static_cast<std::uint32_t>(suona), n.altezza, 96);
    }

    // The accompaniment: the bass on the strong beats, the chord on the
    // others. In 3/8 and 6/8 a beat is three eighths.
    const bool composto = c.denominatore == 8 && c.numeratore % 3 == 0;
    const int ottavo = c.unita / 8;
    const int battito = composto ? 3 * ottavo : c.unita / c.denominatore;
    const int battiti = p.unita_per_battuta / battito;
    for (const auto& a : p.accordi) {
        for (int b = 0; b < battiti; ++b) {
            const int inizio = a.inizio + b * battito;
            // The bass takes the root on the first beat and the fifth on the
            // next strong one; in 3/4 it plays on the first beat alone.
            bool basso_qui = false;
            int quinta = 0;
            if (composto) {
                basso_qui = true;
                quinta = b % 2;
            } else if (battiti == 3) {
                basso_qui = b == 0;
            } else {
                basso_qui = b % 2 == 0;
                quinta = (b / 2) % 2;
            }
            if (basso_qui) {
                const int nota_basso = voce_basso((a.radice + 7 * quinta) % 12);
                const int lunga = composto ? 2 * ottavo : battito;
                basso.nota(2, t(inizio), t(lunga) - static_cast<std::uint32_t>(tick / 4), nota_basso, 84);
            }
            // The chord on the off-beats: the second and third eighth of a
            // compound beat, the weak beats of a simple bar.
            std::vector<int> colpi;
            if (composto) {
                colpi = {inizio + ottavo, inizio + 2 * ottavo};
            } else if (battiti == 3 ? b > 0 : b % 2 == 1) {
                colpi = {inizio};
            }
            const int lungo = composto ? ottavo : battito;
            for (int colpo : colpi) {
                for (int iv : a.intervalli)
                    accordi.nota(1, t(colpo), t(lungo) - static_cast<std::uint32_t>(tick / 3),
                                 voce_accordo((a.radice + iv) % 12), 58);
            }
        }
    }
    return midi::file_smf({guida, canto, accordi, basso}, divisione);
}

}  // namespace lesta::canzoni
