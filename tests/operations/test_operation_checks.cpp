#include "operations/operation_checks.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_operation_checks {

/// The limits of what an operation may hold, without a window.
class TestOperationChecks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void limits_data() {
        QTest::addColumn<QString OperationEntry::*>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message");
        using Entry = OperationEntry;
        const auto row = [](const char* name, QString Entry::*field, const QString& text, const QString& message = {}) {
            QTest::newRow(name) << field << text << message;
        };
        const QString latitude = u"Dec of Latitude between 0-25"_qs;
        const QString longitude = u"Dec of Longtitude between 92-125"_qs;
        row("latitude at its limit", &Entry::latitudeDec, u"25"_qs);
        row("latitude beyond", &Entry::latitudeDec, u"25.5"_qs, latitude);
        row("latitude no number behind", &Entry::latitudeDec, u"12N"_qs, u"Please input latitude in number"_qs);
        row("longitude not recorded", &Entry::longitudeDec, u"0.0"_qs);
        row("longitude at its lower limit", &Entry::longitudeDec, u"92"_qs);
        row("longitude below", &Entry::longitudeDec, u"91.99"_qs, longitude);
        row("longitude at its upper limit", &Entry::longitudeDec, u"125"_qs);
        row("longitude too large to hold", &Entry::longitudeDec, u"1e999"_qs, longitude);
        const QString total = u"Please input Estimate Total Catch(kg/trip)"_qs;
        row("small catch", &Entry::totalCatch, u"0.5"_qs);
        row("no catch", &Entry::totalCatch, u" 0.00 "_qs, total);
        row("negative catch", &Entry::totalCatch, u"-3"_qs, total);
        row("state of blanks", &Entry::state, u"  "_qs, u"please select state  first!"_qs);
        row("area of no row", &Entry::chosenArea, QString(), u"please select fishing area"_qs);
    }
    void limits() {
        QFETCH(QString OperationEntry::*, field);
        QFETCH(QString, text);
        QFETCH(QString, message);
        OperationEntry entry;
        for (QString OperationEntry::*number :
             {&OperationEntry::latitudeDec, &OperationEntry::latitudeMin, &OperationEntry::longitudeDec,
              &OperationEntry::longitudeMin, &OperationEntry::bottomDepth, &OperationEntry::fishingDepth,
              &OperationEntry::hauls, &OperationEntry::duration}) {
            entry.*number = u"0"_qs;
        }
        for (QString OperationEntry::*name : {&OperationEntry::state, &OperationEntry::port, &OperationEntry::area,
                                              &OperationEntry::chosenArea, &OperationEntry::registerId}) {
            entry.*name = u"x"_qs;
        }
        entry.totalCatch = u"10"_qs;
        entry.method = 1;
        QVERIFY(firstFailed(entry) == nullptr);

        entry.*field = text;
        const OperationCheck* failed = firstFailed(entry);
        QCOMPARE(failed == nullptr ? QString() : failed->message.toString(), message);
    }
};

KELVORA_TEST(TestOperationChecks, "operation_checks");

}  // namespace kelvora::test_operation_checks

Q_DECLARE_METATYPE(QString kelvora::OperationEntry::*)

#include "test_operation_checks.moc"
