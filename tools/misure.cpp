// What the game costs a desktop while the player thinks: the program built as
// `lesta` builds it, on the display it is given, driven by clicks on its real
// widgets to the first moment it waits for the player's card. Then, without
// touching it:
//   cpu  the share of one core it used over the next ten seconds, in per cent
//   rss  its resident memory at that moment, in megabytes
// lesta-misure <program folder>   (the folder holds Config.brx, music/, carta.wav)

#include <sys/resource.h>

#include <QApplication>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <fstream>
#include <string>

#include "table/applicazione.h"
#include "table/immagini.h"

namespace {

double secondi_cpu() {
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    auto s = [](timeval t) { return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6; };
    return s(uso.ru_utime) + s(uso.ru_stime);
}

double megabyte_residenti() {
    std::ifstream stato("/proc/self/status");
    for (std::string riga; std::getline(stato, riga);)
        if (riga.rfind("VmRSS:", 0) == 0) return std::stod(riga.substr(6)) / 1024.0;
    return -1;
}

// Sleeps in the event loop, as the game does while it waits.
void dormi(int ms) {
    QEventLoop attesa;
    QTimer::singleShot(ms, &attesa, &QEventLoop::quit);
    attesa.exec();
}

}  // namespace

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: lesta-misure <program folder>\n");
        return 2;
    }
    QApplication app(argc, argv);
    lesta::Immagini immagini;
    lesta::Applicazione lesta(immagini, argv[1]);
    lesta.avvia();
    const lesta::Frmlesta& f = lesta.gioco();
    QWidget* go = lesta.tavolo().widget(lesta::Controllo::GO);
    if (!QTest::qWaitFor([&] { return go->isVisible(); }, 10'000)) {
        std::fprintf(stderr, "the start panel never came\n");
        return 1;
    }
    QTest::mouseClick(go, Qt::LeftButton);
    if (!QTest::qWaitFor([&] { return f.modo == lesta::Modo::gioco1 && f.carta_giocata == 0; }, 60'000)) {
        std::fprintf(stderr, "the game never waited for the player's card\n");
        return 1;
    }
    dormi(2000);  // whatever the deal set going (the song's loading, say) settles
    const double rss = megabyte_residenti();
    const double prima = secondi_cpu();
    dormi(10'000);
    const double cpu = (secondi_cpu() - prima) / 10.0 * 100.0;
    std::printf("cpu %.3f\nrss %.1f\n", cpu, rss);
    return 0;
}
