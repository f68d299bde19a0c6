#include "controls/dialogs.h"
#include "controls/screen.h"
#include "controls/style.h"
#include "data/store.h"
#include "shell/program.h"
#include "shell/single_instance.h"
#include "version.h"

#include <QApplication>
#include <QIcon>

#include <cstdio>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

/// Answers "--version" and "--help", for which no display is needed. Returns whether there was anything to answer.
bool answered(int argc, char** argv) {
    if (argc != 2) {
        return false;
    }
    if (std::strcmp(argv[1], "--version") == 0) {
        std::printf("Kelvora %s\n", qPrintable(kelvora::kVersion));
        return true;
    }
    if (std::strcmp(argv[1], "--help") == 0) {
        std::puts(
            "Usage: kelvora\n\n"
            "Biological sampling of fisheries at landing sites.\n\n"
            "  --help     shows this text\n"
            "  --version  shows the version of the program");
        return true;
    }
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (answered(argc, argv)) {
        return 0;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Kelvora"_s);
    QApplication::setApplicationVersion(kelvora::kVersion);
    // The name of the desktop entry, by which a desktop finds the icon of a running window.
    QApplication::setDesktopFileName(u"kelvora"_s);
    QApplication::setWindowIcon(QIcon(u":/icons/kelvora.svg"_s));
    QApplication::setQuitOnLastWindowClosed(false);
    kelvora::applyStyle(application);

    kelvora::ModalDialogs dialogs;
    kelvora::SingleInstance instance(kelvora::defaultStorePath());
    bool first = false;
    if (!kelvora::runGuarded(dialogs, [&] { first = instance.claim(); })) {
        return 1;
    }
    if (!first) {
        return 0;
    }
    kelvora::Program program(kelvora::defaultStorePath(), dialogs);
    QObject::connect(&instance, &kelvora::SingleInstance::startedAgain, &program, &kelvora::Program::raiseWindow);
    return program.start() ? QApplication::exec() : 1;
}
