// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/posto_impostazioni.h"

#include <unistd.h>

#include <cstdlib>
#include <system_error>

namespace lesta {
namespace {

const char* const nome_file = "Config.brx";

// The variable's value as an absolute folder, or empty.
std::filesystem::path cartella_da(const char* variabile) {
    const char* valore = std::getenv(variabile);
    if (valore == nullptr) return {};
    std::filesystem::path cartella(valore);
    return cartella.is_absolute() ? cartella : std::filesystem::path();
}

}  // namespace

PostoImpostazioni scegli_posto_impostazioni(const std::filesystem::path& cartella_programma, bool si_scrive,
                                            const std::filesystem::path& cartella_utente) {
    const std::filesystem::path del_programma = cartella_programma / nome_file;
    if (si_scrive || cartella_utente.empty()) return {del_programma, del_programma};
    const std::filesystem::path del_giocatore = cartella_utente / nome_file;
    std::error_code errore;
    const bool gia_scritto = std::filesystem::is_regular_file(del_giocatore, errore);
    return {gia_scritto ? del_giocatore : del_programma, del_giocatore};
}

PostoImpostazioni trova_posto_impostazioni(const std::filesystem::path& cartella_programma) {
    return scegli_posto_impostazioni(cartella_programma, si_puo_scrivere(cartella_programma / nome_file),
                                     cartella_utente_impostazioni());
}

bool si_puo_scrivere(const std::filesystem::path& file) {
    std::error_code errore;
    if (std::filesystem::exists(file, errore)) return ::access(file.c_str(), W_OK) == 0;
    if (errore) return false;  // e.g. a folder of the path that may not be looked into
    const std::filesystem::path cartella = file.has_parent_path() ? file.parent_path() : ".";
    return std::filesystem::is_directory(cartella, errore) && ::access(cartella.c_str(), W_OK) == 0;
}

std::filesystem::path cartella_utente_impostazioni() {
    if (auto xdg = cartella_da("XDG_CONFIG_HOME"); !xdg.empty()) return xdg / "lesta";
    if (auto casa = cartella_da("HOME"); !casa.empty()) return casa / ".config" / "lesta";
    return {};
}

}  // namespace lesta
