#include "data/csv_reader.h"
#include "data/errors.h"
#include "support/test_main.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_csv_reader {

/// Import files as registers and measuring boards write them.
class TestCsvReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void records() {
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
            try {
                for (const CsvRecord& record : readCsv(CsvReader(bytes))) {
                    found.append(QString::number(record.line) + u':' + record.fields.join(u'|'));
                }
            } catch (const std::runtime_error& fault) {
                found = QStringList(QString::fromUtf8(fault.what()));
            }
            QCOMPARE(found.join(u' '), expected);
        }
        QCOMPARE(readCsv(CsvReader("a" + lines + "\nb")).size(), 100'000U);
        QVERIFY_EXCEPTION_THROWN(CsvReader(u"/dev/zero"_s), DataError);
    }
};

KELVORA_TEST(TestCsvReader, "csv_reader");

}  // namespace kelvora::test_csv_reader

#include "test_csv_reader.moc"
