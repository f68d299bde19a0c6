#include "controls/record_navigator.h"
#include "support/screen_driver.h"
#include "support/test_main.h"

#include <QAbstractButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

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
    void walk() {
        RecordNavigator navigator(u"Result"_s);
        QSignalSpy arrived(&navigator, &RecordNavigator::arrived);
        const auto rowsGoneTo = [&] {
            QList<int> rows;
            while (!arrived.isEmpty()) {
                rows.append(arrived.takeFirst().at(0).toInt());
            }
            return rows;
        };
        navigator.moveTo(2);
        QCOMPARE(enabled(navigator), u"----"_s);
        QCOMPARE(rowsGoneTo(), QList<int>());
        navigator.setRowCount(4);
        QCOMPARE(enabled(navigator), u"--NL"_s);
        for (const auto& [button, then] : {std::pair{u"Next"_s, u"FPNL"_s}, std::pair{u"Last"_s, u"FP--"_s},
                                           std::pair{u"Previous"_s, u"FPNL"_s}, std::pair{u"First"_s, u"--NL"_s}}) {
            test::ScreenDriver(&navigator).press(button);
            QCOMPARE(enabled(navigator), then);
        }
        QCOMPARE(rowsGoneTo(), QList<int>({0, 1, 3, 2, 0}));
        navigator.moveTo(99);
        navigator.moveTo(3);
        navigator.moveTo(-5);
        QCOMPARE(rowsGoneTo(), QList<int>({3, 0}));
        navigator.setRowCount(1);
        QCOMPARE(enabled(navigator), u"----"_s);
        navigator.setRowCount(0);
        QCOMPARE(rowsGoneTo(), QList<int>({0, -1}));
        QCOMPARE(navigator.row(), -1);
    }

    void longCaptionsDoNotWiden() {
        RecordNavigator navigator(u"Result"_s);
        const QSize size = navigator.sizeHint();
        navigator.setCaption(QString(10'000, u'W'));
        QCOMPARE(navigator.caption().size(), 10'000);
        QCOMPARE(navigator.sizeHint(), size);
    }
};

KELVORA_TEST(TestRecordNavigator, "record_navigator");

}  // namespace kelvora::test_record_navigator

#include "test_record_navigator.moc"
