// SPDX-License-Identifier: GPL-3.0-or-later
// The peer of the start benchmark: what any program of this toolkit pays for an empty frame with an edit control
// and a menu bar, before it has done anything of its own.

#include <Qsci/qsciscintillabase.h>

#include <QApplication>
#include <QMainWindow>

int main(int argumentCount, char** arguments) {
    const QApplication application(argumentCount, arguments);
    QMainWindow window;
    window.setCentralWidget(new QsciScintillaBase(&window));
    window.setWindowTitle(QStringLiteral("empty window"));
    window.resize(1100, 750);
    window.show();
    return QApplication::exec();
}
