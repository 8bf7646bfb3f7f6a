#pragma once
// A control that shows one of the game's pictures stretched to its own size,
// rendered at the pixel size it has on screen; or nothing.

#include <QWidget>
#include <optional>

#include "table/figure.h"

namespace lesta {

class Immagini;

class ControlloFigura final : public QWidget {
public:
    ControlloFigura(Immagini& immagini, std::optional<Figura> figura, QWidget* genitore);
    void figura(std::optional<Figura> figura);

protected:
    void paintEvent(QPaintEvent* evento) override;

private:
    Immagini& immagini_;
    std::optional<Figura> figura_;
};

}  // namespace lesta
