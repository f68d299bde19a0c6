#include "demo/demo_year.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <exception>

using namespace Qt::StringLiterals;

/// Makes the demonstration's data file in place of the one that is there: "make_demo FILE".
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("Usage: make_demo FILE\n", stderr);
        return 2;
    }
    // Built beside its place, so that a start that was cut off leaves no half a year.
    const QString path = QFile::decodeName(argv[1]);
    const QString unfinished = path + u".part"_s;
    QFile::remove(unfinished);
    try {
        kelvora::makeDemoYear(unfinished, u"" KELVORA_SOURCE_FOLDER ""_s);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
    QFile::remove(path);
    return QFile::rename(unfinished, path) ? 0 : 1;
}
