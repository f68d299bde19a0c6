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
    void records_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("records");  // "line:field|field" joined by blanks
        QTest::newRow("line ends") << u"a,b\nc,d\r\ne,f\rg,h"_s << u"1:a|b 2:c|d 3:e|f 4:g|h"_s;
        QTest::newRow("comma in quotes") << u"\"a,b\",c"_s << u"1:a,b|c"_s;
        QTest::newRow("doubled quotes") << u"\"a\"\"b\""_s << u"1:a\"b"_s;
        QTest::newRow("quote inside a field") << u"5\"x,b"_s << u"1:5\"x|b"_s;
        QTest::newRow("line ends in quotes") << u"\"a\r\nb\",c\nd"_s << u"1:a\r\nb|c 3:d"_s;
        QTest::newRow("blanks in front") << u"  a, \t\"b\" ,c"_s << u"1:a|b|c"_s;
        QTest::newRow("empty line inside") << u"a\n\nb"_s << u"1:a 2: 3:b"_s;
        QTest::newRow("empty lines at the end") << u"a\n\n\r\n\n"_s << u"1:a"_s;
        const QString open = u"Line 2: a quote (\") is never closed. Nothing was loaded."_s;
        QTest::newRow("quote never closed") << u"a,b\nc,\"d\ne,f\n"_s << open;
        QTest::newRow("quote closed by one that opens") << u"a,b\nc,\"d\ne,\"f\"\n"_s << open;
        QTest::newRow("U+0000")
            << u"a\nb%1c\n"_s.arg(QChar(0))
            << u"Line 2: a character U+0000, as in UTF-16 text or a damaged file. Nothing was loaded."_s;
        QTest::newRow("nothing") << QString() << QString();
    }
    void records() {
        QFETCH(QString, text);
        QFETCH(QString, records);
        QStringList found;
        try {
            for (const CsvRecord& record : readCsv(CsvReader(text.toUtf8()))) {
                found.append(QString::number(record.line) + u':' + record.fields.join(u'|'));
            }
        } catch (const FormatFault& fault) {
            found = QStringList(QString::fromUtf8(fault.what()));
        }
        QCOMPARE(found.join(u' '), records);
    }

    void limits() {
        QCOMPARE(readCsv(CsvReader("\n" + QByteArray(99'998, '\n') + "a")).size(), 100'000U);
        QVERIFY_EXCEPTION_THROWN(readCsv(CsvReader(QByteArray(100'000, '\n') + "a")), DataError);
        QVERIFY_EXCEPTION_THROWN(readCsv(CsvReader(QByteArray(40'000, 'a'))), FormatFault);
        QVERIFY_EXCEPTION_THROWN(CsvReader(u"/dev/zero"_s), DataError);
    }

    void encodings() {
        const auto read = [](const QByteArray& bytes) { return readCsv(CsvReader(bytes)).at(0).fields.at(0); };
        QCOMPARE(read("\xC3\x85lesund"), u"Ålesund"_s);
        QCOMPARE(read("\xEF\xBB\xBFTL,BL"), u"TL"_s);
        QCOMPARE(read("\xC5lesund \x80 caf\xE9"), u"Ålesund € café"_s);
    }
};

KELVORA_TEST(TestCsvReader, "csv_reader");

}  // namespace kelvora::test_csv_reader

#include "test_csv_reader.moc"
