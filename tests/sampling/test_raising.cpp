#include "sampling/raising.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_raising {

class TestRaising : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void factor_data() {
        QTest::addColumn<double>("total");
        QTest::addColumn<double>("sample");
        QTest::addColumn<double>("factor");
        QTest::newRow("whole") << 200.0 << 10.0 << 20.0;
        QTest::newRow("two decimals") << 100.0 << 3.0 << 33.33;
        QTest::newRow("half goes up") << 2.01 << 2.0 << 1.01;
        QTest::newRow("whole group sampled") << 0.3 << 0.3 << 1.0;
    }
    void factor() {
        QFETCH(double, total);
        QFETCH(double, sample);
        QTEST(raisingFactor(total, sample), "factor");
    }

    void sumsAsTheyRead() {
        const double sample = sampleWith(sampleWith(0, 0.1), 0.2);
        QCOMPARE(sample, 0.3);
        QVERIFY(roomInGroup(0.3, sample) == 0);
        QVERIFY(roomInGroup(0.3, sampleWith(sample, 0.0001)) < 0);
    }

    void refusals_data() {
        QTest::addColumn<std::optional<QString>>("problem");
        QTest::addColumn<bool>("refused");
        QTest::newRow("weight") << weightProblem(QStringLiteral(" 1.5 ")) << false;
        QTest::newRow("weight 0") << weightProblem(QStringLiteral("0")) << false;
        QTest::newRow("weight word") << weightProblem(QStringLiteral("5 kg")) << true;
        QTest::newRow("weight comma") << weightProblem(QStringLiteral("1,5")) << true;
        QTest::newRow("weight negative") << weightProblem(QStringLiteral("-1")) << true;
        QTest::newRow("weight without end") << weightProblem(QStringLiteral("1e999")) << true;
        QTest::newRow("total") << totalWeightProblem(QStringLiteral("0.1")) << false;
        QTest::newRow("total empty") << totalWeightProblem({}) << true;
        QTest::newRow("total 0") << totalWeightProblem(QStringLiteral("0.0")) << true;
        QTest::newRow("total negative") << totalWeightProblem(QStringLiteral("-5")) << true;
        QTest::newRow("name") << groupNameProblem(QStringLiteral("Trash")) << false;
        QTest::newRow("no name") << groupNameProblem(QStringLiteral("  ")) << true;
        QTest::newRow("reserved name") << groupNameProblem(QStringLiteral(" single SPECIES")) << true;
        QTest::newRow("sample") << sampleProblem(10, 10) << false;
        QTest::newRow("sample of nothing") << sampleProblem(10, 0) << true;
        QTest::newRow("sample heavier than group") << sampleProblem(10, 10.5) << true;
    }
    void refusals() {
        QFETCH(std::optional<QString>, problem);
        QTEST(problem.has_value(), "refused");
    }
};

KELVORA_TEST(TestRaising, "raising");

}  // namespace kelvora::test_raising

#include "test_raising.moc"
