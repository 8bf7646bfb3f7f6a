// Lesta: the fishing game of the Trieste deck, one player against the computer.

#include <QApplication>
#include <chrono>
#include <cstdio>
#include <filesystem>

#include "table/applicazione.h"
#include "table/immagini.h"

namespace {

// For measuring start-up: with LESTA_MISURA_AVVIO in the environment the
// program writes the wall-clock time (nanoseconds since the epoch) at which
// the table's first paint is done, and ends.
class PrimoDisegno final : public QObject {
public:
    bool eventFilter(QObject*, QEvent* evento) override {
        if (evento->type() == QEvent::Paint && !fatto_) {
            fatto_ = true;
            QMetaObject::invokeMethod(
                qApp,
                [] {
                    const auto ora = std::chrono::system_clock::now().time_since_epoch();
                    std::printf("%lld\n",
                                static_cast<long long>(std::chrono::duration_cast<std::chrono::nanoseconds>(ora).count()));
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

}  // namespace

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lesta"));
    // The menu entry the package installs, so that desktops show its icon.
    QApplication::setDesktopFileName(QStringLiteral("lesta.gioco.Lesta"));

    lesta::Immagini immagini;
    // The settings, the songs and the card sound live beside the program.
    const std::filesystem::path cartella = QCoreApplication::applicationDirPath().toStdString();
    lesta::Applicazione lesta(immagini, cartella);
    PrimoDisegno primo_disegno;
    if (qEnvironmentVariableIsSet("LESTA_MISURA_AVVIO")) lesta.tavolo().superficie().installEventFilter(&primo_disegno);
    lesta.avvia();
    return QApplication::exec();
}
