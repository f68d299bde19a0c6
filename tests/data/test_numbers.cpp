#include "data/numbers.h"
#include "support/test_main.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvora::test_numbers {

/// Numbers from and to texts.
class TestNumbers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fromText_data() {
        constexpr double huge = std::numeric_limits<double>::infinity();
        QTest::addColumn<QString>("text");
        QTest::addColumn<std::optional<double>>("number");
        QTest::addColumn<double>("leading");
        const auto row = [](const QString& text, std::optional<double> number, double leading) {
            QTest::newRow(qPrintable(text.left(30))) << text << number << leading;
        };
        row(u"11"_s, 11, 11);
        row(u" -10.25 "_s, -10.25, -10.25);
        row(u"+.5"_s, 0.5, 0.5);
        row(u"5."_s, 5, 5);
        row(u"1E3"_s, 1000, 1000);
        row(u"007"_s, 7, 7);
        row(u"-0"_s, 0, 0);
        row(u"1e400"_s, {}, huge);
        row(u"-1e400"_s, {}, -huge);
        row(u"1.7976931348623157e308"_s, {}, huge);  // too large with fifteen digits
        row(u"1.79769313486231e308"_s, 1.79769313486231e308, 1.79769313486231e308);
        row(QString(400, u'9'), {}, huge);
        row(u"."_s + QString(400, u'0') + u"1"_s, 0, 0);
        row(u"1"_s + QString(400, u'0') + u"e-400"_s, 1, 1);
        row(u"  3.5 kg"_s, {}, 3.5);
        for (const QString& text :
             {QString(), u"."_s, u"--1"_s, u"abc"_s, u"e5"_s, u"0x10"_s, u"inf"_s, u"nan"_s, u"५"_s}) {
            row(text, {}, 0);
        }
        row(u"1,000"_s, {}, 1);
        row(u"1.2.3"_s, {}, 1.2);
        row(u"1e+"_s, {}, 1);
    }
    void fromText() {
        QFETCH(QString, text);
        QFETCH(std::optional<double>, number);
        QCOMPARE(toNumber(text), number);
        QCOMPARE(isNumeric(text), number.has_value());
        QTEST(leadingNumber(text), "leading");
    }

    void toText_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("plain");
        QTest::addColumn<QString>("rounded");
        const auto row = [](double value, const QString& plain, const QString& rounded) {
            QTest::newRow(qPrintable(plain)) << value << plain << rounded;
        };
        row(11, u"11"_s, u"11.00"_s);
        row(-10.255, u"-10.255"_s, u"-10.26"_s);
        row(0, u"0"_s, u"0.00"_s);
        row(-0.0, u"0"_s, u"0.00"_s);
        row(0.1 + 0.2, u"0.3"_s, u"0.30"_s);
        row(1.005, u"1.005"_s, u"1.01"_s);
        row(1.0049999999999, u"1.0049999999999"_s, u"1.00"_s);
        row(-0.004, u"-0.004"_s, u"0.00"_s);
        row(0.005, u"0.005"_s, u"0.01"_s);
        row(0.00001, u"0.00001"_s, u"0.00"_s);
        row(9.995, u"9.995"_s, u"10.00"_s);
        row(1.0 / 3, u"0.333333333333333"_s, u"0.33"_s);
        row(1234567890123456.0, u"1234567890123460"_s, u"1234567890123460.00"_s);
        row(1e20, u"100000000000000000000"_s, u"100000000000000000000.00"_s);
        row(1e21, u"1e+21"_s, u"1000000000000000000000.00"_s);
        row(1e-9, u"0.000000001"_s, u"0.00"_s);
        row(1e-10, u"1e-10"_s, u"0.00"_s);
    }
    void toText() {
        QFETCH(double, value);
        QTEST(plainText(value), "plain");
        QTEST(twoDecimals(value), "rounded");
        // What is written into a statement reads back as what was shown.
        QCOMPARE(plainText(toNumber(plainText(value)).value()), plainText(value));
        QVERIFY(toNumber(plainText(value)) == readable(value));
    }

    void weightsAreComparedAsRead() {
        QVERIFY(readable(0.1 + 0.2) == 0.3);
        QVERIFY(readable(1e300) == 1e300);
        QVERIFY(std::isinf(readable(std::numeric_limits<double>::infinity())));
    }
};

KELVORA_TEST(TestNumbers, "numbers");

}  // namespace kelvora::test_numbers

#include "test_numbers.moc"
