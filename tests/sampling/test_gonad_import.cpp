#include "data/csv_reader.h"
#include "sampling/gonad_import.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_gonad_import {

class TestGonadImport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void files_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("fish");
        const QByteArray header = "TL,BL,FL,SL,BW,SEX,Stage,GW";
        const QStringList two = {u"152|130|141|128|48.5|Female|2|1.2"_qs, u"160|138|149|135|55|Male|1|0.4"_qs};
        const QByteArray first = "152,130,141,128,48.5,F,2,1.2";
        const QByteArray second = "160,138,149,135,55,m,1,0.4";
        const QStringList refused = {u"refused"_qs};
        QTest::newRow("LF") << header + "\n" + first + "\n" + second + "\n" << two;
        QTest::newRow("CR LF, no end of line") << header + "\r\n" + first + "\r\n" + second << two;
        QTest::newRow("CR") << header + "\r" + first + "\r" + second + "\r" << two;
        QTest::newRow("byte-order mark") << "\xEF\xBB\xBF" + header + "\n" + first + "\n" + second << two;
        QTest::newRow("empty lines at the end") << header + "\n" + first + "\n" + second + "\r\n\r\n\n \n" << two;
        QTest::newRow("blanks in front") << header + "\n  152, 130,\t141,128, 48.5, F,2, 1.2\n" + second << two;
        QTest::newRow("fish over several lines") << header + "\n152,130,141,128\n48.5,F,2,1.2\n" + second << two;
        QTest::newRow("quoted header and fields") << R"("TL","BL","FL","SL","BW","SEX","Stage","GW")"
                                                     "\n"
                                                     R"("152","130","141","128","48.5","F","2","1.2")"
                                                     "\n" +
                                                         second
                                                  << two;
        QTest::newRow("comma, quote and line end inside quotes")
            << header + "\n152,\"130,5\",\"14\"\"1\",128,48.5,F,\"3-Ripe\nrunning\",1.2\n"
            << QStringList{u"152|130,5|14\"1|128|48.5|Female|3-Ripe\nrunning|1.2"_qs};
        QTest::newRow("unchecked values") << header + "\nlong,,-3,0x1F,0,J,ripe,\n"
                                          << QStringList{u"long||-3|0x1F|0|None|ripe|"_qs};
        QTest::newRow("header alone") << header + "\n" << QStringList();
        QTest::newRow("one field of the header right") << "a,b,c,d,e,sex,stage,GW\n" + first + "\n" + second << two;
        QTest::newRow("all fields of the header misplaced") << "GW,TL,BL,FL,SL,BW,SEX,Stage\n" + first << refused;
        QTest::newRow("header in small letters") << header.toLower() + "\n" + first << refused;
        QTest::newRow("no header") << first + "\n" + second << refused;
        QTest::newRow("short last fish") << header + "\n" + first + "\n160,138,149\n" << refused;
        QTest::newRow("short fish in the middle") << header + "\n152,130,141,128,48.5,F,2\n" + second << refused;
        QTest::newRow("one field too many") << header + "\n" + first + ",\n" + second << refused;
        QTest::newRow("empty line in the middle") << header + "\n\n" + first << refused;
        QTest::newRow("short header") << QByteArray("TL,BL,FL\n") << refused;
        QTest::newRow("quote left open") << header + "\n\"152,130,141,128,48.5,F,2,1.2\n" + second << refused;
        QTest::newRow("no text at all") << QByteArray("\xEF\xBB\xBF\n\n") << refused;
        QTest::newRow("binary") << QByteArray("\x89PNG\r\n\x1A\n\0\0\0\rIHDR,\xFF,\xFE\0,", 22) << refused;
    }
    void files() {
        QFETCH(QByteArray, bytes);
        const auto fish = importedFish(decodedText(bytes));
        QStringList lines;
        for (const GonadFish& one : fish.value_or(std::vector<GonadFish>())) {
            lines.append(QStringList{one.tl, one.bl, one.fl, one.sl, one.bw, one.sex, one.stage, one.gw}.join(u'|'));
        }
        QTEST(fish ? lines : QStringList{u"refused"_qs}, "fish");
    }

    void sizeOfAFile() {
        const QString header = u"TL,BL,FL,SL,BW,SEX,Stage,GW\n"_qs;
        const QString fish = u"1,1,1,1,1,F,1,1\n"_qs;
        const auto most = importedFish(header + fish.repeated(32'767));
        QVERIFY(most);
        QCOMPARE(most->size(), 32'767U);
        QVERIFY(!importedFish(header + fish.repeated(32'768)));
    }

    void sexes() {
        for (const auto* code : {u"Female", u"F", u"FEMALE", u"female", u"f"}) {
            QCOMPARE(importedSex(QString::fromUtf16(code)), u"Female"_qs);
        }
        for (const auto* code : {u"Male", u"M", u"MALE", u"male", u"m"}) {
            QCOMPARE(importedSex(QString::fromUtf16(code)), u"Male"_qs);
        }
        for (const auto* code : {u"", u"U", u"unknown", u"J", u"Juvenile", u"MALe", u"F ", u"None"}) {
            QCOMPARE(importedSex(QString::fromUtf16(code)), u"None"_qs);
        }
    }
};

KELVORA_TEST(TestGonadImport, "gonad_import");

}  // namespace kelvora::test_gonad_import

#include "test_gonad_import.moc"
