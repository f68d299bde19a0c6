#include "sampling/gonad_fish.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_gonad_fish {

class TestGonadFish : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void index_data() {
        QTest::addColumn<QString>("gonadWeight");
        QTest::addColumn<QString>("bodyWeight");
        QTest::addColumn<QString>("stored");
        QTest::newRow("whole") << u"12"_qs << u"400"_qs << u"3"_qs;
        QTest::newRow("15 digits") << u"10"_qs << u"300"_qs << u"3.33333333333333"_qs;
        QTest::newRow("rounded up at the 15th digit") << u"20"_qs << u"300"_qs << u"6.66666666666667"_qs;
        QTest::newRow("a small fish") << u"0.2"_qs << u"112"_qs << u"0.178571428571429"_qs;
        QTest::newRow("no remainder of binary numbers") << u"0.07"_qs << u"1"_qs << u"7"_qs;
        QTest::newRow("no gonad weight") << u"0"_qs << u"120"_qs << u"0"_qs;
        QTest::newRow("no body weight") << u"12"_qs << u"0"_qs << u"null"_qs;
        QTest::newRow("negative body weight") << u"12"_qs << u"-3"_qs << u"null"_qs;
        QTest::newRow("no number") << u"12"_qs << u"heavy"_qs << u"null"_qs;
        QTest::newRow("beyond every number") << u"1e300"_qs << u"1e-300"_qs << u"null"_qs;
    }
    void index() {
        QFETCH(QString, gonadWeight);
        QFETCH(QString, bodyWeight);
        GonadFish fish;
        fish.gw = gonadWeight;
        fish.bw = bodyWeight;
        const QString statement = QString::fromStdString(insertFish(1, 2, 3, fish).text());
        QTEST(statement.section(u',', -1).chopped(1), "stored");
    }

    void statement() {
        // What a file may hold: a stage with its name, a quote, a number with a unit, none at all, one too large.
        const GonadFish fish = {u"152mm"_qs, u""_qs,        u"1e999"_qs,  u" 7.50"_qs,
                                u"50"_qs,    u"Fem'ale"_qs, u"3-Ripe"_qs, u"1"_qs};
        QCOMPARE(QString::fromStdString(insertFish(7, 2, 6, fish).text()),
                 u"Insert into gonad_detail(optid,spid,samplingno,tl,bl,fl,sl,bw,sex,stage,gw,gsi) "
                 "values(7,2,6,152,0,0,7.5,50,'Fem''ale',3,1,2)"_qs);
    }

    void refusals_data() {
        QTest::addColumn<QStringList>("fish");
        QTest::addColumn<QString>("refusal");
        const auto row = [](const char* name, const char* measurements, const char* refusal) {
            QTest::newRow(name) << QString::fromLatin1(measurements).split(u' ') << QString::fromLatin1(refusal);
        };
        row("good", "152 130 141 128 48.5 1.2", "");
        row("lengths not measured", "0 0 0 0 .5 0", "");
        row("TL first", "x x x x x x", "Please input TL in numeric");
        row("BL empty", "1  1 1 1 1", "Please input BL in numeric");
        row("FL decimal comma", "1 1 1,5 1 1 1", "Please input FL in numeric");
        row("SL negative", "1 1 1 -1 1 1", "Please input SL in numeric");
        row("BW unit", "1 1 1 1 48g 1", "Please input BW in numeric");
        row("BW zero", "1 1 1 1 0 1", "BW must be greater than 0");
        row("BW negative", "1 1 1 1 -5 1", "Please input BW in numeric");
        row("GW infinite", "1 1 1 1 1 inf", "Please input GW in numeric");
    }
    void refusals() {
        QFETCH(QStringList, fish);
        const auto refusal = fishRefusal({fish[0], fish[1], fish[2], fish[3], fish[4], {}, {}, fish[5]});
        QTEST(refusal ? refusal->message : QString(), "refusal");
    }

    void samplingWeight() {
        const auto of = [](const QStringList& weights) {
            std::vector<GonadFish> fish;
            for (const QString& weight : weights) {
                fish.emplace_back().bw = weight;
            }
            return samplingWeightText(bodyWeightSum(fish));
        };
        QCOMPARE(of({}), u"0.00"_qs);
        QCOMPARE(of({u"400"_qs, u"300"_qs}), u"0.70"_qs);
        QCOMPARE(of({u"1000.5"_qs, u"4.5"_qs}), u"1.01"_qs);  // 1.005 kg
        QCOMPARE(of({u"heavy"_qs, u"250 g"_qs}), u"0.25"_qs);
    }
};

KELVORA_TEST(TestGonadFish, "gonad_fish");

}  // namespace kelvora::test_gonad_fish

#include "test_gonad_fish.moc"
