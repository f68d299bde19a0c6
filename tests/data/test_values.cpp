#include "data/crosstab.h"
#include "data/numbers.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvora::test_values {

/// Numbers from and to texts, results of questions, and crosstabs of odd values.
class TestValues : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fromText() {
        const QString zeros(400, u'0');
        // A text, and the numbers that it is and that it begins with.
        const std::vector<std::pair<QString, QString>> texts = {
            {u" -10.25 "_s, u"-10.25 -10.25"_s},
            {u"5."_s, u"5 5"_s},
            {u"1E3"_s, u"1000 1000"_s},
            {u"-1e400"_s, u"none -inf"_s},
            {u"1.7976931348623157e308"_s, u"none inf"_s},  // too large with fifteen digits
            {u'.' + zeros + u'1', u"0 0"_s},
            {u'1' + zeros + u"e-400"_s, u"1 1"_s},
            {u"  3.5 kg"_s, u"none 3.5"_s},
            {u"1,000"_s, u"none 1"_s},
            {u"1e+"_s, u"none 1"_s},
        };
        const auto written = [](double value) { return QString::number(value, 'g', 15); };
        for (const auto& [text, expected] : texts) {
            const std::optional<double> number = toNumber(text);
            QCOMPARE((number ? written(*number) : u"none"_s) + u' ' + written(leadingNumber(text)), expected);
            QCOMPARE(isNumeric(text), number.has_value());
        }
        for (const QString& text : u"|.|--1|abc|e5|0x10|inf|nan|५"_s.split(u'|')) {
            QVERIFY2(!toNumber(text) && leadingNumber(text) == 0, qPrintable(text));
        }
    }

    void toText() {
        const std::vector<std::tuple<double, QString, QString>> numbers = {
            {-10.255, u"-10.255"_s, u"-10.26"_s},
            {-0.0, u"0"_s, u"0.00"_s},
            {0.1 + 0.2, u"0.3"_s, u"0.30"_s},
            {1.005, u"1.005"_s, u"1.01"_s},
            {-0.004, u"-0.004"_s, u"0.00"_s},
            {0.005, u"0.005"_s, u"0.01"_s},
            {1.0 / 3, u"0.333333333333333"_s, u"0.33"_s},
            {1234567890123456.0, u"1234567890123460"_s, u"1234567890123460.00"_s},
            {1e21, u"1e+21"_s, u"1000000000000000000000.00"_s},
            {1e-9, u"0.000000001"_s, u"0.00"_s},
            {1e-10, u"1e-10"_s, u"0.00"_s},
        };
        for (const auto& [value, plain, rounded] : numbers) {
            QCOMPARE(plainText(value) + u' ' + twoDecimals(value), plain + u' ' + rounded);
        }
        QVERIFY(readable(0.1 + 0.2) == 0.3);  // weights are compared as they are read
        QCOMPARE(plainText(readable(std::numeric_limits<double>::infinity())), u"inf"_s);
    }

    void results() {
        test::TemporaryStore store;
        const ResultSet result =
            store.db().query(Sql("select null as n, 7 as Whole, ' 12.5 ' as t, 'x' as word, 3e9 as big"));
        QCOMPARE(result.text(0, u"N") + result.text(0, u"WHOLE"), u"7"_s);
        QCOMPARE(result.number(0, u"t"), std::optional(12.5));
        QCOMPARE(result.integer(0, u"t"), std::optional(12));
        for (const QStringView none : {u"n", u"word", u"big"}) {
            QVERIFY(!result.integer(0, none).has_value());
        }
    }

    void crosstabs() {
        const QVariant null;
        // Of texts that differ in letter case only, the first one found is shown.
        const ResultSet table = crosstab({{u"Row"_s},
                                          {{u"Y"_s, 10.0, -2.0},
                                           {u"x"_s, qlonglong{2}, 0.1},
                                           {u"X"_s, 2.0, 0.2},
                                           {u"y"_s, u"B"_s, null},
                                           {u"y"_s, u"b"_s, qlonglong{4}},
                                           {null, null, 1.0}}},
                                         1);
        QStringList cells(table.columns.begin(), table.columns.end());
        for (const auto& row : table.rows) {
            std::ranges::transform(row, std::back_inserter(cells), displayText);
        }
        QCOMPARE(cells.join(u'|'), u"Row|<>|2|10|B||1||||x||0.3|||Y|||-2|4"_s);
    }
};

KELVORA_TEST(TestValues, "values");

}  // namespace kelvora::test_values

#include "test_values.moc"
