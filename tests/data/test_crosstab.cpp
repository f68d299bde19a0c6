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
        const ResultSet groups{{u"Row"_s},
                               {{u"Y"_s, 10.0, -2.0},
                                {u"x"_s, qlonglong{2}, 0.1},
                                {u"X"_s, 2.0, 0.2},
                                {u"y"_s, u"B"_s, null},
                                {u"y"_s, u"b"_s, qlonglong{4}},
                                {null, null, 1.0}}};
        QCOMPARE(lines(crosstab(groups, 1)),
                 (QStringList{u"Row|<>|2|10|B"_s, u"|1|||"_s, u"x||0.3||"_s, u"Y|||-2|4"_s}));
    }
};

KELVORA_TEST(TestCrosstab, "crosstab");

}  // namespace kelvora::test_crosstab

#include "test_crosstab.moc"
