// SPDX-License-Identifier: GPL-3.0-or-later
// What the game costs a desktop while the player thinks: the program built as
// `lesta` builds it, on the display it is given, driven by clicks on its real
// widgets to the first moment it waits for the player's card. Then, without
// touching it:
//   cpu  the share of one core it used over the next ten seconds, in per cent
//   rss  its resident memory at that moment, in megabytes
// lesta-misure <program folder>   (the folder holds Config.brx, music/, carta.wav)
//
// lesta-misure --primo-disegno <program folder>
// writes instead the wall-clock time (nanoseconds since the epoch) at which
// the table's first paint is done, and ends: the start-up a player waits for.

#include <sys/resource.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>

#include "table/qt/applicazione.h"
#include "table/qt/immagini.h"
#include "table/qt/superficie_qt.h"

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

// Writes the moment of the table's first paint and ends the program.
class PrimoDisegno final : public QObject {
public:
    bool eventFilter(QObject*, QEvent* evento) override {
        if (evento->type() == QEvent::Paint && !fatto_) {
            fatto_ = true;
            QMetaObject::invokeMethod(
                qApp,
                [] {
                    const auto ora = std::chrono::system_clock::now().time_since_epoch();
                    std::printf("%lld\n", static_cast<long long>(
                                              std::chrono::duration_cast<std::chrono::nanoseconds>(ora).count()));
                    std::fflush(stdout);
                    QCoreApplication::exit(0);
                },
                Qt::QueuedConnection);
        }
        return false;
    }

private:
    bool fatto_ = false;
};

void fallisci(const char* perche) {
    std::fprintf(stderr, "%s\n", perche);
    QCoreApplication::exit(1);
}

}  // namespace

int main(int argc, char* argv[]) {
    const bool primo_disegno = argc == 3 && std::string(argv[1]) == "--primo-disegno";
    if (argc != 2 && !primo_disegno) {
        std::fprintf(stderr, "usage: lesta-misure [--primo-disegno] <program folder>\n");
        return 2;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lesta"));
    lesta::Immagini immagini;
    lesta::Applicazione lesta(immagini, argv[argc - 1]);
    if (primo_disegno) {
        PrimoDisegno primo;
        lesta.tavolo().superficie().installEventFilter(&primo);
        lesta.avvia();
        return QApplication::exec();
    }
    const lesta::Frmlesta& f = lesta.gioco();
    QWidget* go = lesta.tavolo().widget(lesta::Controllo::GO);

    // Everything runs in the program's own event loop: a look every 50 ms
    // until the start panel, GO, and the player's card awaited; then the
    // look stops, and the measures are taken on timers alone.
    QTimer guarda;
    int passi = 0;
    bool premuto = false;
    double rss = 0, prima = 0;
    QObject::connect(&guarda, &QTimer::timeout, [&] {
        if (++passi > 60 * 20) return fallisci("the game never waited for the player's card");
        if (!premuto) {
            if (!go->isVisible()) return;
            premuto = true;
            QTest::mouseClick(go, Qt::LeftButton);
            return;
        }
        if (f.modo != lesta::Modo::gioco1 || f.carta_giocata != 0) return;
        guarda.stop();
        // Whatever the deal set going (the song's loading, say) settles.
        QTimer::singleShot(2000, [&] {
            rss = megabyte_residenti();
            prima = secondi_cpu();
            QTimer::singleShot(10'000, [&] {
                const double cpu = (secondi_cpu() - prima) / 10.0 * 100.0;
                std::printf("cpu %.3f\nrss %.1f\n", cpu, rss);
                QCoreApplication::exit(0);
            });
        });
    });
    guarda.start(50);
    lesta.avvia();
    return QApplication::exec();
}
