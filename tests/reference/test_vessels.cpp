#include "reference_screen.h"

using namespace Qt::StringLiterals;

namespace kelvora::test_vessels {

const QString kTab = u"Fishing Vessel"_s;
const QString kFrame = u"FISHING VESSEL"_s;

using Entry = QMap<QString, QString>;

const Entry kWhole = {{u"Vessel name"_s, u"O'Hara"_s},    {u"Vessel register id"_s, u"R'3"_s},
                      {u"State/Province"_s, u"Alpha"_s},  {u"Engine type"_s, u"Out Board"_s},
                      {u"Type of Gear"_s, u"Gill net"_s}, {u"Engine Power (hp)"_s, u"75"_s},
                      {u"Size(GRT)"_s, u"12.5"_s},        {u"Vessel Length(m)"_s, u"1e1"_s},
                      {u"Net length"_s, u"100"_s},        {u"Net width"_s, u"8 m"_s},
                      {u"Mesh size"_s, u"4'"_s}};

void fill(const test::ReferenceScreen& screen, const Entry& entry) {
    for (auto field = entry.begin(); field != entry.end(); ++field) {
        if (field.key() != u"Engine type"_s) {
            screen.hand().type(field.key(), field.value());
        } else if (!field.value().isEmpty()) {
            screen.hand().choose(field.key(), field.value());
        }
    }
    screen.in(kFrame).press(u"Add"_s);
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
        const QString number = u"Please input numeric character only"_s;
        const QString names = u"Please input vessel register id and vessel name"_s;
        Entry entry = kWhole;
        entry[u"Vessel name"_s].clear();
        for (const auto& [field, typed, message, emptied] :
             {Case{u"Vessel Length(m)"_s, u"10 m"_s, number, true},
              {u"Size(GRT)"_s, u""_s, number, true},
              {u"Engine Power (hp)"_s, u"1,000"_s, number, true},
              {u"Type of Gear"_s, u"Unknown"_s, u"Please select type of gear"_s, false},
              {u"Type of Gear"_s, u""_s, u"Please select type of gear"_s, false},
              {u"Engine type"_s, u""_s, u"Please select engine type"_s, true},
              {u"Vessel register id"_s, u""_s, names, false}}) {
            test::ReferenceScreen screen(kTab);
            entry[field] = typed;
            screen.store.dialogs.expectMessage(u"ERROR"_s, message);
            fill(screen, entry);
            Entry kept = entry;
            if (emptied) {
                QVERIFY(screen.hand().focused(field));
                kept[field].clear();
            }
            for (auto left = kept.begin(); left != kept.end(); ++left) {
                QCOMPARE(screen.text(left.key()), left.value());
            }
            QCOMPARE(screen.store.rows("select count(*) from vessel"), QStringList{u"2"_s});
        }
    }

    void addsAfterTheQuestion() {
        const QString rest = u"|Alpha|Out Board|75|12.5|10|2|4'|100|8 m"_s;
        const QString name = u"Vessel name"_s, registerId = u"Vessel register id"_s;
        struct Case {
            Entry changed;
            bool yes;
            QStringList stored;
        };
        for (const auto& [changed, yes, stored] : {Case{{}, true, {u"O'Hara|R'3"_s + rest}},
                                                   {{{registerId, u""_s}}, true, {u"O'Hara|"_s + rest}},
                                                   {{{name, u""_s}}, true, {u"|R'3"_s + rest}},
                                                   {{{name, u"Sea Star"_s}}, true, {u"Sea Star|R'3"_s + rest}},
                                                   {{}, false, {}}}) {
            test::ReferenceScreen screen(kTab);
            Entry entry = kWhole;
            entry.insert(changed);
            screen.store.dialogs.expectConfirm(u"Confirm"_s, u"Are you sure to insert this fishing vessel? "_s, yes);
            fill(screen, entry);
            QCOMPARE(screen.store.rows("select * from vessel where enginepower = 75"), stored);
            QCOMPARE(screen.rows(kFrame).filter(u"|Out Board|75|10|Alpha|12.50|Gill net|100|8 m|4'"_s).size(),
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
        screen.store.addOperation(1, 1, u"2004-03-01"_s, 1, 10, u"Blue Fin"_s, u"A1"_s);
        screen.reopen();
        QCOMPARE(screen.rows(kFrame).size(), 4);  // a vessel whose gear is unknown is not listed
        for (const bool yes : {false, true}) {
            QCOMPARE(screen.caption(kFrame), u"Sea Star"_s);
            screen.remove(kFrame, u"Confirm"_s, u"Are you sure to delete 'Sea Star'?"_s, yes);
        }
        QCOMPARE(screen.caption(kFrame), QString());
        screen.hand().move(kFrame, u"Next"_s);
        screen.refuseToRemove(kFrame, u"ERROR!"_s, u"Can not delete because vessel used in another table"_s);
        screen.hand().move(kFrame, u"Next"_s);
        // One without a name goes by its register id, alone.
        screen.store.execute("insert into vessel(vesselname, vesselid, gear) values ('Other', 'R-8', 99)");
        screen.remove(kFrame, u"Confirm"_s, u"Are you sure to delete 'R-8'?"_s);
        QCOMPARE(screen.store.rows("select vesselname from vessel order by vesselid"),
                 (QStringList{u"Blue Fin"_s, u"Lost"_s, u"Other"_s}));
    }
};

KELVORA_TEST(TestVessels, "vessels");

}  // namespace kelvora::test_vessels

#include "test_vessels.moc"
