// SPDX-License-Identifier: GPL-3.0-or-later
// Lesta: the fishing game of the Trieste deck, one player against the computer.

#include <QApplication>
#include <filesystem>

#include "table/qt/applicazione.h"
#include "table/qt/immagini.h"

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lesta"));
    // The menu entry the package installs, so that desktops show its icon.
    QApplication::setDesktopFileName(QStringLiteral("lesta.gioco.Lesta"));

    lesta::Immagini immagini;
    // The settings, the songs and the card sound live beside the program.
    const std::filesystem::path cartella = QCoreApplication::applicationDirPath().toStdString();
    lesta::Applicazione lesta(immagini, cartella);
    lesta.avvia();
    return QApplication::exec();
}
