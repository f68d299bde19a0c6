#include "support/test_main.h"

#include <QApplication>
#include <QLocale>
#include <QTest>

/// Runs the class named by the first argument with the further arguments, or every class without one. Dates and month
/// names are British unless a test sets a locale of its own.
int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    QStringList arguments = QApplication::arguments();
    const auto& classes = kelvora::test::testClasses();
    const bool one = arguments.size() > 1 && classes.contains(arguments[1]);
    const QString wanted = one ? arguments.takeAt(1) : QString();
    int failures = 0;
    for (const auto& [name, make] : classes) {
        if (wanted.isEmpty() || wanted == name) {
            failures += QTest::qExec(make().get(), arguments);
        }
    }
    return failures;
}
