// SPDX-License-Identifier: MIT
// pinecovectl: the panel's safe edits from scripts, and restoring a backup.

#include "ctl.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Pinecove"));
    QTextStream out(stdout);
    QTextStream err(stderr);
    QStringList words = QCoreApplication::arguments();
    words.removeFirst();
    return runPinecovectl(words, {}, out, err);
}
