// SPDX-License-Identifier: GPL-3.0-or-later
// The yardstick of the game's start-up: the least a Qt program with a window
// like the table's does, a maximised main window with one menu and nothing
// else, measured beside the game (scripts/misura).

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QMainWindow finestra;
    finestra.menuBar()->addMenu(QStringLiteral("&Menu"))->addAction(QStringLiteral("E&xit"), &app, &QApplication::quit);
    finestra.showMaximized();
    return QApplication::exec();
}
