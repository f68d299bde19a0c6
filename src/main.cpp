#include "controls/dialogs.h"
#include "controls/style.h"
#include "data/store.h"
#include "shell/program.h"
#include "shell/single_instance.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Kelvora"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/kelvora.svg")));
    QApplication::setQuitOnLastWindowClosed(false);
    kelvora::applyStyle(application);

    kelvora::SingleInstance instance(kelvora::defaultStorePath());
    if (!instance.claim()) {
        return 0;
    }
    kelvora::ModalDialogs dialogs;
    kelvora::Program program(kelvora::defaultStorePath(), dialogs);
    QObject::connect(&instance, &kelvora::SingleInstance::startedAgain, &program, &kelvora::Program::raiseWindow);
    QObject::connect(&program, &kelvora::Program::ended, &application, &QApplication::quit);
    return program.start() ? QApplication::exec() : 1;
}
