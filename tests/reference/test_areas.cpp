#include "reference_screen.h"
#include "support/test_main.h"

#include <QLineEdit>
#include <QTest>

namespace kelvora::test_areas {

const QString kGrid = u"Fishing Area"_qs;
const QString kName = u"Area Name"_qs;
const QString kDescription = u"Description"_qs;

void add(const test::ReferenceScreen& screen, const QString& name, const QString& description) {
    screen.driver().type(kName, name);
    screen.driver().type(kDescription, description);
    screen.in(u"New fishing area"_qs).press(u"Add"_qs);
}

class TestAreas : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void checksTheNameFirst() {
        test::ReferenceScreen screen;
        screen.store.dialogs.expectMessage(u"Please insert fishing area"_qs);
        add(screen, {}, {});
        QVERIFY(screen.driver().focused(kName));
        screen.store.dialogs.expectMessage(u"Please insert description"_qs);
        add(screen, u"A3"_qs, {});
        QVERIFY(screen.driver().focused(kDescription));
        QVERIFY(screen.done());
        QCOMPARE(screen.driver().text(kName), u"A3"_qs);
    }

    void addsAfterTheQuestion_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("yes");
        QTest::newRow("confirmed") << u"A0"_qs << true;
        QTest::newRow("declined") << u"A0"_qs << false;
        QTest::newRow("hostile name") << u"Fisher's 'A%1'; --"_qs << true;
        QTest::newRow("long name") << QString(10'000, u'x') << true;
    }
    void addsAfterTheQuestion() {
        QFETCH(QString, name);
        QFETCH(bool, yes);
        test::ReferenceScreen screen;
        screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert this fishing area? "_qs, yes);
        screen.store.dialogs.expectMessage(
            u"RESULT"_qs, yes ? u"Insert fishing area Complete"_qs : u"Insert fishing area not Complete"_qs);
        screen.driver().edit(kName)->setText(name);
        screen.driver().type(kDescription, u"o'er there"_qs);
        screen.in(u"New fishing area"_qs).press(u"Add"_qs);
        QVERIFY(screen.done());
        QCOMPARE(screen.driver().rows(kGrid).contains(name + u"|o'er there"_qs), yes);
        QCOMPARE(screen.driver().text(kName) + screen.driver().text(kDescription), QString());
    }

    void refusesAKnownName() {
        test::ReferenceScreen screen;
        screen.store.dialogs.expectMessage(u"ERROR"_qs, u"Fishing area repeat please try again"_qs);
        add(screen, u"a1"_qs, u"elsewhere"_qs);
        QVERIFY(screen.done());
        QCOMPARE(screen.driver().rows(kGrid), (QStringList{u"A1|north bank"_qs, u"A2|south bank"_qs}));
    }

    void deletesTheAreaItStandsOn() {
        test::ReferenceScreen screen;
        screen.store.addOperation(1, 1, u"2004-03-01"_qs, 1, 10, u"Sea Star"_qs, u"A1"_qs);
        screen.store.dialogs.expectMessage(u"ERROR"_qs,
                                           u"Can not delete because this area used in Fishing Operation"_qs);
        screen.in(kGrid).press(u"Delete"_qs);
        screen.driver().move(kGrid, u"Last"_qs);
        screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Do you want to delete this area?"_qs, false);
        screen.in(kGrid).press(u"Delete"_qs);
        QCOMPARE(screen.caption(kGrid), u"A2"_qs);
        screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Do you want to delete this area?"_qs, true);
        screen.in(kGrid).press(u"Delete"_qs);
        QVERIFY(screen.done());
        QCOMPARE(screen.store.rows("select aname from fishing_area"), QStringList{u"A1"_qs});
        QCOMPARE(screen.caption(kGrid), u"A1"_qs);
    }

    void tellsThatAnAreaIsGone() {
        test::ReferenceScreen screen;
        screen.store.execute("delete from fishing_area where aname = 'A1'");
        screen.driver().type(kName, u"A3"_qs);
        screen.store.dialogs.expectMessage(u"ERROR"_qs, u"It's doesn't have this area"_qs);
        screen.in(kGrid).press(u"Delete"_qs);
        QVERIFY(screen.done());
        QCOMPARE(screen.driver().text(kName), QString());
    }

    void deletesTheLastOne() {
        test::ReferenceScreen screen;
        screen.store.execute("delete from fishing_area where aname = 'A1'");
        screen.reopen();
        screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Do you want to delete this area?"_qs, true);
        screen.in(kGrid).press(u"Delete"_qs);
        QCOMPARE(screen.driver().rows(kGrid), QStringList());
        QCOMPARE(screen.caption(kGrid), QString());
        QVERIFY(!screen.in(kGrid).enabled(u"Delete"_qs));
    }
};

KELVORA_TEST(TestAreas, "areas");

}  // namespace kelvora::test_areas

#include "test_areas.moc"
