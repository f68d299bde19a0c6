#include "reference_screen.h"

namespace kelvora::test_vessels {

const QString kTab = u"Fishing Vessel"_qs;
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
            screen.hand().type(field.key(), field.value());
        } else if (!field.value().isEmpty()) {
            screen.hand().choose(field.key(), field.value());
        }
    }
    screen.in(kFrame).press(u"Add"_qs);
}

class TestVessels : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// Each entry breaks a further field in front of those that are broken already: only the first one may speak.
    void checksInOrder() {
        struct Case {
            QString field, typed, message;
            bool emptied;  // the field, which then gets the keyboard
        };
        const QString number = u"Please input numeric character only"_qs;
        const QString names = u"Please input vessel register id and vessel name"_qs;
        Entry entry = kWhole;
        entry[u"Vessel name"_qs].clear();
        for (const auto& [field, typed, message, emptied] :
             {Case{u"Vessel Length(m)"_qs, u"10 m"_qs, number, true},
              {u"Size(GRT)"_qs, u""_qs, number, true},
              {u"Engine Power (hp)"_qs, u"1,000"_qs, number, true},
              {u"Type of Gear"_qs, u"Unknown"_qs, u"Please select type of gear"_qs, false},
              {u"Type of Gear"_qs, u""_qs, u"Please select type of gear"_qs, false},
              {u"Engine type"_qs, u""_qs, u"Please select engine type"_qs, true},
              {u"Vessel register id"_qs, u""_qs, names, false}}) {
            test::ReferenceScreen screen(kTab);
            entry[field] = typed;
            screen.store.dialogs.expectMessage(u"ERROR"_qs, message);
            fill(screen, entry);
            Entry kept = entry;
            if (emptied) {
                QVERIFY(screen.hand().focused(field));
                kept[field].clear();
            }
            for (auto left = kept.begin(); left != kept.end(); ++left) {
                QCOMPARE(screen.text(left.key()), left.value());
            }
            QCOMPARE(screen.store.rows("select count(*) from vessel"), QStringList{u"2"_qs});
        }
    }

    void addsAfterTheQuestion() {
        const QString rest = u"|Alpha|Out Board|75|12.5|10|2|4'|100|8 m"_qs;
        const QString name = u"Vessel name"_qs, registerId = u"Vessel register id"_qs;
        struct Case {
            Entry changed;
            bool yes;
            QStringList stored;
        };
        for (const auto& [changed, yes, stored] : {Case{{}, true, {u"O'Hara|R'3"_qs + rest}},
                                                   {{{registerId, u""_qs}}, true, {u"O'Hara|"_qs + rest}},
                                                   {{{name, u""_qs}}, true, {u"|R'3"_qs + rest}},
                                                   {{{name, u"Sea Star"_qs}}, true, {u"Sea Star|R'3"_qs + rest}},
                                                   {{}, false, {}}}) {
            test::ReferenceScreen screen(kTab);
            Entry entry = kWhole;
            entry.insert(changed);
            screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert this fishing vessel? "_qs, yes);
            fill(screen, entry);
            QCOMPARE(screen.store.rows("select * from vessel where enginepower = 75"), stored);
            QCOMPARE(screen.rows(kFrame).filter(u"|Out Board|75|10|Alpha|12.50|Gill net|100|8 m|4'"_qs).size(),
                     yes ? 1 : 0);
            for (const QString& field : entry.keys()) {
                QCOMPARE(screen.text(field), QString());
            }
        }
    }

    void deletesEveryVesselOfTheName() {
        test::ReferenceScreen screen(kTab);
        screen.store.execute(
            "insert into vessel(vesselname, vesselid, gear) values"
            " ('Sea Star', 'R-9', 1), ('', 'R-8', 1), ('Lost', 'R-7', 99)");
        screen.store.addOperation(1, 1, u"2004-03-01"_qs, 1, 10, u"Blue Fin"_qs, u"A1"_qs);
        screen.reopen();
        QCOMPARE(screen.rows(kFrame).size(), 4);  // a vessel whose gear is unknown is not listed
        for (const bool yes : {false, true}) {
            QCOMPARE(screen.caption(kFrame), u"Sea Star"_qs);
            screen.remove(kFrame, u"Confirm"_qs, u"Are you sure to delete 'Sea Star'?"_qs, yes);
        }
        QCOMPARE(screen.caption(kFrame), u"Blue Fin"_qs);
        screen.refuseToRemove(kFrame, u"ERROR!"_qs, u"Can not delete because vessel used in another table"_qs);
        screen.hand().move(kFrame, u"Next"_qs);
        QCOMPARE(screen.caption(kFrame), QString());
        screen.in(kFrame).press(u"Delete"_qs);
        QCOMPARE(screen.store.rows("select vesselid from vessel order by vesselid"),
                 (QStringList{u"R-2"_qs, u"R-7"_qs, u"R-8"_qs}));
    }
};

KELVORA_TEST(TestVessels, "vessels");

}  // namespace kelvora::test_vessels

#include "test_vessels.moc"
