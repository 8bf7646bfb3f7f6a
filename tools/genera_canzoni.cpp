// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the game's songs into a folder, one Standard MIDI File for each,
// named by its title:
//   lesta-canzoni <folder> <title>...
// The titles given are the files the build expects; if they are not exactly
// the songs made here, nothing is written and the build stops. A song file
// of the folder that is not one of them (a song the game no longer has) is
// removed, so that the folder holds the game's songs and no other.

#include <filesystem>
#include <iostream>
#include <set>
#include <string>

#include "sound/file_midi.h"
#include "tools/canzoni.h"

int main(int argc, char* argv[]) {
    using namespace lesta;
    if (argc < 2) {
        std::cerr << "usage: lesta-canzoni <folder> <title>...\n";
        return 2;
    }
    const std::filesystem::path cartella = argv[1];

    std::set<std::string> attesi(argv + 2, argv + argc), fatti;
    for (const auto& c : canzoni::tutte()) fatti.emplace(c.titolo);
    if (attesi != fatti) {
        std::cerr << "lesta-canzoni: the build lists other songs than these:\n";
        for (const auto& t : fatti) std::cerr << "  " << t << "\n";
        return 1;
    }

    std::error_code errore;
    std::filesystem::create_directories(cartella, errore);
    for (const auto& c : canzoni::tutte()) {
        const auto letta = canzoni::leggi(c);
        if (!letta.errori.empty()) {
            std::cerr << "lesta-canzoni: " << c.titolo << ":\n";
            for (const auto& e : letta.errori) std::cerr << "  " << e << "\n";
            return 1;
        }
        const auto file = cartella / (std::string(c.titolo) + ".mid");
        if (!scrivi_file(file, canzoni::file_midi(c))) {
            std::cerr << "lesta-canzoni: cannot write " << file << "\n";
            return 1;
        }
    }
    for (const auto& voce : std::filesystem::directory_iterator(cartella, errore)) {
        const std::string nome = voce.path().filename().string();
        if (voce.path().extension() == ".mid" && !fatti.contains(voce.path().stem().string())) {
            std::filesystem::remove(voce.path(), errore);
            std::cerr << "lesta-canzoni: removed " << nome << ", no longer a song of the game\n";
        }
    }
    return 0;
}
