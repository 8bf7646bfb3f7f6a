#include "match/frmlesta.h"

namespace lesta {

// A pause of `unita` units: 650 ms at "Low", 325 at "Middle", 216 at "High"
// for one unit (the whole milliseconds, not the nearest). A change of speed
// during the pause counts from the next one.
Task Frmlesta::ritardo(float unita) {
    auto& orologio = piattaforma.orologio;
    scattato = false;
    const int intervallo = static_cast<int>(unita * 6500.0f / static_cast<float>(velocita));
    orologio.Timer2(intervallo, true);
    co_await finche(orologio, [this] { return scattato; });
    orologio.Timer2(intervallo, false);
}

void Frmlesta::Timer2_Timer() { scattato = true; }

}  // namespace lesta
