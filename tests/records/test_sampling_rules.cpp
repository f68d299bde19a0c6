#include "data/csv_reader.h"
#include "data/numbers.h"
#include "records/composition.h"
#include "records/gonad_fish.h"
#include "records/length_sample.h"
#include "support/test_main.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_sampling_rules {

/// How samples are raised, put into classes, checked and read from files, without a screen.
class TestSamplingRules : public QObject {
    Q_OBJECT

    static QString textOf(const std::optional<LengthClass>& c) {
        return c ? plainText(c->lower) + u' ' + plainText(c->upper) + u' ' + plainText(c->middle()) : u"none"_s;
    }

private Q_SLOTS:
    void raising() {
        QCOMPARE(raisingFactor(200, 10), 20.0);
        QCOMPARE(raisingFactor(100, 3), 33.33);
        QCOMPARE(raisingFactor(2.01, 2), 1.01);  // half a hundredth goes up
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
        double upper = 0.2;
        for (int i = 0; i < 200; ++i) {
            upper = nextClass(upper, 0.1).upper;
        }
        QCOMPARE(plainText(upper), u"20.2"_s);
    }

    void classOfALength() {
        struct Case {
            double length, interval;
            QString found;
        };
        for (const auto& [length, interval, found] : {Case{11.3, 2, u"10 12 11"_s},
                                                      {11.999999, 2, u"10 12 11"_s},
                                                      {0.1 + 0.2, 0.1, u"0.3 0.4 0.35"_s},
                                                      {0.29, 0.1, u"0.2 0.3 0.25"_s},
                                                      {95.9, 2, u"94 96 95"_s},
                                                      {96, 2, u"none"_s},
                                                      {4.8, 0.1, u"none"_s},
                                                      {-0.1, 2, u"none"_s}}) {
            QCOMPARE(textOf(classHolding(length, interval)), found);
        }
    }

    void startOfALengthSample() {
        const LengthStart good{true, true, u"2"_s, u"0"_s, u"10"_s};
        const auto refusal = [&](auto field, const auto& text) {
            LengthStart start = good;
            start.*field = text;
            const auto refused = startRefusal(start);
            return refused ? refused->message : QString();
        };
        QCOMPARE(refusal(&LengthStart::weight, u"12.5"_s), QString());
        QCOMPARE(startRefusal({}).value().message, u"Please select species"_s);
        QCOMPARE(refusal(&LengthStart::operation, false), u"Please select fishing operation"_s);
        for (const QString& text : {u""_s, u"0"_s, u"-2"_s, u"2cm"_s, u"1e307"_s, u"inf"_s}) {
            QCOMPARE(refusal(&LengthStart::interval, text),
                     u"Please input class interval: a number greater than 0 (decimal point, no comma)"_s);
        }
        for (const QString& text : {u""_s, u"-1"_s, u"1,5"_s}) {
            QCOMPARE(refusal(&LengthStart::weight, text),
                     u"Please input sampling weight: a number not below 0 (decimal point, no comma)"_s);
        }
        for (const QString& text : {u""_s, u"-1"_s, u"96"_s, u"10cm"_s}) {
            QCOMPARE(refusal(&LengthStart::lowerLimit, text),
                     u"Please input lower limit: a number from 0 to below 96 (decimal point, no comma)"_s);
        }
    }

    void indexOfAFish() {
        struct Case {
            QString gonad, body, stored;
        };
        for (const auto& [gonad, body, stored] : {Case{u"12"_s, u"400"_s, u"3"_s},
                                                  {u"20"_s, u"300"_s, u"6.66666666666667"_s},
                                                  {u"0.2"_s, u"112"_s, u"0.178571428571429"_s},
                                                  {u"0.07"_s, u"1"_s, u"7"_s},
                                                  {u"0"_s, u"120"_s, u"0"_s},
                                                  {u"12"_s, u"0"_s, u"null"_s},
                                                  {u"12"_s, u"-3"_s, u"null"_s},
                                                  {u"12"_s, u"heavy"_s, u"null"_s},
                                                  {u"1e300"_s, u"1e-300"_s, u"null"_s}}) {
            const GonadFish fish{{}, {}, {}, {}, body, {}, {}, gonad};
            const auto index =
                gonadoSomaticIndex(storedNumber(fish, &GonadFish::gw), storedNumber(fish, &GonadFish::bw));
            QCOMPARE(index ? plainText(*index) : u"null"_s, stored);
        }
        // What a file may hold: a stage with its name, a quote, a number with a unit, none at all, one too large.
        const GonadFish fish = {u"152mm"_s, u""_s, u"1e999"_s, u" 7.50"_s, u"50"_s, u"Fem'ale"_s, u"3-Ripe"_s, u"1"_s};
        QStringList stored;
        for (const FishColumn& column : kFishFields) {
            stored.append(plainText(storedNumber(fish, column.field)));
        }
        QCOMPARE(stored.join(u' '), u"152 0 0 7.5 50 0 3 1"_s);
    }

    void refusedFish() {
        struct Case {
            QString tl, bl, fl, sl, bw, gw, refusal;
        };
        const QString one = u"1"_s, wrong = u"x"_s;
        for (const Case& fish : {Case{u"152"_s, u"130"_s, u"141"_s, u"0"_s, u".5"_s, u"0"_s, QString()},
                                 {wrong, wrong, wrong, wrong, wrong, wrong, u"Please input TL in numeric"_s},
                                 {one, u""_s, wrong, wrong, wrong, wrong, u"Please input BL in numeric"_s},
                                 {one, one, u"1,5"_s, wrong, wrong, wrong, u"Please input FL in numeric"_s},
                                 {one, one, one, u"-1"_s, wrong, wrong, u"Please input SL in numeric"_s},
                                 {one, one, one, one, u"-5"_s, wrong, u"Please input BW in numeric"_s},
                                 {one, one, one, one, one, u"inf"_s, u"Please input GW in numeric"_s},
                                 {one, one, one, one, u"0"_s, one, u"BW must be greater than 0"_s}}) {
            const auto refusal = fishRefusal({fish.tl, fish.bl, fish.fl, fish.sl, fish.bw, {}, {}, fish.gw});
            QCOMPARE(refusal ? refusal->message : QString(), fish.refusal);
        }
    }

    void samplingWeight() {
        const auto of = [](const QStringList& weights) {
            std::vector<GonadFish> fish;
            for (const QString& weight : weights) {
                fish.emplace_back().bw = weight;
            }
            return samplingWeightText(bodyWeightSum(fish));
        };
        QCOMPARE(of({u"1000.5"_s, u"4.5"_s}), u"1.01"_s);  // 1.005 kg
        QCOMPARE(of({u"heavy"_s, u"250 g"_s}), u"0.25"_s);
    }

    void fishFiles_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("fish");
        const QByteArray header = "TL,BL,FL,SL,BW,SEX,Stage,GW\n";
        const QByteArray first = "152,130,141,128,48.5,F,2,1.2\n";
        const QByteArray second = "160,138,149,135,55,m,1,0.4";
        const QStringList two = {u"152|130|141|128|48.5|Female|2|1.2"_s, u"160|138|149|135|55|Male|1|0.4"_s};
        const QStringList none = {u"Line 1: none of the names TL,BL,FL,SL,BW,SEX,Stage,GW is in its place"_s};
        const QString fields = u"Line %1: %2 fields, not 8"_s;
        const auto brokenOff = [&fields](int line, int count) { return QStringList{fields.arg(line).arg(count)}; };
        QTest::newRow("whole") << "\xEF\xBB\xBF" + header + first + second + "\r\n\r\n\n \n" << two;
        QTest::newRow("fish over several lines") << header + "152,130,141,128\n48.5,F,2,1.2\n" + second << two;
        QTest::newRow("quotes") << header + "152,\"130,5\",\"14\"\"1\",128,48.5,F,\"3-Ripe\nrunning\",1.2\n"
                                << QStringList{u"152|130,5|14\"1|128|48.5|Female|3-Ripe\nrunning|1.2"_s};
        QTest::newRow("unchecked values") << header + "long,,-3,0x1F,0,J,ripe,\n"
                                          << QStringList{u"long||-3|0x1F|0|None|ripe|"_s};
        QTest::newRow("header alone") << header << QStringList();
        QTest::newRow("one name of the header right") << "a,b,c,d,e,sex,stage,GW\n" + first + second << two;
        QTest::newRow("names misplaced") << "GW,TL,BL,FL,SL,BW,SEX,Stage\n" + first << none;
        QTest::newRow("header in small letters") << header.toLower() + first << none;
        QTest::newRow("no header") << first + second << none;
        QTest::newRow("short last fish") << header + first + "160,138,149\n" << brokenOff(3, 3);
        QTest::newRow("short fish in the middle") << header + "152,130,141,128,48.5,F,2\n" + second << brokenOff(2, 7);
        QTest::newRow("one field too many") << header + first.trimmed() + ",\n" + second << brokenOff(2, 9);
        QTest::newRow("empty lines and fish in the middle") << header + "\n" + first + ",,,, ,,,\n" + second << two;
        QTest::newRow("short header") << QByteArray("TL,BL,FL\n") << brokenOff(1, 3);
        QTest::newRow("no text at all") << QByteArray("\xEF\xBB\xBF\n\n") << QStringList();
        QTest::newRow("binary") << QByteArray("\x89PNG\r\n\x1A\n\0\0\0\rIHDR,\xFF,\xFE\0,", 22)
                                << QStringList{u"Line 3: a character U+0000, as in UTF-16 text or a damaged file"_s};
        QTest::newRow("semicolons") << QByteArray("TL;BL;FL\n")
                                    << QStringList{u"Line 1: the fields are parted by semicolons, not by commas"_s};
        QTest::newRow("UTF-16") << QByteArray("\xFF\xFET\0L\0", 6)
                                << QStringList{u"Line 1: the file is UTF-16 text, not UTF-8"_s};
    }
    void fishFiles() {
        QFETCH(QByteArray, bytes);
        QStringList lines;
        try {
            CsvReader csv(bytes);
            FishReader reader(csv);
            std::optional<GonadFish> one;
            for (bool more = reader.readHeader(); more && (one = reader.next());) {
                lines.append(
                    QStringList{one->tl, one->bl, one->fl, one->sl, one->bw, one->sex, one->stage, one->gw}.join(u'|'));
            }
        } catch (const FormatFault& fault) {
            lines = QStringList{QString::fromUtf8(fault.what()).section(u". Nothing"_s, 0, 0)};
        }
        QTEST(lines, "fish");
    }

    void mostFishOfAFile() {
        for (const auto& [count, accepted] : {std::pair{32'767, true}, std::pair{32'768, false}}) {
            CsvReader csv("TL,BL,FL,SL,BW,SEX,Stage,GW\n" + QByteArray("1,1,1,1,1,F,1,1\n").repeated(count));
            FishReader reader(csv);
            QVERIFY(reader.readHeader());
            const auto readAll = [&reader] {
                while (reader.next()) {
                }
            };
            if (accepted) {
                readAll();
            } else {
                QVERIFY_EXCEPTION_THROWN(readAll(), FormatFault);
            }
        }
    }

    void sexes() {
        QStringList read;
        for (const QString& code : u"Female,F,FEMALE,female,f,Male,M,MALE,male,m,,U,J,MALe,F ,None"_s.split(u',')) {
            read.append(importedSex(code).first(1));
        }
        QCOMPARE(read.join(QString()), u"FFFFFMMMMMNNNNNN"_s);
    }
};

KELVORA_TEST(TestSamplingRules, "sampling_rules");

}  // namespace kelvora::test_sampling_rules

#include "test_sampling_rules.moc"
