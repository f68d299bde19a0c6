#include "controls/record_navigator.h"
#include "support/screen_driver.h"
#include "support/test_main.h"

#include <QAbstractButton>
#include <QSignalSpy>
#include <QTest>

namespace kelvora::test_record_navigator {

/// First, previous, next and last.
class TestRecordNavigator : public QObject {
    Q_OBJECT

    /// The buttons that can be pressed, by their first letters.
    static QString enabled(RecordNavigator& navigator) {
        QString letters;
        for (const char* name : {"First", "Previous", "Next", "Last"}) {
            const QAbstractButton* button = test::ScreenDriver(&navigator).button(QString::fromLatin1(name));
            letters += button->isEnabled() ? QString::fromLatin1(name).front() : QChar(u'-');
        }
        return letters;
    }

private Q_SLOTS:
    void buttons_data() {
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("expected");
        QTest::newRow("empty") << 0 << -1 << "----";
        QTest::newRow("one row") << 1 << 0 << "----";
        QTest::newRow("first of three") << 3 << 0 << "--NL";
        QTest::newRow("second of three") << 3 << 1 << "FPNL";
        QTest::newRow("last of three") << 3 << 2 << "FP--";
    }
    void buttons() {
        QFETCH(int, rows);
        QFETCH(int, row);
        RecordNavigator navigator(QStringLiteral("Result"));
        navigator.setRowCount(rows);
        navigator.moveTo(row);
        QCOMPARE(navigator.row(), row);
        QTEST(enabled(navigator), "expected");
    }

    void walk() {
        RecordNavigator navigator(QStringLiteral("Result"));
        QSignalSpy arrived(&navigator, &RecordNavigator::arrived);
        const auto rowsGoneTo = [&] {
            QList<int> rows;
            for (const auto& arguments : std::exchange(static_cast<QList<QList<QVariant>>&>(arrived), {})) {
                rows.append(arguments[0].toInt());
            }
            return rows;
        };
        navigator.moveTo(2);
        QCOMPARE(rowsGoneTo(), QList<int>());
        navigator.setRowCount(4);
        for (const char* button : {"Next", "Last", "Previous", "First"}) {
            test::ScreenDriver(&navigator).press(QString::fromLatin1(button));
        }
        QCOMPARE(rowsGoneTo(), QList<int>({0, 1, 3, 2, 0}));
        navigator.moveTo(99);
        navigator.moveTo(3);
        navigator.moveTo(-5);
        QCOMPARE(rowsGoneTo(), QList<int>({3, 0}));
        navigator.setRowCount(4);
        navigator.setRowCount(0);
        QCOMPARE(rowsGoneTo(), QList<int>({0, -1}));
        QCOMPARE(navigator.row(), -1);
    }

    void longCaptionsDoNotWiden() {
        RecordNavigator navigator(QStringLiteral("Result"));
        const QSize size = navigator.sizeHint();
        navigator.setCaption(QString(10'000, u'W'));
        QCOMPARE(navigator.caption().size(), 10'000);
        QCOMPARE(navigator.sizeHint(), size);
    }
};

KELVORA_TEST(TestRecordNavigator, "record_navigator");

}  // namespace kelvora::test_record_navigator

#include "test_record_navigator.moc"
