// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The table window as the game sees it: its fields and its routines. The
// fields keep the names of the game's own words; the routines take no
// arguments and talk through these fields. The routines are defined where
// they belong: start-up and the shuffle in match/, the turns in turns/, the
// settings and the window's layout in table/.
//
// A field can change under a routine only at a co_await: there, window events
// run, and they read and write the same fields.

#include <array>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "match/carte.h"
#include "match/casuale.h"
#include "match/programma.h"
#include "match/stato.h"
#include "sound/media.h"
#include "table/finestra.h"
#include "table/posto_impostazioni.h"
#include "turns/cronista.h"
#include "turns/orologio.h"
#include "turns/task.h"

namespace lesta {

// What the game uses of the world outside it.
struct Piattaforma {
    Finestra& finestra;
    Orologio& orologio;
    Casuale& casuale;
    Media& MMC1;  // the music
    Media& MMCw;  // the card sound
    Programma& programma;
    Cronista& cronista;  // who tells the game to a player who follows it by ear
};

// The mark of a table card chosen for the capture under way.
enum class Tag : std::uint8_t { vuoto, SEL };

// A place kept in whole units, as in the capture list: the nearest whole
// number, ties to even (the rounding the program never changes).
inline std::int16_t unita_intere(float x) { return static_cast<std::int16_t>(std::lrint(x)); }

// A card's holder: never shown; it remembers where its card was last painted.
struct CartaControllo {
    float Left = 0, Top = 0;
    Tag tag = Tag::vuoto;
};

// A card back of the computer's hand: it holds the card dealt to that slot,
// 0 once the card is played.
struct DorsoControllo {
    float Left = 0, Top = 0;
    Carta tag = 0;
};

class Frmlesta;

// Who watches the moves go by, such as the simulator that writes them down.
// It is told; it never changes anything.
class Osservatore {
public:
    // A move has been carried out: the card laid or the capture taken (and a
    // sweep counted). The capture list still holds what was taken.
    virtual void mossa_eseguita(const Frmlesta& tavolo) = 0;

protected:
    ~Osservatore() = default;
};

// What a click on the table means now.
enum class Modo : std::uint8_t { vuoto, gioco1, selezione };

// A control's state: its place, whether it shows, and its order in the stack
// of controls (the larger stands in front).
struct StatoControllo {
    Rett r;
    bool visibile = false;
    int z = 0;
};

class Frmlesta {
public:
    Frmlesta(Piattaforma piattaforma, ModLesta& mod, std::filesystem::path cartella);

    // ---- events of the window ----
    void Form_Load();
    // One activation is one hand; it returns once the hand is over.
    Task Form_Activate();
    void Option1_Click(int indice);
    void GO_Click();
    void Timer2_Timer();
    void velocita_gioco_Click(int indice);
    void esci_Click();
    void Form_Unload();
    // A press of any mouse button on the table, at (X, Y) in logical units.
    void Form_MouseDown(float X, float Y);
    // A key pressed on the table: the keys that play (match/geometria.h)
    // click the middle of their hand slot or table cell; others do nothing.
    void Form_KeyDown(char tasto);
    // The music menu, and the end of a song.
    void canzoni_Click(int indice);
    void All_Click(int indice);
    void nomusic_Click(int indice);
    void MMC1_Done(int notify_code);
    // The help panels: the menu entries, a click on a panel, a click on a
    // turn light.
    void english_Click();
    void Italiano_Click();
    void menu_about_Click();
    void Text3_Click();
    void Text4_Click();
    void Verde_Click(int indice);
    void Rosso_Click(int indice);

    // ---- routines ----
    Task pannello_inizio();
    void Mescola();
    // The timed pause, `co_await ritardo(unita)`: Timer2 runs for the
    // length of the pause, and the routine goes on when it has fired
    // (turns/ritardo.h).
    class Pausa;
    Pausa ritardo(float unita);
    // The capture search: the table of subset masks, built once at load, and
    // the search for the card in play.
    void Trova_Combinazioni();
    void combina();
    // Paints the song frame and puts the song's title in it.
    void Quadro_Song();
    // Three cards to each side, from the deck as the shuffle left it.
    void daicarte();
    // One hand, from the first deal on the table to the gathering of both piles.
    Task gioco();
    // The player's turn: the hand card picked by a click...
    Task gioco1();
    // ...and the selection that the card must take, if it can take anything.
    Task verifica();
    // The computer's turn, up to its card shown on the spot of the card in play.
    Task gioco2();
    // Carries out a decided turn: the card laid on the table or the capture to
    // the pile of the side on turn.
    Task muovicarte();
    // The primiera of both piles at the end of a hand.
    void calcsettanta();
    // Tells a player who follows the game by ear what just happened: the line
    // (made by frase from the language) is made only when someone listens.
    template <class Frase>
    void racconta(Frase&& frase) {
        Cronista& cronista = piattaforma.cronista;
        if (cronista.in_ascolto()) cronista.racconta(frase(cronista.lingua()));
    }
    // The songs of the music folder, entered in the music menu at load.
    void riempi_canzoni();
    // Starts the music that the settings ask for.
    void avvia_musica();
    // Rewrites the settings file with the fields as they are now; the music
    // menu calls it too.
    void Set_Write();

    // ---- the shared state ----
    ModLesta& mod;

    // ---- deck and deal ----
    std::int16_t posizione_mazzo = 0;
    std::int16_t mosse = 0;
    std::array<std::uint8_t, 4> giocate{};  // slot k of the player's hand played
    std::int32_t sfondo = 0;                // the table colour, read at each deal

    // ---- the turn ----
    std::int16_t turno = 0;
    Carta carta_giocata = 0;
    std::int16_t valore_giocata = 0;
    Modo modo = Modo::vuoto;
    std::int16_t slot = 0;
    std::array<Carta, 13> presa{};
    std::array<std::int16_t, 13> presax{}, presay{};
    std::int16_t quante = 0;
    std::int16_t somma = 0;
    bool trovata = false, singola = false;
    std::uint8_t vuote = 0;
    float riga = 0, colonna = 0;
    float posx = 0, posy = 0;

    // ---- the hand ----
    std::array<std::array<Carta, 5>, 4> tavolo{};  // rows 1..3, columns 1..4
    std::array<std::int16_t, 41> prese{};          // the player took card c
    std::int16_t ultima_presa = 0;
    std::array<std::int32_t, 3> pilay{};  // Top of each side's pile
    std::array<std::int16_t, 3> settanta{};
    // From the shuffle until what is left on the table has been gathered:
    // while it holds, the grid and the hands are what the table shows.
    bool mano_in_corso = false;
    // The card face up on the spot of the card in play, 0 when none is: it
    // comes with the card played, and goes when the card is laid or its
    // capture turned over.
    Carta in_gioco = 0;
    // The cards that made each side's leste in this hand, in order: each
    // stands face up beside its pile, the last one on top.
    std::array<std::array<Carta, 19>, 3> carte_leste{};

    // ---- geometry ----
    float meta_larghezza = 400, meta_altezza = 300;
    float larghezza_carta = 0, altezza_carta = 0;
    float tavolox = 0, tavoloy = 0;

    // ---- long-lived ----
    // combinazioni[m], m = 1..255: eight characters, the digit p where bit p-1
    // of m is set and '0' elsewhere.
    std::array<std::array<char, 8>, 256> combinazioni{};
    bool partenza = false;
    bool scattato = false;
    std::uint8_t velocita = 20;  // 10, 20 or 30: the divisor of every pause
    std::int16_t canzone = 0;
    float scala = 0.75f;

    // ---- controls ----
    std::array<CartaControllo, 41> carta{};  // 1..40
    std::array<DorsoControllo, 3> dorso{};
    std::array<StatoControllo, numero_controlli> controlli{};
    std::array<bool, 4> spunta_velocita{};  // the check marks of "Low", "Middle", "High"
    // The music menu: canzoni[k] is the title of song k, k = 1..n (entry 0
    // is unused), with the check marks of the songs, "None" and
    // "SEQUENTIAL MODE".
    std::vector<std::string> canzoni{std::string()};
    std::vector<bool> spunta_canzoni{false};
    bool spunta_nomusic = false;
    bool spunta_All = false;

    // Placing, showing and raising controls; each change is drawn at once.
    const Rett& rett(Controllo c) const { return controlli[indice(c)].r; }
    bool Visible(Controllo c) const { return controlli[indice(c)].visibile; }
    void Move(Controllo c, float left, float top);
    void Visible(Controllo c, bool visibile);
    void ZOrder(Controllo c);
    // The one of the two controls that stands in front.
    bool davanti(Controllo a, Controllo b) const { return controlli[indice(a)].z > controlli[indice(b)].z; }

    Piattaforma piattaforma;
    Finestra& finestra;
    Osservatore* osservatore = nullptr;
    std::filesystem::path cartella;  // the program's folder
    // Where Config.brx is read and written: the program's folder unless told
    // otherwise (table/posto_impostazioni.h).
    PostoImpostazioni posto_impostazioni;

private:
    static constexpr std::size_t indice(Controllo c) { return static_cast<std::size_t>(c); }
    void ridisegna(Controllo c);
    void Set_Read();
    void spunta_velocita_gioco(int indice, bool spuntata);
    int ultimo_z_ = 0;
};

}  // namespace lesta
