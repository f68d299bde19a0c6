#include "data/numbers.h"
#include "sampling/length_checks.h"
#include "sampling/length_classes.h"
#include "support/test_main.h"

#include <QTest>

#include <functional>

namespace kelvora::test_length_classes {

QString textOf(const LengthClass& c) {
    return plainText(c.lower) + u' ' + plainText(c.upper) + u' ' + plainText(c.middle());
}

/// Length classes and what an entry of them can start with.
class TestLengthClasses : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void table_data() {
        QTest::addColumn<double>("interval");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("third");
        QTest::addColumn<QString>("last");
        QTest::newRow("2") << 2.0 << u"0 2 1"_qs << u"4 6 5"_qs << u"94 96 95"_qs;
        QTest::newRow("0.5") << 0.5 << u"0 0.5 0.25"_qs << u"1 1.5 1.25"_qs << u"23.5 24 23.75"_qs;
        QTest::newRow("0.1") << 0.1 << u"0 0.1 0.05"_qs << u"0.2 0.3 0.25"_qs << u"4.7 4.8 4.75"_qs;
    }
    void table() {
        QFETCH(double, interval);
        const std::vector<LengthClass> classes = classTable(interval);
        QCOMPARE(classes.size(), 48U);
        QTEST(textOf(classes[0]), "first");
        QTEST(textOf(classes[2]), "third");
        QTEST(textOf(classes[47]), "last");
    }

    void everyLimitIsReadInItsOwnClass() {
        for (const double interval : {0.1, 0.2, 0.25, 0.3, 0.7, 1.1, 2.0, 3.3}) {
            for (int i = 0; i < kTableClasses; ++i) {
                const QString limit = plainText(i * interval);
                const auto found = classHolding(toNumber(limit).value(), interval);
                QVERIFY2(found, qPrintable(limit));
                QCOMPARE(plainText(found->lower), limit);
                QCOMPARE(plainText(found->upper), plainText((i + 1) * interval));
            }
        }
    }

    void holding_data() {
        QTest::addColumn<double>("length");
        QTest::addColumn<double>("interval");
        QTest::addColumn<QString>("found");
        QTest::newRow("inside") << 11.3 << 2.0 << u"10 12 11"_qs;
        QTest::newRow("on a limit") << 12.0 << 2.0 << u"12 14 13"_qs;
        QTest::newRow("just below a limit") << 11.999999 << 2.0 << u"10 12 11"_qs;
        QTest::newRow("half classes") << 7.2 << 0.5 << u"7 7.5 7.25"_qs;
        QTest::newRow("on a half") << 7.5 << 0.5 << u"7.5 8 7.75"_qs;
        QTest::newRow("on a tenth") << 0.3 << 0.1 << u"0.3 0.4 0.35"_qs;
        QTest::newRow("a computed tenth") << 0.1 + 0.2 << 0.1 << u"0.3 0.4 0.35"_qs;
        QTest::newRow("between tenths") << 0.29 << 0.1 << u"0.2 0.3 0.25"_qs;
        QTest::newRow("the first") << 0.0 << 2.0 << u"0 2 1"_qs;
        QTest::newRow("the last") << 95.9 << 2.0 << u"94 96 95"_qs;
        QTest::newRow("behind the last") << 96.0 << 2.0 << QString();
        QTest::newRow("behind the last tenth") << 4.8 << 0.1 << QString();
        QTest::newRow("negative") << -0.1 << 2.0 << QString();
    }
    void holding() {
        QFETCH(double, length);
        QFETCH(double, interval);
        const auto found = classHolding(length, interval);
        QTEST(found ? textOf(*found) : QString(), "found");
    }

    void next() {
        QCOMPARE(textOf(nextClass(14, 2)), u"14 16 15"_qs);
        double upper = 0.2;
        for (int i = 0; i < 200; ++i) {
            upper = nextClass(upper, 0.1).upper;
        }
        QCOMPARE(plainText(upper), u"20.2"_qs);
    }

    void start_data() {
        QTest::addColumn<LengthStart>("start");
        QTest::addColumn<QString>("refusal");
        const LengthStart good{2, 1, u"2"_qs, u"12.5"_qs, u"10"_qs};
        const QString species = u"Please select species"_qs;
        const QString interval = u"Please input class interval: a number greater than 0"_qs;
        const QString weight = u"Please input sampling weight: a number not below 0"_qs;
        const QString limit = u"Please input lower limit: a number from 0 to below 96"_qs;
        const auto add = [&](const char* name, const QString& refusal,
                             const std::function<void(LengthStart&)>& change) {
            LengthStart start = good;
            change(start);
            QTest::newRow(name) << start << refusal;
        };
        add("good", {}, [](LengthStart&) {});
        add("weight 0", {}, [](LengthStart& s) { s.weight = u"0"_qs; });
        add("no species comes first", species, [](LengthStart& s) { s = {}; });
        add("no operation", u"Please select fishing operation"_qs, [](LengthStart& s) { s.operation.reset(); });
        for (const char* text : {"", "abc", "0", "-2", "2cm", "1e307", "inf"}) {
            add(qPrintable(u"interval %1"_qs.arg(QLatin1String(text))), interval,
                [&](LengthStart& s) { s.interval = QLatin1String(text); });
        }
        for (const char* text : {"", "abc", "-1", "1,5", "12 kg"}) {
            add(qPrintable(u"weight %1"_qs.arg(QLatin1String(text))), weight,
                [&](LengthStart& s) { s.weight = QLatin1String(text); });
        }
        for (const char* text : {"", "abc", "-1", "96", "10cm"}) {
            add(qPrintable(u"limit %1"_qs.arg(QLatin1String(text))), limit,
                [&](LengthStart& s) { s.lowerLimit = QLatin1String(text); });
        }
    }
    void start() {
        QFETCH(LengthStart, start);
        const auto refusal = startRefusal(start);
        QTEST(refusal ? refusal->message : QString(), "refusal");
    }
};

KELVORA_TEST(TestLengthClasses, "length_classes");

}  // namespace kelvora::test_length_classes

#include "test_length_classes.moc"
