#include "reference/species_import.h"
#include "reference/vessel_import.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_import_rules {

/// Answers in the sampler's place, and writes down what was asked and stored.
struct Answers {
    QStringList stored = {u"Trawl"_qs, u"Gill net"_qs};
    QString answer;
    bool yes = true;
    QStringList log;

    [[nodiscard]] GearQuestions questions() {
        const auto lookUp = [this](const QString& name) {
            const auto found = std::ranges::find_if(
                stored, [&](const QString& gear) { return gear.compare(name, Qt::CaseInsensitive) == 0; });
            return found == stored.end() ? std::nullopt : std::optional(*found);
        };
        const auto ask = [this](const QString& proposed) {
            log.append(u"ask "_qs + proposed);
            return answer == u"as proposed"_qs ? proposed : answer;
        };
        const auto confirm = [this](const QString& name) {
            log.append(u"confirm "_qs + name);
            return yes;
        };
        const auto add = [this](const QString& name) {
            log.append(u"add "_qs + name);
            stored.append(name);
        };
        return {lookUp, ask, confirm, add};
    }
};

class TestImportRules : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void headers_data() {
        QTest::addColumn<bool>("vessels");
        QTest::addColumn<QList<int>>("wrong");  // columns with another name
        QTest::addColumn<bool>("fits");
        QTest::newRow("whole") << true << QList<int>{} << true;
        QTest::newRow("first group but its first name") << true << QList<int>{1, 2, 3} << true;
        QTest::newRow("first group but its last name") << true << QList<int>{0, 1, 2} << true;
        QTest::newRow("first group") << true << QList<int>{0, 1, 2, 3} << false;
        QTest::newRow("second group but one") << true << QList<int>{4, 6} << true;
        QTest::newRow("second group") << true << QList<int>{4, 5, 6} << false;
        QTest::newRow("most of both groups") << true << QList<int>{0, 1, 2, 5, 6} << true;
        for (const int column : {7, 8, 9, 10}) {
            QTest::addRow("column %d", column) << true << QList<int>{column} << false;
        }
        QTest::newRow("species, whole") << false << QList<int>{} << true;
        QTest::newRow("species, one name left") << false << QList<int>{0, 1, 2} << true;
        QTest::newRow("species, no name left") << false << QList<int>{0, 1, 2, 3} << false;
    }
    void headers() {
        QFETCH(bool, vessels);
        QFETCH(QList<int>, wrong);
        const ImportLayout& layout = vessels ? vesselLayout() : speciesLayout();
        QStringList fields;
        for (const ImportColumn& column : layout.columns) {
            fields.append(column.header);
        }
        for (const int column : wrong) {
            fields[column] = fields[column].toUpper();  // letter case counts
        }
        QTEST(headerFits(layout, fields), "fits");
        QVERIFY(!headerFits(layout, fields + QStringList{QString()}));
        QVERIFY(!headerFits(layout, fields.first(fields.size() - 1)));
    }

    void gears_data() {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<QString>("gear");  // of the vessels with the unknown name
        QTest::addColumn<QStringList>("log");
        const QString ask = u"ask Longline"_qs;
        QTest::newRow("Yes") << u"as proposed"_qs << true << u"Longline"_qs
                             << QStringList{ask, u"confirm Longline"_qs, u"add Longline"_qs};
        QTest::newRow("changed, Yes") << u"Trap"_qs << true << u"Trap"_qs
                                      << QStringList{ask, u"confirm Trap"_qs, u"add Trap"_qs};
        QTest::newRow("No") << u"as proposed"_qs << false << u""_qs << QStringList{ask, u"confirm Longline"_qs};
        QTest::newRow("empty") << u""_qs << true << u""_qs << QStringList{ask};
        QTest::newRow("blanks") << u"  "_qs << true << u""_qs << QStringList{ask};
        QTest::newRow("a stored gear") << u"GILL NET"_qs << true << u"Gill net"_qs << QStringList{ask};
    }
    /// Whatever the answer is, the second and third vessel with the unknown name are not asked about.
    void gears() {
        QFETCH(QString, answer);
        QFETCH(bool, yes);
        QFETCH(QString, gear);
        Answers answers;
        answers.answer = answer;
        answers.yes = yes;
        std::vector<CsvRecord> vessels;
        for (const auto* name : {u"trawl", u"Longline", u"Trawl", u"LONGLINE", u"Longline"}) {
            QStringList fields(vesselLayout().width());
            fields[kGearColumn] = QString::fromUtf16(name);
            vessels.push_back({1, fields});
        }
        settleGears(vessels, answers.questions());
        QStringList settled;
        for (const CsvRecord& vessel : vessels) {
            settled.append(vessel.fields[kGearColumn]);
        }
        QCOMPARE(settled, (QStringList{u"trawl"_qs, gear, u"Trawl"_qs, gear, gear}));
        QTEST(answers.log, "log");
    }

    void refusalsNameTenRowsInShort() {
        std::vector<RefusedRecord> refused;
        for (int line = 2; line <= 1'013; ++line) {
            refused.push_back({{line, {u"Sea\nStar"_qs.repeated(500)}}, {u"Engine power"_qs, u"Size(GRT)"_qs}});
        }
        const QStringList lines = refusalText(refused).split(u'\n');
        QCOMPARE(lines.first().section(u": "_qs, 1), u"1,012. These rows stay in the preview."_qs);
        QCOMPARE(lines.size(), 2 + 10 + 1);
        QVERIFY(lines[2].startsWith(u"line 2, Sea StarSea Star"_qs));
        QVERIFY(lines[2].endsWith(u"…: Engine power, Size(GRT)"_qs));
        QVERIFY(lines[2].size() < 90);
        QVERIFY(lines[11].startsWith(u"line 11, "_qs));
        QCOMPARE(lines[12], u"and 1,002 more"_qs);
        refused.resize(10);
        QVERIFY(!refusalText(refused).contains(u"more"_qs));
    }
};

KELVORA_TEST(TestImportRules, "import_rules");

}  // namespace kelvora::test_import_rules

#include "test_import_rules.moc"
