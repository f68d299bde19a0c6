#include "data/csv_reader.h"
#include "data/errors.h"
#include "data/numbers.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QFile>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvora::test_values {

/// What is stored and read: statements, numbers, crosstabs, and import files as registers and measuring boards write
/// them.
class TestValues : public QObject {
    Q_OBJECT

    static Sql insert(int key) { return Sql("insert into state(stateid) values(") << key << ")"; }
    /// Why something failed; empty if it did not.
    static QString failure(const std::function<void()>& action) {
        try {
            action();
        } catch (const std::runtime_error& e) {
            return QString::fromUtf8(e.what());
        }
        return {};
    }

private Q_SLOTS:
    void failures() {
        test::TemporaryStore store;
        const QString tables = u"the tables of the data file are not as they should be (no such table: nowhere)."_s;
        QCOMPARE(failure([&] { store.rows("select * from nowhere"); }), u"The data could not be read: "_s + tables);
        QCOMPARE(failure([&] { store.execute("insert into nowhere values('some text')"); }),
                 u"Nothing was stored or deleted: "_s + tables);
        const QString nowhere = store.file(u"nowhere/data.sqlite"_s);
        QVERIFY(failure([&] { const Connection none(nowhere); }).contains(nowhere));
        QVERIFY(QFile::rename(store.path(), store.file(u"moved"_s)));
        QVERIFY(QFile::copy(store.file(u"moved"_s), store.path()));
        QVERIFY(failure([&] {
                    store.db().execute(insert(1));
                }).contains(u"was moved, deleted or replaced while it was open"));
    }

    /// A statement that comes again with other values is not prepared again: nothing of the former ones may stay.
    void theSameStatementAgain() {
        test::TemporaryStore store;
        const auto insertFish = [&](int number, const QString& name, double interval) {
            store.db().execute(Sql("insert into fish(fishno, genus, fishname, classinterval) values (")
                               << number << ", 'G', " << name << "," << interval << ")");
        };
        insertFish(1, u"o'year ? \"[x]%;"_s, 3);
        QVERIFY_EXCEPTION_THROWN(insertFish(1, u"again"_s, 4), DataError);
        insertFish(2, u"a"_s + QChar(u'\0') + u'b', 0.1);  // no other program expects the character in the middle
        insertFish(3, QString(), -1e15);
        QCOMPARE(store.rows("select fishno, fishname, classinterval / 2 from fish order by fishno"),
                 (QStringList{u"1|o'year ? \"[x]%;|1.5"_s, u"2|ab|0.05"_s, u"3||-500000000000000"_s}));
        const auto found = [&](const Sql& condition) {
            return store.rows(Sql("select fishno from fish where ") << condition).join(u' ');
        };
        QCOMPARE(found(Sql("fishname = ") << u"O'YEAR ? \"[x]%;"_s), u"1"_s);
        QCOMPARE(found(Sql("fishname = ") << u"again"_s), QString());
        QCOMPARE(found(Sql("classinterval = ") << 0.1 << " and " << (Sql("fishno = ") << 2)), u"2"_s);
        QCOMPARE(store.rows(Sql("select ") << 7.0 << " / 2, " << 7.5 << " / 2, " << QDate(2026, 11, 22)),
                 QStringList{u"3|3.75|2026-11-22"_s});
        QVERIFY_EXCEPTION_THROWN(Sql("select ") << std::numeric_limits<double>::infinity(), std::invalid_argument);
        Connection(store.path()).execute(insert(99));  // whatever failed: nobody holds the file
    }

    void numbers() {
        const QString zeros(400, u'0');
        // A text, and the numbers that it is and that it begins with.
        const std::vector<std::pair<QString, QString>> texts = {
            {u" -10.25 "_s, u"-10.25 -10.25"_s},
            {u"1.E3"_s, u"1000 1000"_s},
            {u"-1e400"_s, u"none -inf"_s},
            {u"1.7976931348623157e308"_s, u"none inf"_s},  // too large with fifteen digits
            {u'.' + zeros + u'1', u"0 0"_s},
            {u'1' + zeros + u"e-400"_s, u"1 1"_s},
            {u" 3.5 kg"_s, u"none 3.5"_s},
            {u"1e+"_s, u"none 1"_s},
        };
        const auto written = [](double value) { return QString::number(value, 'g', 15); };
        for (const auto& [text, expected] : texts) {
            const std::optional<double> number = toNumber(text);
            QCOMPARE((number ? written(*number) : u"none"_s) + u' ' + written(leadingNumber(text)), expected);
        }
        for (const QString& text : u"|.|--1|abc|e5|0x10|inf|nan|५"_s.split(u'|')) {
            QVERIFY2(!toNumber(text) && leadingNumber(text) == 0, qPrintable(text));
        }
        // A number, and how it is written plainly and with two decimals.
        const std::vector<std::pair<double, QString>> values = {
            {-0.0, u"0 0.00"_s},
            {0.1 + 0.2, u"0.3 0.30"_s},
            {-1.005, u"-1.005 -1.01"_s},
            {-0.004, u"-0.004 0.00"_s},
            {1.0 / 3, u"0.333333333333333 0.33"_s},
            {1234567890123456.0, u"1234567890123460 1234567890123460.00"_s},
            {123456789012345678901.0, u"123456789012346000000 123456789012346000000.00"_s},
            {1e21, u"1e+21 1000000000000000000000.00"_s},
            {1e-9, u"0.000000001 0.00"_s},
            {1e-10, u"1e-10 0.00"_s},
        };
        for (const auto& [value, expected] : values) {
            QCOMPARE(plainText(value) + u' ' + twoDecimals(value), expected);
        }
    }

    void importFiles() {
        const QByteArray lines(99'998, '\n');
        // The bytes, and the records as "line:field|field", or what is wrong.
        const std::vector<std::pair<QByteArray, QString>> files = {
            {"a,b\nc,d\r\ne,f\rg,h", u"1:a|b 2:c|d 3:e|f 4:g|h"_s},
            {"\"a,b\",c", u"1:a,b|c"_s},
            {"5\"x,\"a\"\"b\"", u"1:5\"x|a\"b"_s},
            {"  a, \t\"b\" ,c", u"1:a|b|c"_s},
            {"\"a\r\nb\"\n\nb\n\n\r\n\n", u"1:a\r\nb 3: 4:b"_s},
            {"\xEF\xBB\xBFTL,\xC3\x85lesund", u"1:TL|Ålesund"_s},
            {"\xC5lesund \x80 caf\xE9", u"1:Ålesund € café"_s},
            {"a,b\nc,\"d\ne,\"f\"\n", u"Line 2: a quote (\") is never closed. Nothing was loaded."_s},
            {QByteArray("a\nb\0c\n", 6),
             u"Line 2: a character U+0000, as in UTF-16 text or a damaged file. Nothing was loaded."_s},
            {QByteArray("\xFF\xFET\0L\0", 6), u"Line 1: the file is UTF-16 text, not UTF-8. Nothing was loaded."_s},
            {"a" + lines + "\nb\n" + "c", u"The file cannot be read: it has more than 100,000 lines.\n\n"_s},
            {QByteArray(32'768, 'a'),
             u"Line 1: a field of more than 32,767 letters, perhaps a quote (\") that is never closed. Nothing "
             "was loaded."_s},
        };
        for (const auto& [bytes, expected] : files) {
            QStringList found;
            const QString fault = failure([&, file = bytes] {
                for (const CsvRecord& record : readCsv(CsvReader(file))) {
                    found.append(QString::number(record.line) + u':' + record.fields.join(u'|'));
                }
            });
            QCOMPARE(fault + found.join(u' '), expected);
        }
        QCOMPARE(readCsv(CsvReader("a" + lines + "\nb")).size(), 100'000U);
        QVERIFY_EXCEPTION_THROWN(CsvReader(u"/dev/zero"_s), DataError);
    }
};

KELVORA_TEST(TestValues, "values");

}  // namespace kelvora::test_values

#include "test_values.moc"
