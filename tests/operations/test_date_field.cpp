#include "operations/date_field.h"
#include "support/test_main.h"

#include <QLocale>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvora::test_date_field {

/// The date as it is typed: with the separators of the language, without, with two digits of the year; and what is
/// none.
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
        QTest::newRow("leap day") << u"en_GB"_s << u"29/02/00"_s << QDate(2000, 2, 29);
        QTest::newRow("shown with a word") << u"bg_BG"_s << u"15.01.2017"_s << january;
        QTest::newRow("shown with other digits") << u"ar_EG"_s << u"15/1/2017"_s << january;
        QTest::newRow("day that its month lacks") << u"de_DE"_s << u"31.02.2024"_s << QDate();
        QTest::newRow("the same, year first") << u"en_GB"_s << u"2024-02-30"_s << QDate();
        QTest::newRow("the same, digits alone") << u"en_GB"_s << u"31022024"_s << QDate();
        QTest::newRow("nothing") << u"en_GB"_s << QString() << QDate();
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
        field->setFocus(Qt::TabFocusReason);
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, keys);
        QVERIFY(field->hasFocus());
        QCOMPARE(field->date(), date);
        QTest::keyClick(field, Qt::Key_Tab);
        QVERIFY(next->hasFocus());
        // What is read is shown in full; what is no date stays as it was typed.
        QCOMPARE(field->date(), date);
        QVERIFY(date.isValid() || field->text() == keys);
        QTest::keyClick(field, Qt::Key_Up);
        QCOMPARE(field->date(), date.addDays(1));
        QLocale::setDefault(own);
    }
};

KELVORA_TEST(TestDateField, "date_field");

}  // namespace kelvora::test_date_field

#include "test_date_field.moc"
