#include "operations/date_field.h"
#include "support/test_main.h"

#include <QLocale>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvora::test_date_field {

/// The date as it is typed: with the separators of the language, without, with two digits of the year.
class TestDateField : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void typed_data() {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QDate>("date");
        const QDate january(2017, 1, 15);
        QTest::newRow("as written") << u"en_GB"_s << u"15/01/2017"_s << january;
        QTest::newRow("digits alone") << u"en_GB"_s << u"15012017"_s << january;
        QTest::newRow("year of the century before") << u"en_GB"_s << u"31/12/99"_s << QDate(1999, 12, 31);
        QTest::newRow("day that the month before lacks") << u"en_GB"_s << u"31/12/2016"_s << QDate(2016, 12, 31);
        QTest::newRow("month first") << u"en_US"_s << u"1/15/2017"_s << january;
        QTest::newRow("year first") << u"ja_JP"_s << u"2017/01/15"_s << january;
        QTest::newRow("points") << u"de_DE"_s << u"15.01.2017"_s << january;
        QTest::newRow("month by name") << u"C"_s << u"15 Jan 2017"_s << january;
        QTest::newRow("month by number instead") << u"C"_s << u"15/01/2017"_s << january;
        QTest::newRow("blanks, short parts and year") << u"en_GB"_s << u"5 1 17"_s << QDate(2017, 1, 5);
        QTest::newRow("year first elsewhere") << u"en_GB"_s << u"2017-01-15"_s << january;
    }
    void typed() {
        QFETCH(QString, language);
        QFETCH(QString, keys);
        QFETCH(QDate, date);
        const QLocale own;
        QLocale::setDefault(QLocale(language));
        QWidget window;
        auto* field = new DateField;
        auto* next = new QWidget;
        next->setFocusPolicy(Qt::StrongFocus);
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(field);
        layout->addWidget(next);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        // Once over the first part, as it is reached with Tab, and once over all of it.
        for (const bool all : {false, true}) {
            field->setDate(QDate(2026, 11, 23));
            field->setFocus(Qt::TabFocusReason);
            if (all) {
                field->selectAll();
            }
            QTest::keyClicks(field, keys);
            QVERIFY(field->hasFocus());
            QCOMPARE(field->completed(), date);
            QTest::keyClick(field, Qt::Key_Tab);
            QVERIFY(next->hasFocus());
            QCOMPARE(field->date(), date);
        }
        // What the arrow keys changed afterwards is the date meant.
        field->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(field, keys);
        QTest::keyClick(field, Qt::Key_Up);
        QVERIFY(field->completed() > date);
        QLocale::setDefault(own);
    }
};

KELVORA_TEST(TestDateField, "date_field");

}  // namespace kelvora::test_date_field

#include "test_date_field.moc"
