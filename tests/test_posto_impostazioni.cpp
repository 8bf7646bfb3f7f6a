// SPDX-License-Identifier: GPL-3.0-or-later
// Where the settings file lives: the program's folder when it can be written,
// else the player's settings folder; and the settings lasting from one run to
// the next when the game is installed where the player may not write.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>

#include "banco.h"
#include "table/posto_impostazioni.h"

namespace lesta {
namespace {

namespace fs = std::filesystem;
using prova::Banco;
using prova::CartellaTemporanea;
using prova::leggi_tutto;
using prova::scrivi_tutto;

// Whether a file can really be opened for writing there: the truth that
// si_puo_scrivere must tell in advance. A file it makes is removed again.
bool scrittura_riesce(const fs::path& file) {
    const bool c_era = fs::exists(file);
    const bool riuscita = static_cast<bool>(std::ofstream(file, std::ios::binary | std::ios::app));
    if (riuscita && !c_era) fs::remove(file);
    return riuscita;
}

// Gives a file or folder these permission bits for as long as it lives, and
// gives it back its own at the end, so that its folder can be removed.
class Permessi {
public:
    Permessi(fs::path p, fs::perms permessi) : p_(std::move(p)), prima_(fs::status(p_).permissions()) {
        fs::permissions(p_, permessi);
    }
    ~Permessi() { fs::permissions(p_, prima_); }
    Permessi(const Permessi&) = delete;
    Permessi& operator=(const Permessi&) = delete;

private:
    fs::path p_;
    fs::perms prima_;
};

// Sets or unsets an environment variable for as long as it lives.
class Variabile {
public:
    Variabile(const char* nome, const char* valore) : nome_(nome) {
        if (const char* v = std::getenv(nome)) prima_ = v;
        metti(valore);
    }
    ~Variabile() { metti(prima_ ? prima_->c_str() : nullptr); }
    Variabile(const Variabile&) = delete;
    Variabile& operator=(const Variabile&) = delete;

private:
    void metti(const char* valore) const {
        if (valore)
            ::setenv(nome_, valore, 1);
        else
            ::unsetenv(nome_);
    }
    const char* nome_;
    std::optional<std::string> prima_;
};

constexpr auto sola_lettura = fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_read |
                              fs::perms::group_exec | fs::perms::others_read | fs::perms::others_exec;

// What access(2) answers must be what writing does. Some of these places
// refuse everybody; the read-only ones refuse only a user without the power
// to override permissions, and for root the answer must be "yes" there.
TEST(PostoImpostazioni, WhetherAFileCanBeWrittenIsWhatWritingFinds) {
    CartellaTemporanea cartella;
    const fs::path& c = cartella.percorso();

    EXPECT_TRUE(si_puo_scrivere(c / "Config.brx"));
    EXPECT_TRUE(scrittura_riesce(c / "Config.brx"));
    scrivi_tutto(c / "Config.brx", " 2 \r\n");
    EXPECT_TRUE(si_puo_scrivere(c / "Config.brx"));

    // A plain file where a folder should be, and a folder that is not there.
    scrivi_tutto(c / "file", "x");
    for (const fs::path& p : {c / "file" / "Config.brx", c / "manca" / "Config.brx"}) {
        EXPECT_FALSE(si_puo_scrivere(p)) << p;
        EXPECT_FALSE(scrittura_riesce(p)) << p;
    }

    fs::create_directory(c / "sola-lettura");
    scrivi_tutto(c / "sola-lettura" / "Config.brx", " 2 \r\n");
    scrivi_tutto(c / "fisso.brx", " 2 \r\n");
    {
        Permessi cartella_bloccata(c / "sola-lettura", sola_lettura);
        Permessi file_bloccato(c / "fisso.brx", fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
        for (const fs::path& p : {c / "sola-lettura" / "nuovo.brx", c / "fisso.brx"})
            EXPECT_EQ(si_puo_scrivere(p), scrittura_riesce(p)) << p;
    }
}

TEST(PostoImpostazioni, ThePlayersFolderFollowsXdgConfigHomeThenHome) {
    {
        Variabile xdg("XDG_CONFIG_HOME", "/a/config");
        Variabile casa("HOME", "/home/b");
        EXPECT_EQ(cartella_utente_impostazioni(), fs::path("/a/config/lesta"));
    }
    for (const char* xdg_non_valido : {static_cast<const char*>(nullptr), "", "relative/config"}) {
        Variabile xdg("XDG_CONFIG_HOME", xdg_non_valido);
        Variabile casa("HOME", "/home/b");
        EXPECT_EQ(cartella_utente_impostazioni(), fs::path("/home/b/.config/lesta"));
    }
    for (const char* casa_non_valida : {static_cast<const char*>(nullptr), "", "b"}) {
        Variabile xdg("XDG_CONFIG_HOME", nullptr);
        Variabile casa("HOME", casa_non_valida);
        EXPECT_TRUE(cartella_utente_impostazioni().empty());
    }
}

// A program folder that no one can write, even root: the choices go to the
// player's folder that XDG_CONFIG_HOME names.
TEST(PostoImpostazioni, AskingTheSystemFindsThePlayersFolder) {
    CartellaTemporanea programma, configurazione;
    scrivi_tutto(programma.percorso() / "lesta", "the program");
    Variabile xdg("XDG_CONFIG_HOME", configurazione.percorso().c_str());

    const PostoImpostazioni bloccato = trova_posto_impostazioni(programma.percorso() / "lesta");
    EXPECT_EQ(bloccato.da_scrivere, configurazione.percorso() / "lesta" / "Config.brx");

    const PostoImpostazioni libero = trova_posto_impostazioni(programma.percorso());
    EXPECT_EQ(libero.da_scrivere, programma.percorso() / "Config.brx");
}

// Two runs of the game installed in a read-only folder: the first run's
// choice is there at the start of the second, and the game's own file is
// left as it came.
TEST(PostoImpostazioni, AChoiceLastsToTheNextRunWhenTheProgramFolderIsReadOnly) {
    CartellaTemporanea utente;
    const fs::path cartella_utente = utente.percorso() / "lesta";

    Banco primo;
    const fs::path programma = primo.cartella.percorso();
    scrivi_tutto(programma / "Config.brx", " 3 \r\n 0 \r\n 75 \r\n");
    Permessi bloccata(programma, sola_lettura);

    primo.frm.posto_impostazioni = scegli_posto_impostazioni(programma, false, cartella_utente);
    primo.frm.Form_Load();
    EXPECT_EQ(primo.frm.velocita, 30);
    primo.frm.velocita_gioco_Click(1);
    EXPECT_EQ(leggi_tutto(cartella_utente / "Config.brx"), " 1 \r\n 0 \r\n 75 \r\n");
    EXPECT_EQ(leggi_tutto(programma / "Config.brx"), " 3 \r\n 0 \r\n 75 \r\n");

    Banco secondo;
    secondo.frm.posto_impostazioni = scegli_posto_impostazioni(programma, false, cartella_utente);
    secondo.frm.Form_Load();
    EXPECT_EQ(secondo.frm.velocita, 10);
    EXPECT_TRUE(secondo.finestra.spuntata(Voce::velocita_gioco, 1));
}

}  // namespace
}  // namespace lesta
