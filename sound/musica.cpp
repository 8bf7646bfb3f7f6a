// SPDX-License-Identifier: GPL-3.0-or-later
// The music player: the song menu filled from the music folder, one song or
// all of them in turn, the end of a song, and the song frame on the table.
//
// What the folder may hold, and what the settings may ask, beyond the plain
// case:
//   - No music folder, an empty one, or one whose first name has no ".mid":
//     the list is empty and the menu has no song entry at all (only "None"
//     and "SEQUENTIAL MODE"). "SEQUENTIAL MODE" is then checked and stored
//     as asked, but the walk has nothing to play: `canzone` stays 0, and no
//     frame and no title button come up on the table.
//   - A song number in the settings beyond the list's last, or below 0: the
//     song is not there any more, so the game starts with no music, "None"
//     checked. The file keeps the number until the user chooses in the menu.
//   - The list holds at most 100 songs: 101 is the code of sequential mode
//     in the settings, and every song number must stay apart from it. Names
//     after the hundredth song are not entered.

#include <dirent.h>
#include <sys/stat.h>

#include <memory>

#include "match/frmlesta.h"

namespace lesta {
namespace {

constexpr std::size_t massimo_canzoni = 100;
constexpr std::int16_t modo_sequenziale = 101;

int numero_canzoni(const Frmlesta& f) { return static_cast<int>(f.canzoni.size()) - 1; }

bool esiste(const Frmlesta& f, int k) { return k >= 1 && k <= numero_canzoni(f); }

void segna_canzone(Frmlesta& f, int k, bool spuntata) {
    if (!esiste(f, k)) return;
    f.spunta_canzoni[static_cast<std::size_t>(k)] = spuntata;
    f.finestra.spunta(Voce::canzoni, k, spuntata);
}

void togli_spunte_canzoni(Frmlesta& f) {
    for (int k = 1; k <= numero_canzoni(f); ++k) segna_canzone(f, k, false);
}

void segna_nomusic(Frmlesta& f, bool spuntata) {
    f.spunta_nomusic = spuntata;
    f.finestra.spunta(Voce::nomusic, 0, spuntata);
}

void segna_All(Frmlesta& f, bool spuntata) {
    f.spunta_All = spuntata;
    f.finestra.spunta(Voce::All, 0, spuntata);
}

const std::string& titolo(const Frmlesta& f, int k) {
    return f.canzoni[esiste(f, k) ? static_cast<std::size_t>(k) : 0];
}

// The file of a song is rebuilt from its title, so a name that held ".mid"
// twice leads to another file, which may not be there.
std::string file_canzone(const Frmlesta& f, int k) { return (f.cartella / "music" / (titolo(f, k) + ".mid")).string(); }

void suona_canzone(Frmlesta& f, int k) {
    Media& musica = f.piattaforma.MMC1;
    musica.Command("close");
    musica.FileName(file_canzone(f, k));
    musica.Command("Open");
    musica.Command("Play");
}

// Plain files only: a folder, a link to a folder or anything else is passed over.
bool file_normale(const std::filesystem::path& percorso) {
    struct stat info {};
    return ::stat(percorso.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

struct ChiudiCartella {
    void operator()(DIR* d) const { ::closedir(d); }
};

}  // namespace

void Frmlesta::riempi_canzoni() {
    canzoni.assign(1, std::string());
    spunta_canzoni.assign(1, false);

    const std::filesystem::path musica = cartella / "music";
    // The folder's own order, as the system lists it.
    const std::unique_ptr<DIR, ChiudiCartella> elenco(::opendir(musica.c_str()));
    if (!elenco) return;
    while (const dirent* voce = ::readdir(elenco.get())) {
        const std::string nome = voce->d_name;
        // Hidden files, and the folder's own "." and "..", do not count.
        if (nome.empty() || nome.front() == '.') continue;
        if (!file_normale(musica / nome)) continue;
        // Case-sensitive: "x.MID" ends the list like any name without ".mid".
        const std::size_t fine_titolo = nome.find(".mid");
        if (fine_titolo == std::string::npos) break;
        if (canzoni.size() > massimo_canzoni) break;

        canzoni.push_back(nome.substr(0, fine_titolo));
        spunta_canzoni.push_back(false);
        finestra.voce_canzone(numero_canzoni(*this), canzoni.back());
    }
}

void Frmlesta::avvia_musica() {
    if (canzone == modo_sequenziale) {
        segna_All(*this, true);
        canzone = 0;
        MMC1_Done(1);
        return;
    }
    if (!esiste(*this, canzone)) {
        canzone = 0;
        segna_nomusic(*this, true);
        return;
    }
    suona_canzone(*this, canzone);
    togli_spunte_canzoni(*this);
    segna_nomusic(*this, false);
    segna_All(*this, false);
    segna_canzone(*this, canzone, true);
    MMC1_Done(1);
}

void Frmlesta::canzoni_Click(int indice) {
    if (!esiste(*this, indice)) return;
    togli_spunte_canzoni(*this);
    segna_canzone(*this, indice, true);
    segna_nomusic(*this, false);
    segna_All(*this, false);
    canzone = static_cast<std::int16_t>(indice);
    finestra.caption(Controllo::CmdSong, titolo(*this, canzone));
    Set_Write();
    suona_canzone(*this, indice);
}

void Frmlesta::All_Click(int) {
    togli_spunte_canzoni(*this);
    segna_nomusic(*this, false);
    segna_All(*this, true);
    canzone = modo_sequenziale;
    Set_Write();
    if (numero_canzoni(*this) > 0) Quadro_Song();
    canzone = 0;
    MMC1_Done(1);
}

void Frmlesta::nomusic_Click(int) {
    togli_spunte_canzoni(*this);
    segna_nomusic(*this, true);
    segna_All(*this, false);
    canzone = 0;
    Set_Write();
    piattaforma.MMC1.Command("close");
    Visible(Controllo::CmdSong, false);
    // The frame is painted, not a control: it goes by painting over it in
    // whatever the window's ground is now.
    const Rett& cornice = rett(Controllo::quadro);
    finestra.BoxFilled(10, meta_altezza - cornice.height / 2, cornice.width + 10, meta_altezza + cornice.height / 2,
                       finestra.BackColor());
}

// The end of a song. In sequential mode the next song starts, the last one
// followed by the first; in any mode the title is put on the button again.
void Frmlesta::MMC1_Done(int notify_code) {
    if (notify_code != 1) return;
    const int n = numero_canzoni(*this);
    if (spunta_All && n > 0) {
        if (canzone == n || !esiste(*this, canzone)) canzone = 0;
        ++canzone;
        segna_canzone(*this, canzone == 1 ? n : canzone - 1, false);
        segna_canzone(*this, canzone, true);
        suona_canzone(*this, canzone);
    }
    finestra.caption(Controllo::CmdSong, titolo(*this, canzone));
}

// The frame is painted on the surface, so it must be painted again after
// every clear or wipe of the window; the title button stands inside it.
void Frmlesta::Quadro_Song() {
    const Rett& cornice = rett(Controllo::quadro);
    const Rett& bottone = rett(Controllo::CmdSong);
    finestra.PaintPicture(Figura::Quadro, 10, meta_altezza - cornice.height / 2, cornice.width, cornice.height);
    Move(Controllo::CmdSong, 10 + (cornice.width - bottone.width) / 2, meta_altezza - bottone.height / 2);
    Visible(Controllo::CmdSong, true);
}

}  // namespace lesta
