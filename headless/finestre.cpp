// SPDX-License-Identifier: GPL-3.0-or-later
#include "headless/finestre.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace lesta {

Colore FinestraRaster::colore_di(Figura f) {
    const int n = static_cast<int>(f);
    if (n >= 1 && n <= 40) return bianco;
    switch (f) {
        case Figura::Dorso: return rgb(128, 128, 128);
        case Figura::Titolo: return rgb(0, 0, 255);
        case Figura::Quadro: return rgb(40, 40, 40);
        default: return rgb(0, 200, 0);
    }
}

FinestraRaster::FinestraRaster() : pixel_(L * A, fondo_), figura_(L * A, 0) {}

void FinestraRaster::Cls() {
    std::fill(pixel_.begin(), pixel_.end(), fondo_);
    std::fill(figura_.begin(), figura_.end(), 0);
    scritte.clear();
}

void FinestraRaster::BackColor(Colore c) {
    fondo_ = c;
    Cls();
}

void FinestraRaster::punto(int x, int y, Colore c, int figura) {
    if (x < 0 || y < 0 || x >= L || y >= A) return;
    pixel_[static_cast<std::size_t>(y * L + x)] = c;
    figura_[static_cast<std::size_t>(y * L + x)] = figura;
}

void FinestraRaster::Line(float x1, float y1, float x2, float y2, Colore c) {
    const int ax = static_cast<int>(std::floor(x1)), ay = static_cast<int>(std::floor(y1));
    const int bx = static_cast<int>(std::floor(x2)), by = static_cast<int>(std::floor(y2));
    const int passi = std::max(std::abs(bx - ax), std::abs(by - ay));
    for (int i = 0; i <= passi; ++i) {
        const float t = passi == 0 ? 0.0f : static_cast<float>(i) / static_cast<float>(passi);
        punto(static_cast<int>(std::lround(ax + t * static_cast<float>(bx - ax))),
              static_cast<int>(std::lround(ay + t * static_cast<float>(by - ay))), c, 0);
    }
}

void FinestraRaster::Box(float x1, float y1, float x2, float y2, Colore c) {
    Line(x1, y1, x2, y1, c);
    Line(x2, y1, x2, y2, c);
    Line(x2, y2, x1, y2, c);
    Line(x1, y2, x1, y1, c);
}

void FinestraRaster::BoxFilled(float x1, float y1, float x2, float y2, Colore c) {
    const int ax = static_cast<int>(std::floor(std::min(x1, x2))), bx = static_cast<int>(std::floor(std::max(x1, x2)));
    const int ay = static_cast<int>(std::floor(std::min(y1, y2))), by = static_cast<int>(std::floor(std::max(y1, y2)));
    for (int y = ay; y <= by; ++y)
        for (int x = ax; x <= bx; ++x) punto(x, y, c, 0);
}

void FinestraRaster::PaintPicture(Figura f, float x, float y, float w, float h) {
    const int ax = static_cast<int>(std::floor(x)), bx = static_cast<int>(std::floor(x + w)) - 1;
    const int ay = static_cast<int>(std::floor(y)), by = static_cast<int>(std::floor(y + h)) - 1;
    const Colore c = colore_di(f);
    const bool faccia_carta = static_cast<int>(f) <= 40;
    for (int py = ay; py <= by; ++py)
        for (int px = ax; px <= bx; ++px) {
            const bool angolo = (px == ax || px == bx) && (py == ay || py == by);
            punto(px, py, faccia_carta && angolo ? verde_tavolo : c, static_cast<int>(f));
        }
}

Colore FinestraRaster::Point(float x, float y) const {
    const int px = static_cast<int>(std::floor(x)), py = static_cast<int>(std::floor(y));
    if (px < 0 || py < 0 || px >= L || py >= A) return fuori;
    return pixel_[static_cast<std::size_t>(py * L + px)];
}

int FinestraRaster::figura_a(float x, float y) const {
    const int px = static_cast<int>(std::floor(x)), py = static_cast<int>(std::floor(y));
    if (px < 0 || py < 0 || px >= L || py >= A) return 0;
    return figura_[static_cast<std::size_t>(py * L + px)];
}

void FinestraRaster::Print(float x, float y, std::string_view testo, Colore c) {
    scritte.push_back({x, y, std::string(testo), c});
}

}  // namespace lesta
