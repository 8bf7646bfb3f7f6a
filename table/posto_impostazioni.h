// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Where the settings file lives from run to run.
//
// The program's folder holds Config.brx with the settings the game comes
// with. When that file can be written (the game built or unpacked in a folder
// of the player's own), it is read at start and rewritten by every menu
// choice, as it always was. When it cannot (the game installed for the whole
// system, under /usr), the choices go to Config.brx in the player's own
// settings folder, $XDG_CONFIG_HOME/lesta or else ~/.config/lesta; that file
// is read at start once it exists, and until then the program folder's file
// gives the settings. With no settings folder at all (no HOME), the choices
// hold for the run only.
//
// XDG_CONFIG_HOME and HOME, read here and only when the program's folder
// cannot be written, are the only environment the game itself reads: it has
// no switches of its own, in the environment or on the command line.

#include <filesystem>

namespace lesta {

struct PostoImpostazioni {
    std::filesystem::path da_leggere;   // the file read at start
    std::filesystem::path da_scrivere;  // the file every menu choice rewrites
};

// The choice, with the answers of the system given: whether the program
// folder's Config.brx can be written, and the player's settings folder for
// the game (empty when there is none).
PostoImpostazioni scegli_posto_impostazioni(const std::filesystem::path& cartella_programma, bool si_scrive,
                                            const std::filesystem::path& cartella_utente);

// The same choice, asking the system.
PostoImpostazioni trova_posto_impostazioni(const std::filesystem::path& cartella_programma);

// Whether the file could be written now: an existing file must be writable,
// a missing one needs a writable folder (access(2), for the real user).
bool si_puo_scrivere(const std::filesystem::path& file);

// $XDG_CONFIG_HOME/lesta, or $HOME/.config/lesta when XDG_CONFIG_HOME is
// unset, empty or relative; empty when neither gives an absolute folder.
std::filesystem::path cartella_utente_impostazioni();

}  // namespace lesta
