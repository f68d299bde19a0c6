#include "operations/operation_checks.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora {

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
        row("latitude south", &Entry::latitudeDec, u"-0.5"_qs, latitude);
        row("latitude no number behind", &Entry::latitudeDec, u"12N"_qs, u"Please input latitude in number"_qs);
        row("minutes at their limit", &Entry::latitudeMin, u" 60 "_qs);
        row("minutes beyond", &Entry::latitudeMin, u"61"_qs, u"Min of Latitude between 0-60"_qs);
        row("longitude not recorded", &Entry::longitudeDec, u"0.0"_qs);
        row("longitude at its lower limit", &Entry::longitudeDec, u"92"_qs);
        row("longitude below", &Entry::longitudeDec, u"91.99"_qs, longitude);
        row("longitude at its upper limit", &Entry::longitudeDec, u"125"_qs);
        row("longitude beyond", &Entry::longitudeDec, u"125.5"_qs, longitude);
        row("longitude too large to hold", &Entry::longitudeDec, u"1e999"_qs, longitude);
        row("longitude no number", &Entry::longitudeDec, u"abc"_qs, u"Please input longtitude in number"_qs);
        row("minutes east beyond", &Entry::longitudeMin, u"60.1"_qs, u"Min of Longtitude between 0-60"_qs);
        row("thousands separator", &Entry::bottomDepth, u"1,000"_qs, u"Please input bottom depth (Meter) in number"_qs);
        row("exponent", &Entry::fishingDepth, u"1e2"_qs);
        const QString total = u"Please input Estimate Total Catch(kg/trip)"_qs;
        row("small catch", &Entry::totalCatch, u"0.5"_qs);
        row("no catch", &Entry::totalCatch, u" 0.00 "_qs, total);
        row("negative catch", &Entry::totalCatch, u"-3"_qs, total);
        row("empty catch", &Entry::totalCatch, QString(), total);
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

    void insertStatementText() {
        const OperationEntry entry{.vesselName = u"O'Hara"_qs,
                                   .registerId = u"R-1"_qs,
                                   .method = 3,
                                   .area = u"a1"_qs,
                                   .chosenArea = u"A1"_qs,
                                   .state = u"Alpha"_qs,
                                   .port = u"Bex"_qs,
                                   .date = QDate(2026, 11, 22),
                                   .latitudeDec = u"12"_qs,
                                   .latitudeMin = u"30.50"_qs,
                                   .longitudeDec = u"101"_qs,
                                   .longitudeMin = u" 7"_qs,
                                   .fishingTime = u"Night"_qs,
                                   .bottomDepth = u"40"_qs,
                                   .fishingDepth = u"35"_qs,
                                   .hauls = u"4"_qs,
                                   .duration = u"2.5"_qs,
                                   .totalCatch = u"1e3"_qs,
                                   .recorder = u"Port Sampler"_qs,
                                   .note = u"calm"_qs};
        QCOMPARE(insertStatement(entry, 7, 2).text(),
                 std::string("insert into fishoperation values(7,2,'Port Sampler','2026-11-22',3,12,30.5,101,7,40,35,"
                             "'Night',4,2.5,1000,'calm','O''Hara','A1')"));
    }
};

KELVORA_TEST(TestOperationChecks, "operation_checks");

}  // namespace kelvora

Q_DECLARE_METATYPE(QString kelvora::OperationEntry::*)

#include "test_operation_checks.moc"
