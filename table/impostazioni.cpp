// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/impostazioni.h"

#include "match/geometria.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fstream>
#include <optional>

namespace lesta {
namespace {

// A number ends at a blank or a comma; a carriage return before the line
// feed is a blank too.
constexpr bool separatore(char c) { return c == ' ' || c == '\t' || c == ',' || c == '\r'; }

// The next line of the text, without its line feed; `pos` moves past it.
std::string_view prossima_riga(std::string_view testo, std::size_t& pos) {
    const std::size_t inizio = std::min(pos, testo.size());
    const std::size_t fine = std::min(testo.find('\n', inizio), testo.size());
    pos = fine + 1;
    return testo.substr(inizio, fine - inizio);
}

// The first number of a line, or nothing if the line is blank or its first
// item is not a number. The rest of the line is not looked at.
std::optional<double> numero_della_riga(std::string_view riga) {
    std::size_t pos = 0;
    while (pos < riga.size() && separatore(riga[pos])) ++pos;
    const std::size_t inizio = pos;
    while (pos < riga.size() && !separatore(riga[pos])) ++pos;
    if (inizio == pos) return std::nullopt;
    std::string_view voce = riga.substr(inizio, pos - inizio);
    if (voce.front() == '+') voce.remove_prefix(1);
    double valore = 0;
    const auto [fine, errore] = std::from_chars(voce.data(), voce.data() + voce.size(), valore);
    if (errore != std::errc{} || fine != voce.data() + voce.size() || !std::isfinite(valore)) return std::nullopt;
    return valore;
}

bool intero(double v) { return v == std::floor(v); }

// The card scale for the per cent in the file.
float scala_da_percento(double percento) { return static_cast<float>(percento / 100.0); }

// A number as the file holds it, a blank before and after.
std::string numero(std::string_view cifre) {
    std::string testo(1, ' ');
    testo.append(cifre).push_back(' ');
    return testo;
}

// The scale in per cent, with the fewest decimals that read back as the same
// scale: "75", "74.5", and as many as it takes for one written by hand with
// more digits than the game keeps. The point is a point whatever the user's
// language (Qt sets the C library's locale from it, and printf would write
// "74,5").
std::string percento(float scala) {
    std::array<char, 64> testo{};
    char* fine = testo.data();
    for (int decimali = 0; decimali <= 17; ++decimali) {
        fine =
            std::to_chars(testo.data(), testo.data() + testo.size(), scala * 100.0, std::chars_format::fixed, decimali)
                .ptr;
        double letto = 0;
        std::from_chars(testo.data(), fine, letto);
        if (scala_da_percento(letto) == scala) break;
    }
    return numero({testo.data(), fine});
}

}  // namespace

Impostazioni leggi_impostazioni(std::string_view testo) {
    Impostazioni lette;
    std::size_t pos = 0;

    if (auto v = numero_della_riga(prossima_riga(testo, pos)); v && (*v == 1 || *v == 2 || *v == 3))
        lette.velocita = static_cast<std::uint8_t>(*v);

    if (auto v = numero_della_riga(prossima_riga(testo, pos)); v && intero(*v) && *v >= 0 && *v <= 101)
        lette.canzone = static_cast<std::int16_t>(*v);

    if (auto v = numero_della_riga(prossima_riga(testo, pos)); v && scala_giocabile(scala_da_percento(*v)))
        lette.scala = scala_da_percento(*v);

    return lette;
}

std::string scrivi_impostazioni(const Impostazioni& impostazioni) {
    return numero(std::to_string(impostazioni.velocita)) + "\r\n" + numero(std::to_string(impostazioni.canzone)) +
           "\r\n" + percento(impostazioni.scala) + "\r\n";
}

Impostazioni Set_Read(const std::filesystem::path& file) {
    std::array<char, 4096> testo{};
    std::ifstream in(file, std::ios::binary);
    in.read(testo.data(), testo.size());
    return leggi_impostazioni(std::string_view(testo.data(), static_cast<std::size_t>(in.gcount())));
}

bool Set_Write(const std::filesystem::path& file, const Impostazioni& impostazioni) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << scrivi_impostazioni(impostazioni);
    out.close();
    return static_cast<bool>(out);
}

}  // namespace lesta
