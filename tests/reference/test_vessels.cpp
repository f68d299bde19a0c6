#include "controls/bound_list.h"
#include "reference_screen.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_vessels {

const QString kFrame = u"FISHING VESSEL"_qs;

using Entry = QMap<QString, QString>;

const Entry kWhole = {{u"Vessel name"_qs, u"O'Hara"_qs},    {u"Vessel register id"_qs, u"R'3"_qs},
                      {u"State/Province"_qs, u"Alpha"_qs},  {u"Engine type"_qs, u"Out Board"_qs},
                      {u"Type of Gear"_qs, u"Gill net"_qs}, {u"Engine Power (hp)"_qs, u"75"_qs},
                      {u"Size(GRT)"_qs, u"12.5"_qs},        {u"Vessel Length(m)"_qs, u"1e1"_qs},
                      {u"Net length"_qs, u"100"_qs},        {u"Net width"_qs, u"8 m"_qs},
                      {u"Mesh size"_qs, u"4'"_qs}};

void fill(const test::ReferenceScreen& screen, const Entry& entry) {
    for (auto field = entry.begin(); field != entry.end(); ++field) {
        if (field.key() != u"Engine type"_qs) {
            screen.driver().type(field.key(), field.value());
        } else if (!field.value().isEmpty()) {
            screen.driver().choose(field.key(), field.value());
        }
    }
    screen.in(kFrame).press(u"Add"_qs);
}

class TestVessels : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// Each row breaks its field and all that are checked after it: only the first one may speak.
    void checksInOrder_data() {
        QTest::addColumn<Entry>("broken");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("field");  // that is emptied, if it was typed, and gets the keyboard
        const QString number = u"Please input numeric character only"_qs;
        Entry broken = {{u"Vessel Length(m)"_qs, u"10 m"_qs}};
        QTest::newRow("length") << broken << number << u"Vessel Length(m)"_qs;
        broken[u"Size(GRT)"_qs] = u""_qs;
        QTest::newRow("size") << broken << number << u"Size(GRT)"_qs;
        broken[u"Engine Power (hp)"_qs] = u"1,000"_qs;
        QTest::newRow("engine power") << broken << number << u"Engine Power (hp)"_qs;
        broken[u"Type of Gear"_qs] = u"Unknown"_qs;
        QTest::newRow("unknown gear") << broken << u"Please select type of gear"_qs << u""_qs;
        broken[u"Type of Gear"_qs] = u""_qs;
        QTest::newRow("gear") << broken << u"Please select type of gear"_qs << u""_qs;
        broken[u"Engine type"_qs] = u""_qs;
        QTest::newRow("engine type") << broken << u"Please select engine type"_qs << u"Engine type"_qs;
        broken[u"Vessel name"_qs] = broken[u"Vessel register id"_qs] = u""_qs;
        QTest::newRow("names") << broken << u"Please input vessel register id and vessel name"_qs << u""_qs;
    }
    void checksInOrder() {
        QFETCH(Entry, broken);
        QFETCH(QString, message);
        QFETCH(QString, field);
        test::ReferenceScreen screen;
        screen.reopen(u"Fishing Vessel"_qs);
        Entry entry = kWhole;
        entry.insert(broken);
        screen.store.dialogs.expectMessage(u"ERROR"_qs, message);
        fill(screen, entry);
        QVERIFY(screen.done());
        if (!field.isEmpty()) {
            QVERIFY(screen.driver().focused(field));
            entry[field].clear();
        }
        for (auto kept = entry.begin(); kept != entry.end(); ++kept) {
            QCOMPARE(screen.driver().text(kept.key()), kept.value());
        }
        QCOMPARE(screen.store.rows("select count(*) from vessel"), QStringList{u"2"_qs});
    }

    void addsAfterTheQuestion_data() {
        QTest::addColumn<Entry>("changed");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<QStringList>("stored");
        const QString rest = u"|Alpha|Out Board|75|12.5|10|2|4'|100|8 m"_qs;
        QTest::newRow("all fields") << Entry{} << true << QStringList{u"O'Hara|R'3"_qs + rest};
        QTest::newRow("no register id") << Entry{{u"Vessel register id"_qs, u""_qs}} << true
                                        << QStringList{u"O'Hara|"_qs + rest};
        QTest::newRow("no name") << Entry{{u"Vessel name"_qs, u""_qs}} << true << QStringList{u"|R'3"_qs + rest};
        QTest::newRow("a name again") << Entry{{u"Vessel name"_qs, u"Sea Star"_qs}} << true
                                      << QStringList{u"Sea Star|R'3"_qs + rest};
        QTest::newRow("declined") << Entry{} << false << QStringList{};
    }
    void addsAfterTheQuestion() {
        QFETCH(Entry, changed);
        QFETCH(bool, yes);
        test::ReferenceScreen screen;
        screen.reopen(u"Fishing Vessel"_qs);
        Entry entry = kWhole;
        entry.insert(changed);
        screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert this fishing vessel? "_qs, yes);
        fill(screen, entry);
        QVERIFY(screen.done());
        QTEST(screen.store.rows("select * from vessel where enginepower = 75"), "stored");
        QCOMPARE(screen.driver().rows(kFrame).filter(u"|Out Board|75|10|Alpha|12.50|Gill net|100|8 m|4'"_qs).size(),
                 yes ? 1 : 0);
        for (auto field = entry.begin(); field != entry.end(); ++field) {
            QCOMPARE(screen.driver().text(field.key()), QString());
        }
    }

    void deletesEveryVesselOfTheName() {
        test::ReferenceScreen screen;
        screen.store.execute(
            "insert into vessel(vesselname, vesselid, gear) values"
            " ('Sea Star', 'R-9', 1), ('', 'R-8', 1), ('Lost', 'R-7', 99)");
        screen.store.addOperation(1, 1, u"2004-03-01"_qs, 1, 10, u"Blue Fin"_qs, u"A1"_qs);
        screen.reopen(u"Fishing Vessel"_qs);
        QCOMPARE(screen.driver().grid(kFrame)->rowCount(), 4);  // a vessel whose gear is unknown is not listed
        const auto vessels = screen.in(kFrame);
        for (const bool yes : {false, true}) {
            QCOMPARE(screen.caption(kFrame), u"Sea Star"_qs);
            screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to delete 'Sea Star'?"_qs, yes);
            vessels.press(u"Delete"_qs);
        }
        QCOMPARE(screen.caption(kFrame), u"Blue Fin"_qs);
        screen.store.dialogs.expectMessage(u"ERROR!"_qs, u"Can not delete because vessel used in another table"_qs);
        vessels.press(u"Delete"_qs);
        screen.driver().move(kFrame, u"Next"_qs);
        QCOMPARE(screen.caption(kFrame), QString());
        vessels.press(u"Delete"_qs);
        QVERIFY(screen.done());
        QCOMPARE(screen.store.rows("select vesselid from vessel order by vesselid"),
                 (QStringList{u"R-2"_qs, u"R-7"_qs, u"R-8"_qs}));
    }
};

KELVORA_TEST(TestVessels, "vessels");

}  // namespace kelvora::test_vessels

#include "test_vessels.moc"
