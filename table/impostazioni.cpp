// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/impostazioni.h"

#include "match/geometria.h"

#include <array>
#include <charconv>
#include <cmath>
#include <fstream>
#include <optional>

namespace lesta {
namespace {

constexpr bool spazio(char c) { return c == ' ' || c == '\t'; }
constexpr bool fine_riga(char c) { return c == '\r' || c == '\n'; }

// An item as a number: a sign may lead, and the whole item must be the number.
std::optional<double> numero_della_voce(std::string_view voce) {
    if (voce.empty()) return std::nullopt;
    if (voce.front() == '+') voce.remove_prefix(1);
    double valore = 0;
    const auto [fine, errore] = std::from_chars(voce.data(), voce.data() + voce.size(), valore);
    if (errore != std::errc{} || fine != voce.data() + voce.size() || !std::isfinite(valore)) return std::nullopt;
    return valore;
}

// One read of the file from `pos`: the blanks are skipped, the item runs up
// to a blank, a comma or the end of a line, and then the blanks after it and
// the one comma or line end (CR, LF or CR LF) that closes it are passed, so
// that the next read starts at the next item. An empty item (a comma or a
// line's end where the item would start, or the end of the text) gets no
// number, nor does an item that is not a number.
std::optional<double> leggi_numero(std::string_view testo, std::size_t& pos) {
    const auto salta_spazi = [&] {
        while (pos < testo.size() && spazio(testo[pos])) ++pos;
    };
    salta_spazi();
    const std::size_t inizio = pos;
    while (pos < testo.size() && !spazio(testo[pos]) && testo[pos] != ',' && !fine_riga(testo[pos])) ++pos;
    const std::string_view voce = testo.substr(inizio, pos - inizio);
    salta_spazi();
    if (pos < testo.size() && testo[pos] == ',') {
        ++pos;
    } else if (pos < testo.size() && fine_riga(testo[pos])) {
        if (testo[pos] == '\r' && pos + 1 < testo.size() && testo[pos + 1] == '\n') ++pos;
        ++pos;
    }
    return numero_della_voce(voce);
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

    if (auto v = leggi_numero(testo, pos); v && (*v == 1 || *v == 2 || *v == 3))
        lette.velocita = static_cast<std::uint8_t>(*v);

    if (auto v = leggi_numero(testo, pos); v && intero(*v) && *v >= 0 && *v <= 101)
        lette.canzone = static_cast<std::int16_t>(*v);

    if (auto v = leggi_numero(testo, pos); v && scala_giocabile(scala_da_percento(*v)))
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
