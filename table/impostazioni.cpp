#include "table/impostazioni.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <optional>

namespace lesta {
namespace {

constexpr bool separatore(char c) { return c == ' ' || c == '\t' || c == ',' || c == '\r' || c == '\n'; }

// The next number of the text, or nothing if the next item is not a number
// (or there is no next item). `pos` moves past the item either way.
std::optional<double> prossimo_numero(std::string_view testo, std::size_t& pos) {
    while (pos < testo.size() && separatore(testo[pos])) ++pos;
    const std::size_t inizio = pos;
    while (pos < testo.size() && !separatore(testo[pos])) ++pos;
    if (inizio == pos) return std::nullopt;
    std::string_view voce = testo.substr(inizio, pos - inizio);
    if (voce.front() == '+') voce.remove_prefix(1);
    double valore = 0;
    const auto [fine, errore] = std::from_chars(voce.data(), voce.data() + voce.size(), valore);
    if (errore != std::errc{} || fine != voce.data() + voce.size() || !std::isfinite(valore)) return std::nullopt;
    return valore;
}

bool intero(double v) { return v == std::floor(v); }

// A number as the file holds it: whole values without a fraction, others with
// up to seven significant digits, a blank before and after.
std::string numero(double v) {
    std::array<char, 32> testo{};
    std::snprintf(testo.data(), testo.size(), "%.7g", v);
    return " " + std::string(testo.data()) + " ";
}

}  // namespace

Impostazioni leggi_impostazioni(std::string_view testo) {
    Impostazioni lette;
    std::size_t pos = 0;

    if (auto v = prossimo_numero(testo, pos); v && (*v == 1 || *v == 2 || *v == 3))
        lette.velocita = static_cast<std::uint8_t>(*v);

    if (auto v = prossimo_numero(testo, pos); v && intero(*v) && *v >= 0 && *v <= 101)
        lette.canzone = static_cast<std::int16_t>(*v);

    if (auto v = prossimo_numero(testo, pos); v && *v >= 25 && *v <= 100)
        lette.scala = static_cast<float>(*v) / 100.0f;

    return lette;
}

std::string scrivi_impostazioni(const Impostazioni& impostazioni) {
    return numero(impostazioni.velocita) + "\r\n" + numero(impostazioni.canzone) + "\r\n" +
           numero(static_cast<float>(impostazioni.scala * 100.0f)) + "\r\n";
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
