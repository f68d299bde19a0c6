#include "data/csv_reader.h"
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
        QTest::newRow("quote never closed") << u"a,\"b\nc"_s << u"1:a|b\nc"_s;
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
        QCOMPARE(decodedText("\xC3\x85lesund"), u"Ålesund"_s);
        QCOMPARE(decodedText("\xEF\xBB\xBFTL,BL"), u"TL,BL"_s);
        QCOMPARE(decodedText("\xC5lesund"), u"Ålesund"_s);
    }
};

KELVORA_TEST(TestCsvReader, "csv_reader");

}  // namespace kelvora::test_csv_reader

#include "test_csv_reader.moc"
