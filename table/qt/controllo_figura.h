// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A control that shows one of the game's pictures, rendered at the pixel size
// it has on screen; or nothing. The picture fills the control, or, for a
// picture with a size of its own, stands at that size in the control's top
// left corner and is cut where the control ends.

#include <QSize>
#include <QWidget>
#include <optional>

#include "table/figure.h"

namespace lesta {

class Immagini;

class ControlloFigura final : public QWidget {
public:
    ControlloFigura(Immagini& immagini, std::optional<Figura> figura, QWidget* genitore,
                    std::optional<QSize> misura_propria = std::nullopt);
    void figura(std::optional<Figura> figura);

protected:
    void paintEvent(QPaintEvent* evento) override;

private:
    Immagini& immagini_;
    std::optional<Figura> figura_;
    std::optional<QSize> misura_propria_;  // in the window's pixels
};

}  // namespace lesta
