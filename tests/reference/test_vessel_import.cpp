#include "import_desk.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_vessel_import {

const QByteArray kHeader =
    "vessel name,vessel register id,engine type,engine power,length(m),state/province,size(GRT),type of gear,"
    "net length(m),net width(m),mesh size(cm)\n";
const QByteArray kWhole = "Osprey,007,In Board,080,7.50,Alpha,2,Trawl,1,02,3\n";
const QString kBlank = QString(10, u'|');

QByteArray replaced(QByteArray bytes, const char* before, const char* after) {
    return bytes.replace(before, after);
}

/// A record with these three numbers.
QByteArray vessel(const char* name, const char* power = "1", const char* length = "2", const char* size = "3",
                  const char* gear = "Trawl") {
    return QByteArray(name) + ",R,In Board," + power + "," + length + ",Alpha," + size + "," + gear + ",1,2,3\n";
}

struct Desk : test::ImportDesk {
    explicit Desk(bool empty = false) : ImportDesk(u"Vessel import"_qs, u"Vessel import"_qs, empty) {
        driver().openTab(u"Fishing Vessel"_qs);
    }
    QStringList stored() {
        return store.rows("select vesselname, enginepower, vessellength, vesselsize, gear from vessel");
    }
};

class TestVesselImport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reads_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("rows");
        const QString osprey = u"Osprey|007|In Board|080|7.50|Alpha|2|Trawl|1|02|3"_qs;
        const QString fancy = u"O'Hara, \"Sea\"|R\n1|Out Board|1|2|Älpha|3|Gill net|||"_qs;
        const QByteArray quoted = "\"O'Hara, \"\"Sea\"\"\",\"R\n1\",Out Board,1,2,Älpha,3,\"Gill net\",,,\n";
        QTest::newRow("as written") << kHeader + kWhole << QStringList{osprey};
        QTest::newRow("quotes") << kHeader + quoted + kWhole << QStringList{fancy, osprey};
        QTest::newRow("byte-order mark") << "\xEF\xBB\xBF" + kHeader + kWhole << QStringList{osprey};
        QTest::newRow("8-bit letters") << replaced(kHeader + kWhole, "Alpha", "\xC4lpha")
                                       << QStringList{QString(osprey).replace(u"Alpha"_qs, u"Älpha"_qs)};
        QTest::newRow("CR") << replaced(kHeader + kWhole + kWhole, "\n", "\r") << QStringList{osprey, osprey};
        QTest::newRow("CR LF, empty lines at the end")
            << replaced(kHeader + kWhole + "\n\n", "\n", "\r\n") << QStringList{osprey};
        QTest::newRow("header alone") << kHeader << QStringList{kBlank};
    }
    void reads() {
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, rows);
        Desk desk;
        QCOMPARE(desk.rows(), QStringList{kBlank});
        QVERIFY(!desk.enabled(u"Save"_qs));
        desk.importBytes(bytes);
        QCOMPARE(desk.rows(), rows);
        QCOMPARE(desk.path(), desk.store.file(u"import.csv"_qs));
        QVERIFY(desk.driver().edit(u"Vessel file"_qs)->isReadOnly());
        QCOMPARE(desk.enabled(u"Save"_qs), rows != QStringList{kBlank});
        desk.press(u"Clear"_qs);
        QCOMPARE(desk.rows(), QStringList{kBlank});
        QCOMPARE(desk.path(), QString());
        QVERIFY(!desk.enabled(u"Save"_qs) && !desk.enabled(u"Delete"_qs));
    }

    void refuses_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("message");
        const QString title = u"Kelvora"_qs;
        const QString format = u"Error File Format"_qs;
        const QString ending = u"Error file type .csv only try again"_qs;
        const QString uneven = u"Line %1 does not hold 11 fields, but %2. Nothing was loaded."_qs;
        QTest::newRow("upper-case ending") << u"a.CSV"_qs << kHeader + kWhole << title << ending;
        QTest::newRow("other ending") << u"csv"_qs << kHeader + kWhole << title << ending;
        QTest::newRow("binary") << u"a.csv"_qs << QByteArray("\x89PNG\r\n\x1A\n\0\0,\xFF,\xFE\0", 16) << u"ERROR"_qs
                                << format;
        QTest::newRow("short header") << u"a.csv"_qs << QByteArray("vessel name\n") << u"ERROR"_qs << format;
        // The gear of the first vessel is unknown: nothing is asked about a file that is refused in the end.
        const QByteArray unknown = vessel("A", "1", "2", "3", "Kite");
        QTest::newRow("short record") << u"a.csv"_qs << kHeader + unknown + "B,R\n" + kWhole << u"ERROR"_qs
                                      << uneven.arg(3).arg(2);
        QTest::newRow("long record behind a field of two lines")
            << u"a.csv"_qs << kHeader + "\"A\nB\"" + unknown.sliced(1) + vessel("C") + kWhole.trimmed() + ",4\n"
            << u"ERROR"_qs << uneven.arg(5).arg(12);
        QTest::newRow("empty line") << u"a.csv"_qs << kHeader + unknown + "\n" + kWhole << u"ERROR"_qs
                                    << uneven.arg(3).arg(1);
    }
    void refuses() {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, title);
        QFETCH(QString, message);
        Desk desk;
        desk.importBytes(kHeader + kWhole);
        const QStringList before = desk.rows();
        desk.importBytes(
            bytes, [&](auto& dialogs) { dialogs.expectMessage(title, message); }, name);
        QVERIFY(desk.done());
        QCOMPARE(desk.rows(), before);
        QCOMPARE(desk.path(), QString());
        desk.importFile(std::nullopt);
        desk.importBytes(kHeader + kWhole + kWhole);
        QCOMPARE(desk.rows().size(), 2);
    }

    void aFileWithoutData() {
        Desk desk;
        for (const char* bytes : {"", "\xEF\xBB\xBF", "\n\n"}) {
            desk.importBytes(bytes, [](auto& dialogs) { dialogs.expectMessage(u"No data in this file"_qs); });
        }
        QVERIFY(desk.done());
        QVERIFY(!desk.enabled(u"Save"_qs));
        desk.importFile(desk.store.file(u"missing.csv"_qs),
                        [](auto& dialogs) { dialogs.expectMessageContaining(u"The file cannot be read"_qs); });
        QCOMPARE(desk.path(), QString());
    }

    void storesNewGearsAtOnce() {
        Desk desk;
        desk.store.execute("update Fishing_gear set gearid = 3 where gearid = 2");  // the number of gears + 1 is taken
        const auto ask = [](test::ScriptedDialogs& dialogs, const std::optional<QString>& answer) {
            dialogs.expectInput(u"New Fishing Gear"_qs, u"You have to insert new fishing gear"_qs, answer);
        };
        desk.importBytes(kHeader + vessel("A", "1", "2", "3", "kyte") + vessel("B", "1", "2", "3", "") +
                             vessel("C", "1", "2", "3", "kite'"),
                         [&](auto& dialogs) {
                             ask(dialogs, u"Kite'"_qs);
                             dialogs.expectConfirm(u"Kelvora"_qs, u"Are you sure to insert 'Kite''? "_qs, true);
                             dialogs.expectMessage(u"Insert Complete!"_qs);
                             ask(dialogs, std::nullopt);
                         });
        QVERIFY(desk.done());
        desk.driver().choose(u"Type of Gear"_qs, u"Kite'"_qs);
        desk.press(u"Clear"_qs);
        QCOMPARE(desk.store.rows("select * from Fishing_gear order by gearid").last(), u"4|Kite'"_qs);
        desk.importFile(std::nullopt);

        desk.importBytes(kHeader + vessel("A", "1", "2", "3", "kyte") + vessel("C", "1", "2", "3", "kite'"),
                         [&](auto& dialogs) { ask(dialogs, u"trawl"_qs); });
        desk.save(u"Save"_qs, 2);
        QCOMPARE(desk.stored().mid(2), (QStringList{u"A|1|2|3|1"_qs, u"C|1|2|3|4"_qs}));
    }

    void savesWhatIsNewAndWhole() {
        Desk desk;
        desk.importBytes(kHeader + vessel("sea star") + vessel("O'Hara", " 1e1 ", "-2", "0.5") + vessel("Bad", "") +
                             vessel("Taken out") + vessel("Worse", "1", "2 m", "\"1,5\"") + vessel("O'HARA", "7") +
                             vessel("No gear", "1", "2", "3", "") + vessel("Bad", "4"),
                         [](auto& dialogs) {
                             dialogs.expectInput(u"New Fishing Gear"_qs, u"You have to insert new fishing gear"_qs,
                                                 u""_qs);
                         });
        desk.driver().grid(desk.preview)->setCurrentRow(3);
        desk.press(u"Delete"_qs);
        desk.save(u"Save"_qs, 7, false);
        QCOMPARE(desk.stored().size(), 2);
        desk.save(u"Save"_qs, 7, true, [](auto& dialogs) {
            dialogs.expectMessage(u"ERROR"_qs,
                                  u"Not stored, since a number is missing or not numeric: 2. These rows stay in the"
                                  " preview.\n\nline 4, Bad: Engine power\nline 6, Worse: Vessel length, Size(GRT)"_qs);
        });
        QVERIFY(desk.done());
        QCOMPARE(desk.stored().mid(2),
                 (QStringList{u"O'Hara|10|-2|0.5|1"_qs, u"No gear|1|2|3|0"_qs, u"Bad|4|2|3|1"_qs}));
        QVERIFY(desk.says(u"stored 3, already known 2, refused 2"_qs));
        QCOMPARE(desk.rows().size(), 2);
        QCOMPARE(desk.rows().first().section(u'|', 0, 3), u"Bad|R|In Board|"_qs);
        // The vessel without a gear is not listed.
        QCOMPARE(desk.driver().rows(u"FISHING VESSEL"_qs).size(), 4);
        desk.press(u"Delete"_qs);
        desk.press(u"Delete"_qs);
        QCOMPARE(desk.rows().size(), 1);
        QVERIFY(desk.enabled(u"Save"_qs));
    }

    void aSaveThatFailsStoresNothing() {
        Desk desk;
        desk.importBytes(kHeader + vessel("A") + vessel("B"));
        desk.store.execute(
            "create trigger full before insert on vessel when new.vesselname = 'B'"
            " begin select raise(abort, 'disk'); end");
        desk.save(u"Save"_qs, 2, true,
                  [](auto& dialogs) { dialogs.expectMessageContaining(u"Nothing was stored"_qs); });
        QVERIFY(desk.done());
        QCOMPARE(desk.stored().size(), 2);
        QCOMPARE(desk.rows().size(), 2);
        desk.store.execute("drop trigger full");
        desk.save(u"Save"_qs, 2);
        QCOMPARE(desk.stored().size(), 4);
        QCOMPARE(desk.rows(), QStringList{kBlank});
    }

    void aRegisterOfThousands() {
        const auto expected = test::summary(u"vessel_summary.csv"_qs);
        Desk desk(true);
        desk.store.execute("insert into Fishing_gear values (1, 'Not stated'), (2, 'Scallop dredge')");
        const QStringList sums = {QStringList{
            expected[u"distinct_names_ignoring_case"_qs], expected[u"names_with_apostrophe"_qs],
            expected[u"kept_out_board"_qs], expected[u"kept_in_board"_qs], expected[u"kept_scallop_dredge"_qs],
            expected[u"kept_sum_engine_power"_qs], expected[u"kept_sum_length"_qs], expected[u"kept_sum_size"_qs]}
                                      .join(u'|')};
        const QString file = QStringLiteral(KELVORA_TEST_FILES "/") + expected[u"file"_qs];
        for (const bool again : {false, true}) {
            desk.importFile(file);
            QCOMPARE(desk.rows().size(), 4'246);
            desk.save(u"Save"_qs, 4'246);
            QVERIFY(desk.says(again ? u"stored 0, already known 4,246, refused 0"_qs
                                    : u"stored 3,499, already known 747, refused 0"_qs));
            QCOMPARE(desk.store.rows("select count(*), sum(vesselname like '%''%'), sum(enginetype = 'Out Board'),"
                                     " sum(enginetype = 'In Board'), sum(gear = 2), round(sum(enginepower), 2),"
                                     " round(sum(vessellength), 2), round(sum(vesselsize), 2) from vessel"),
                     sums);
        }
    }
};

KELVORA_TEST(TestVesselImport, "vessel_import");

}  // namespace kelvora::test_vessel_import

#include "test_vessel_import.moc"
