#include "data/csv_reader.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_csv_reader {

/// Import files as registers and measuring boards write them.
class TestCsvReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void records_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("records");  // "line:field|field" joined by blanks
        QTest::newRow("line ends") << u"a,b\nc,d\r\ne,f\rg,h"_qs << u"1:a|b 2:c|d 3:e|f 4:g|h"_qs;
        QTest::newRow("comma in quotes") << u"\"a,b\",c"_qs << u"1:a,b|c"_qs;
        QTest::newRow("doubled quotes") << u"\"a\"\"b\""_qs << u"1:a\"b"_qs;
        QTest::newRow("quote inside a field") << u"5\"x,b"_qs << u"1:5\"x|b"_qs;
        QTest::newRow("line ends in quotes") << u"\"a\r\nb\",c\nd"_qs << u"1:a\r\nb|c 3:d"_qs;
        QTest::newRow("blanks in front") << u"  a, \t\"b\" ,c"_qs << u"1:a|b|c"_qs;
        QTest::newRow("empty line inside") << u"a\n\nb"_qs << u"1:a 2: 3:b"_qs;
        QTest::newRow("empty lines at the end") << u"a\n\n\r\n\n"_qs << u"1:a"_qs;
        QTest::newRow("quote never closed") << u"a,\"b\nc"_qs << u"1:a|b\nc"_qs;
        QTest::newRow("nothing") << QString() << QString();
    }
    void records() {
        QFETCH(QString, text);
        QFETCH(QString, records);
        QStringList found;
        for (const CsvRecord& record : parseCsv(text)) {
            found.append(QString::number(record.line) + u':' + record.fields.join(u'|'));
        }
        QCOMPARE(found.join(u' '), records);
    }

    void encodings() {
        QCOMPARE(decodedText("\xC3\x85lesund"), u"Ålesund"_qs);
        QCOMPARE(decodedText("\xEF\xBB\xBFTL,BL"), u"TL,BL"_qs);
        QCOMPARE(decodedText("\xC5lesund"), u"Ålesund"_qs);
    }
};

KELVORA_TEST(TestCsvReader, "csv_reader");

}  // namespace kelvora::test_csv_reader

#include "test_csv_reader.moc"
