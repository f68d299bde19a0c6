#include "data/crosstab.h"
#include "support/test_main.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora::test_crosstab {

/// Crosstabs of odd values; the reports themselves are tried on stored samples.
class TestCrosstab : public QObject {
    Q_OBJECT

    /// Header and rows, cells joined by "|".
    static QStringList lines(const ResultSet& table) {
        QStringList all{QStringList(table.columns.begin(), table.columns.end()).join(u'|')};
        for (const auto& row : table.rows) {
            QStringList cells;
            std::ranges::transform(row, std::back_inserter(cells), displayText);
            all.append(cells.join(u'|'));
        }
        return all;
    }

private Q_SLOTS:
    void oddValues() {
        const QVariant null;
        // Of texts that differ in letter case only, the first one found is shown.
        const ResultSet rows{{{}, {}, {}},
                             {{u"Y"_s, 10.0, -2.0},
                              {u"x"_s, qlonglong{2}, 0.1},
                              {u"X"_s, 2.0, 0.2},
                              {u"y"_s, u"B"_s, null},
                              {u"y"_s, u"b"_s, qlonglong{4}},
                              {null, null, 1.0}}};
        QCOMPARE(lines(pivoted({Crosstab::Aggregate::Sum, {"Row"}, {1}, 1, {}}, rows)),
                 (QStringList{u"Row|<>|2|10|B"_s, u"|1|||"_s, u"x||0.3||"_s, u"Y|||-2|4"_s}));
        QCOMPARE(lines(pivoted({Crosstab::Aggregate::Count, {"Row"}, {1}, -1, {}}, rows)),
                 (QStringList{u"Row|B|10|2|<>"_s, u"||||1"_s, u"x|||2|"_s, u"Y|1|1||"_s}));
    }

    void malformed() {
        for (const char* statement :
             {"TRANSFORM sum(a) SELECT b FROM c GROUP BY b", "TRANSFORM sum(a) SELECT b FROM c PIVOT d",
              "TRANSFORM avg(a) SELECT b FROM c GROUP BY b PIVOT d", "TRANSFORM"}) {
            QVERIFY_EXCEPTION_THROWN(parseCrosstab(statement), std::invalid_argument);
        }
    }
};

KELVORA_TEST(TestCrosstab, "crosstab");

}  // namespace kelvora::test_crosstab

#include "test_crosstab.moc"
