#include "import_desk.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_species_import {

const QByteArray kHeader = "Family,Genus,Species,Common name\n";

struct Desk : test::ImportDesk {
    explicit Desk(bool empty = false) : ImportDesk(u"IMPORT"_qs, u"Species import"_qs, empty) {
        driver().openTab(u"Target Species"_qs);
    }
};

class TestSpeciesImport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void savesWhatIsNew() {
        Desk desk;
        for (const auto* button : {u"SAVE", u"DELETE", u"CLEAR"}) {
            QVERIFY(!desk.enabled(QString::fromUtf16(button)));
        }
        desk.importBytes(kHeader +
                         "Mullidae,UPENEUS,vittatus,x\nMullidae,Upeneus,sulphureus,\"O'Hara, \"\"gold\"\"\"\n"
                         ",Upeneus,tragula,\nMullidae,upeneus,sulphureus,again\nScaridae,Scarus,ghobban,\n");
        const auto* grid = desk.driver().grid(desk.preview);
        QCOMPARE(grid->headers(), (QStringList{u"Family"_qs, u"Genus"_qs, u"Species"_qs, u"Common name"_qs}));
        desk.driver().grid(desk.preview)->setCurrentRow(2);
        desk.press(u"DELETE"_qs);  // a row without a family stays
        QCOMPARE(grid->rowCount(), 5);
        desk.driver().grid(desk.preview)->setCurrentRow(4);
        desk.press(u"DELETE"_qs);
        QCOMPARE(grid->currentRow(), 3);
        desk.save(u"SAVE"_qs, 4, false);
        desk.save(u"SAVE"_qs, 4);
        QVERIFY(desk.done());
        QVERIFY(desk.says(u"stored 2, already known 2, refused 0"_qs));
        QCOMPARE(desk.driver().rows(u"Target Species"_qs).mid(3),
                 (QStringList{u"4|Mullidae|Upeneus|sulphureus|O'Hara, \"gold\""_qs, u"5||Upeneus|tragula|"_qs}));
        QCOMPARE(desk.rows(), QStringList{u"|||"_qs});
        QCOMPARE(desk.path(), QString());
        QVERIFY(!desk.enabled(u"SAVE"_qs) && !desk.enabled(u"DELETE"_qs));
    }

    void refusesOtherFiles() {
        Desk desk;
        desk.importBytes("family;genus;species;name\na;b;c;d\n",
                         [](auto& dialogs) { dialogs.expectMessage(u"ERROR"_qs, u"Error File Format"_qs); });
        desk.importBytes("1,2,3,Common name\na,b,c,d\na,b,c\n", [](auto& dialogs) {
            dialogs.expectMessage(u"ERROR"_qs, u"Line 3 does not hold 4 fields, but 3. Nothing was loaded."_qs);
        });
        QVERIFY(desk.done());
        QVERIFY(!desk.enabled(u"SAVE"_qs) && !desk.enabled(u"CLEAR"_qs));
    }

    /// Seen in the picture: no style of the desktop may paint its own selection over the row.
    void marksTheRowItStandsOn() {
        Desk desk;
        desk.importBytes(kHeader + "a,b,c,d\ne,f,g,h\ni,j,k,l\n");
        auto* grid = desk.driver().grid(desk.preview);
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

    void aCatalogueOfTheWorld() {
        const auto expected = test::summary(u"species_summary.csv"_qs);
        Desk desk(true);
        const QStringList sums = {QStringList{expected[u"rows"_qs], expected[u"distinct_ignoring_case"_qs],
                                              expected[u"families"_qs], expected[u"genera"_qs],
                                              expected[u"common_names_with_apostrophe"_qs],
                                              expected[u"blank_common_names"_qs], expected[u"longest_common_name"_qs]}
                                      .join(u'|')};
        const QString file = QStringLiteral(KELVORA_TEST_FILES "/") + expected[u"file"_qs];
        for (const bool again : {false, true}) {
            desk.importFile(file);
            desk.save(u"SAVE"_qs, 261);
            QVERIFY(desk.says(again ? u"stored 0, already known 261, refused 0"_qs
                                    : u"stored 261, already known 0, refused 0"_qs));
            QCOMPARE(desk.store.rows("select count(*), max(fishno), count(distinct family), count(distinct genus),"
                                     " sum(common_name like '%''%'), sum(common_name = ''), max(length(common_name))"
                                     " from fish"),
                     sums);
        }
    }
};

KELVORA_TEST(TestSpeciesImport, "species_import");

}  // namespace kelvora::test_species_import

#include "test_species_import.moc"
