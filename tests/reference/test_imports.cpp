#include "controls/bound_list.h"
#include "import_desk.h"
#include "records/species_import.h"
#include "records/vessel_import.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace kelvora::test_imports {

using test::ScriptedDialogs;

const QByteArray kSpeciesHeader = "Family,Genus,Species,Common name\n";
const QByteArray kHeader =
    "vessel name,vessel register id,engine type,engine power,length(m),state/province,size(GRT),type of gear,"
    "net length(m),net width(m),mesh size(cm)\n";
const QByteArray kWhole = "Osprey,007,In Board,080,7.50,Alpha,2,Trawl,1,02,3\n";
const QString kBlank = QString(10, u'|');

/// A record with these three numbers.
QByteArray vessel(const char* name, const char* power = "1", const char* length = "2", const char* size = "3",
                  const char* gear = "Trawl") {
    return QByteArray(name) + ",R,In Board," + power + "," + length + ",Alpha," + size + "," + gear + ",1,2,3\n";
}

/// What is said about a file once it is chosen.
auto saying(const QString& title, const QString& text) {
    return [=](ScriptedDialogs& dialogs) { dialogs.expectMessage(title, text); };
}

void expectGear(ScriptedDialogs& dialogs, const std::optional<QString>& answer) {
    dialogs.expectInput(u"New Fishing Gear"_s, u"You have to insert new fishing gear"_s, answer);
}

struct SpeciesDesk : test::ImportDesk {
    explicit SpeciesDesk(bool empty = false)
        : ImportDesk(u"Target Species"_s, u"IMPORT"_s, u"Species import"_s, empty) {}
};

struct VesselDesk : test::ImportDesk {
    explicit VesselDesk(bool empty = false)
        : ImportDesk(u"Fishing Vessel"_s, u"Vessel import"_s, u"Vessel import"_s, empty) {}
    /// The vessels behind the two that are always there.
    QStringList stored() {
        return store.rows("select vesselname, enginepower, vessellength, vesselsize, gear from vessel").mid(2);
    }
};

class TestImports : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void headers() {
        struct Case {
            const ImportLayout& layout;
            QList<int> wrong;  // columns with another name
            bool fits;
        };
        // Of the first four columns one name has to be right, of the next three one, and those of the last four.
        for (const auto& [layout, wrong, fits] : {Case{vesselLayout(), {}, true},
                                                  {vesselLayout(), {1, 2, 3}, true},
                                                  {vesselLayout(), {0, 1, 2, 5, 6}, true},
                                                  {vesselLayout(), {0, 1, 2, 3}, false},
                                                  {vesselLayout(), {4, 5, 6}, false},
                                                  {vesselLayout(), {7}, false},
                                                  {vesselLayout(), {8}, false},
                                                  {vesselLayout(), {9}, false},
                                                  {vesselLayout(), {10}, false},
                                                  {speciesLayout(), {0, 1, 2}, true},
                                                  {speciesLayout(), {0, 1, 2, 3}, false}}) {
            QStringList fields;
            for (const ImportColumn& column : layout.columns) {
                fields.append(column.header);
            }
            for (const int column : wrong) {
                fields[column] = fields[column].toUpper();  // letter case counts
            }
            QCOMPARE(!headerFault(layout, {1, fields}), fits);
            QVERIFY(headerFault(layout, {1, fields + QStringList{QString()}}));
            QVERIFY(headerFault(layout, {1, fields.first(fields.size() - 1)}));
        }
    }

    /// Whatever the answer is, the second and third vessel with the unknown name are not asked about, and a gear that
    /// is stored is shown as the file writes it.
    void gears() {
        struct Case {
            QString answer;  // "as proposed" takes the proposed name
            bool yes;
            QString gear;  // of the vessels with the unknown name
            QStringList log;
        };
        const QString longline = u"Longline"_s, trap = u"Trap"_s;
        for (const auto& [answer, yes, gear, log] :
             {Case{u"as proposed"_s, true, longline, {u"confirm Longline"_s, u"add Longline"_s}},
              {trap, true, trap, {u"confirm Trap"_s, u"add Trap"_s}},
              {u"as proposed"_s, false, u""_s, {u"confirm Longline"_s}},
              {u"  "_s, true, u""_s, {}},
              {u"GILL NET"_s, true, u"Gill net"_s, {}}}) {
            QStringList asked;
            test::TemporaryStore store;
            store.execute("insert into Fishing_gear values (1, 'Trawl'), (2, 'Gill net')");
            const auto ask = [&, text = answer](const QString& proposed) {
                asked.append(u"ask "_s + proposed);
                return text == u"as proposed" ? proposed : text;
            };
            const auto confirm = [&, agrees = yes](const QString& name) {
                asked.append(u"confirm "_s + name);
                return agrees;
            };
            const auto added = [&] { asked.append(u"add "_s + store.rows("select guname from Fishing_gear").last()); };
            std::vector<CsvRecord> vessels;
            for (const QString& name : {u"trawl"_s, longline, u"Trawl"_s, u"LONGLINE"_s, longline}) {
                vessels.push_back({1, QStringList(vesselLayout().width())});
                vessels.back().fields[kGearColumn] = name;
            }
            settleGears(store.db(), vessels, {ask, confirm, added});
            QStringList settled;
            for (const CsvRecord& record : vessels) {
                settled.append(record.fields[kGearColumn]);
            }
            const QString second = gear == longline ? u"LONGLINE"_s : gear;
            QCOMPARE(settled, (QStringList{u"trawl"_s, gear, u"Trawl"_s, second, gear}));
            QCOMPARE(asked, QStringList{u"ask Longline"_s} + log);
        }
    }

    void refusalsNameTenRowsInShort() {
        std::vector<RefusedRecord> refused;
        for (int line = 2; line <= 1'013; ++line) {
            refused.push_back({{line, {u"Sea\nStar"_s.repeated(500)}}, {u"Engine power"_s, u"Size(GRT)"_s}});
        }
        const QStringList lines = refusalText(refused).split(u'\n');
        QCOMPARE(lines.first().section(u": "_s, 1), u"1,012. These rows stay in the preview."_s);
        QCOMPARE(lines.size(), 2 + 10 + 1);
        QVERIFY(lines[2].startsWith(u"line 2, Sea StarSea Star"_s));
        QVERIFY(lines[2].endsWith(u"…: Engine power, Size(GRT)"_s));
        QVERIFY(lines[2].size() < 90);
        QVERIFY(lines[11].startsWith(u"line 11, "_s));
        QCOMPARE(lines[12], u"and 1,002 more"_s);
        refused.resize(10);
        QVERIFY(!refusalText(refused).contains(u"more"_s));
    }

    void newSpecies() {
        SpeciesDesk desk;
        desk.importBytes(kSpeciesHeader +
                         "Mullidae,UPENEUS,vittatus,x\nMullidae,Upeneus,sulphureus,\"O'Hara, \"\"gold\"\"\"\n"
                         ",Upeneus,tragula,\nMullidae,upeneus,sulphureus,again\nScaridae,Scarus,ghobban,\n");
        auto* grid = desk.hand().grid(desk.preview);
        QCOMPARE(grid->headers().join(u'|'), u"Family|Genus|Species|Common name"_s);
        grid->setCurrentRow(2);
        desk.press(u"DELETE"_s);  // a row without a family stays
        QCOMPARE(grid->rowCount(), 5);
        grid->setCurrentRow(4);
        desk.press(u"DELETE"_s);
        QCOMPARE(grid->currentRow(), 3);
        desk.save(u"SAVE"_s, 4, false);
        desk.save(u"SAVE"_s, 4);
        QVERIFY(desk.says(u"stored 2, already known 2, refused 0"_s));
        QCOMPARE(desk.rows(u"Target Species"_s).mid(3),
                 (QStringList{u"4|Mullidae|Upeneus|sulphureus|O'Hara, \"gold\""_s, u"5||Upeneus|tragula|"_s}));
        QCOMPARE(desk.previewed(), QStringList{u"|||"_s});
        QCOMPARE(desk.path(), QString());
        QVERIFY(!desk.enabled(u"SAVE"_s) && !desk.enabled(u"DELETE"_s));
    }

    void otherSpeciesFiles() {
        SpeciesDesk desk;
        desk.importBytes("family;genus;species;name\na;b;c;d\n", saying(u"ERROR"_s, u"Error File Format"_s));
        desk.importBytes("1,2,3,Common name\na,b,c,d\na,b,c\n",
                         saying(u"ERROR"_s, u"Line 3 does not hold 4 fields, but 3. Nothing was loaded."_s));
        for (const QString& button : {u"SAVE"_s, u"DELETE"_s, u"CLEAR"_s}) {
            QVERIFY2(!desk.enabled(button), qPrintable(button));
        }
    }

    /// Seen in the picture: no style of the desktop may paint its own selection over the row.
    void marksTheRowItStandsOn() {
        SpeciesDesk desk;
        desk.importBytes(kSpeciesHeader + "a,b,c,d\ne,f,g,h\ni,j,k,l\n");
        auto* grid = desk.hand().grid(desk.preview);
        desk.screen->resize(1340, 590);
        desk.screen->show();
        grid->setCurrentRow(1);
        const QImage image = grid->viewport()->grab().toImage();
        const auto colours = [&](int row) {
            QSet<QRgb> seen;
            const QRect cell = grid->visualRect(grid->model()->index(row, 3));
            for (int x = cell.left() + 1; x < cell.right(); ++x) {
                for (int y = cell.top() + 2; y < cell.bottom() - 1; ++y) {
                    seen.insert(image.pixel(x, y));
                }
            }
            return seen;
        };
        const QRgb grey = qRgb(192, 192, 192);
        QVERIFY(colours(1).contains(grey));
        QVERIFY(!colours(1).contains(grid->palette().color(QPalette::Highlight).rgb()));
        QVERIFY(!colours(0).contains(grey) && !colours(2).contains(grey));
        // Left rows keep their blue text, others have the usual one.
        const auto text = [&](int row) { return grid->model()->index(row, 0).data(Qt::ForegroundRole).isValid(); };
        QVERIFY(text(0) && text(1) && !text(2));
    }

    void vesselFiles() {
        const QString osprey = u"Osprey|007|In Board|080|7.50|Alpha|2|Trawl|1|02|3"_s;
        const QString hara = u"O'Hara, \"Sea\"|R\n1|Out Board|1|2|Älpha|3|Gill net|||"_s;
        const QByteArray quoted = "\"O'Hara, \"\"Sea\"\"\",\"R\n1\",Out Board,1,2,\xC4lpha,3,\"Gill net\",,,\r\n";
        for (const auto& [bytes, rows] : {std::pair{kHeader + quoted + kWhole + "\n\n", QStringList{hara, osprey}},
                                          {kHeader, QStringList{kBlank}}}) {
            VesselDesk desk;
            QCOMPARE(desk.previewed(), QStringList{kBlank});
            QVERIFY(!desk.enabled(u"Save"_s));
            desk.importBytes(bytes);
            QCOMPARE(desk.previewed(), rows);
            QCOMPARE(desk.path(), desk.store.file(u"import.csv"_s));
            QVERIFY(desk.hand().edit(u"Vessel file"_s)->isReadOnly());
            QCOMPARE(desk.enabled(u"Save"_s), rows.size() > 1);
            desk.press(u"Clear"_s);
            QCOMPARE(desk.previewed(), QStringList{kBlank});
            QCOMPARE(desk.path(), QString());
            QVERIFY(!desk.enabled(u"Save"_s) && !desk.enabled(u"Delete"_s));
        }
    }

    void refusedVesselFiles_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("message");
        const QString csv = u"a.csv"_s, error = u"ERROR"_s, title = u"Kelvora"_s;
        const QString format = u"Error File Format"_s;
        const QString ending = u"Error file type .csv only try again"_s;
        const QString uneven = u"Line %1 does not hold 11 fields, but %2. Nothing was loaded."_s;
        const QByteArray binary("\x89PNG\r\n\x1A\n\0\0,\xFF,\xFE\0", 16);
        QTest::newRow("upper-case ending") << u"a.CSV"_s << kHeader + kWhole << title << ending;
        QTest::newRow("no ending") << u"csv"_s << kHeader + kWhole << title << ending;
        QTest::newRow("binary") << csv << binary << error << format;
        QTest::newRow("short header") << csv << QByteArray("vessel name\n") << error << format;
        for (const char* nothing : {"", "\xEF\xBB\xBF", "\n\n"}) {
            QTest::newRow("nothing") << csv << QByteArray(nothing) << title << u"No data in this file"_s;
        }
        // The gear of the first vessel is unknown: nothing is asked about a file that is refused in the end.
        const QByteArray unknown = vessel("A", "1", "2", "3", "Kite");
        QTest::newRow("short record") << csv << kHeader + unknown + "B,R\n" + kWhole << error << uneven.arg(3).arg(2);
        QTest::newRow("long record behind a field of two lines")
            << csv << kHeader + "\"A\nB\"" + unknown.sliced(1) + vessel("C") + kWhole.trimmed() + ",4\n"
            << error << uneven.arg(5).arg(12);
        QTest::newRow("open quote") << csv << kHeader + unknown.trimmed() + ",\"\n" + kWhole << error << format;
    }
    void refusedVesselFiles() {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, title);
        QFETCH(QString, message);
        VesselDesk desk;
        desk.importBytes(kHeader + kWhole);
        const QStringList before = desk.previewed();
        desk.importBytes(bytes, saying(title, message), name);
        QCOMPARE(desk.previewed(), before);
        QCOMPARE(desk.path(), QString());
        desk.importFile(std::nullopt);
        desk.store.dialogs.expectOpenFile(desk.store.file(u"missing.csv"_s));
        desk.store.dialogs.expectMessageContaining(u"The file cannot be read"_s);
        desk.press(u"Import"_s);
        QCOMPARE(desk.path(), QString());
        desk.importBytes(kHeader + kWhole + kWhole);
        QCOMPARE(desk.previewed().size(), 2);
    }

    void newGearsAreStoredAtOnce() {
        VesselDesk desk;
        desk.store.execute("update Fishing_gear set gearid = 3 where gearid = 2");  // the number of gears + 1 is taken
        const QByteArray kyte = vessel("A", "1", "2", "3", "kyte"), kite = vessel("C", "1", "2", "3", "kite'");
        desk.importBytes(kHeader + kyte + vessel("B", "1", "2", "3", "") + kite, [](ScriptedDialogs& dialogs) {
            expectGear(dialogs, u"Kite'"_s);
            dialogs.expectConfirm(u"Kelvora"_s, u"Are you sure to insert 'Kite''? "_s, true);
            dialogs.expectMessage(u"Insert Complete!"_s);
            expectGear(dialogs, std::nullopt);
        });
        desk.hand().choose(u"Type of Gear"_s, u"Kite'"_s);
        QCOMPARE(desk.hand().list(u"Fishing gear"_s)->count(), 3);
        desk.press(u"Clear"_s);
        QCOMPARE(desk.store.rows("select * from Fishing_gear order by gearid").last(), u"4|Kite'"_s);

        desk.importBytes(kHeader + kyte + kite, [](ScriptedDialogs& dialogs) { expectGear(dialogs, u"trawl"_s); });
        desk.save(u"Save"_s, 2);
        QCOMPARE(desk.stored(), (QStringList{u"A|1|2|3|1"_s, u"C|1|2|3|4"_s}));
    }

    void savesWhatIsNewAndWhole() {
        VesselDesk desk;
        desk.importBytes(kHeader + vessel("sea star") + vessel("O'Hara", " 1e1 ", "-2", "0.5") + vessel("Bad", "") +
                             vessel("Taken out") + vessel("Worse", "1", "2 m", "\"1,5\"") + vessel("O'HARA", "7") +
                             vessel("No gear", "1", "2", "3", "") + vessel("Bad", "4"),
                         [](ScriptedDialogs& dialogs) { expectGear(dialogs, u""_s); });
        desk.hand().grid(desk.preview)->setCurrentRow(3);
        desk.press(u"Delete"_s);
        desk.save(u"Save"_s, 7, false);
        QCOMPARE(desk.stored(), QStringList());
        desk.expectSave(7);
        desk.store.dialogs.expectMessage(
            u"ERROR"_s,
            u"Not stored, since a number is missing or not numeric: 2. These rows stay in the"
            " preview.\n\nline 4, Bad: Engine power\nline 6, Worse: Vessel length, Size(GRT)"_s);
        desk.press(u"Save"_s);
        QCOMPARE(desk.stored(), (QStringList{u"O'Hara|10|-2|0.5|1"_s, u"No gear|1|2|3|0"_s, u"Bad|4|2|3|1"_s}));
        QVERIFY(desk.says(u"stored 3, already known 2 (0 the same vessel, 2 another boat of that name), refused 2"_s));
        QCOMPARE(desk.previewed().size(), 2);
        QCOMPARE(desk.previewed().first().section(u'|', 0, 3), u"Bad|R|In Board|"_s);
        // The vessel without a gear is not listed.
        QCOMPARE(desk.rows(u"FISHING VESSEL"_s).size(), 4);
        desk.press(u"Delete"_s);
        desk.press(u"Delete"_s);
        QCOMPARE(desk.previewed().size(), 1);
        QVERIFY(desk.enabled(u"Save"_s));
    }

    void aSaveThatFailsStoresNothing() {
        VesselDesk desk;
        desk.importBytes(kHeader + vessel("A") + vessel("B"));
        desk.store.execute(
            "create trigger full before insert on vessel when new.vesselname = 'B'"
            " begin select raise(abort, 'disk'); end");
        desk.expectSave(2);
        desk.store.dialogs.expectMessageContaining(u"Nothing was stored"_s);
        desk.press(u"Save"_s);
        QCOMPARE(desk.stored(), QStringList());
        QCOMPARE(desk.previewed().size(), 2);
        desk.store.execute("drop trigger full");
        desk.save(u"Save"_s, 2);
        QCOMPARE(desk.stored().size(), 2);
        QCOMPARE(desk.previewed(), QStringList{kBlank});
    }

    void aCatalogueOfTheWorld() {
        SpeciesDesk desk(true);
        for (const QString& outcome :
             {u"stored 261, already known 0, refused 0"_s, u"stored 0, already known 261, refused 0"_s}) {
            desk.importFile(u"" KELVORA_TEST_FILES "/species_import_world_fishes.csv"_s);
            desk.save(u"SAVE"_s, 261);
            QVERIFY(desk.says(outcome));
            QCOMPARE(desk.store.rows("select count(*), max(fishno), count(distinct family), count(distinct genus),"
                                     " sum(common_name like '%''%'), sum(common_name = ''), max(length(common_name))"
                                     " from fish"),
                     QStringList{test::expectedOf(u"species_summary.csv"_s,
                                                  u"rows,distinct_ignoring_case,families,genera,"
                                                  "common_names_with_apostrophe,blank_common_names,"
                                                  "longest_common_name"_s)});
        }
    }

    void aRegisterOfThousands() {
        VesselDesk desk(true);
        desk.store.execute("insert into Fishing_gear values (1, 'Not stated'), (2, 'Scallop dredge')");
        for (const QString& outcome :
             {u"stored 3,499, already known 747 (19 the same vessel, 728 another boat of that name), refused 0"_s,
              u"stored 0, already known 4,246 (3,518 the same vessel, 728 another boat of that name), refused 0"_s}) {
            desk.importFile(u"" KELVORA_TEST_FILES "/vessel_import_uk_10m_and_under.csv"_s);
            QCOMPARE(desk.previewed().size(), 4'246);
            desk.save(u"Save"_s, 4'246);
            QVERIFY(desk.says(outcome));
            QCOMPARE(desk.store.rows("select count(*), sum(vesselname like '%''%'), sum(enginetype = 'Out Board'),"
                                     " sum(enginetype = 'In Board'), sum(gear = 2), round(sum(enginepower), 2),"
                                     " round(sum(vessellength), 2), round(sum(vesselsize), 2) from vessel"),
                     QStringList{test::expectedOf(u"vessel_summary.csv"_s,
                                                  u"distinct_names_ignoring_case,names_with_apostrophe,kept_out_board,"
                                                  "kept_in_board,kept_scallop_dredge,kept_sum_engine_power,"
                                                  "kept_sum_length,kept_sum_size"_s)});
        }
    }
};

KELVORA_TEST(TestImports, "imports");

}  // namespace kelvora::test_imports

#include "test_imports.moc"
