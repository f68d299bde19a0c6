#include "reference_screen.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_species {

const QString kTab = u"Target Species"_qs;

void add(const test::ReferenceScreen& screen, const QStringList& texts) {
    const QStringList fields = {u"Family"_qs, u"Genus"_qs, u"Species"_qs, u"Common name"_qs};
    for (int i = 0; i < fields.size(); ++i) {
        screen.driver().type(fields[i], texts[i]);
    }
    screen.in(u"New species"_qs).press(u"Add"_qs);
}

QString typed(const test::ReferenceScreen& screen) {
    return screen.driver().text(u"Family"_qs) + screen.driver().text(u"Genus"_qs) +
           screen.driver().text(u"Species"_qs) + screen.driver().text(u"Common name"_qs);
}

class TestSpecies : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void adds_data() {
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<QString>("title");  // of the refusal
        QTest::addColumn<QString>("refusal");
        const QString needed = u"Please in put Family ,Genus And speices"_qs;
        const QString repeated = u"Species repeat please try again"_qs;
        QTest::newRow("new") << QStringList{u"Mullidae"_qs, u"Upeneus"_qs, u"moluccensis"_qs, u"Goldband goatfish"_qs}
                             << u""_qs << u""_qs;
        QTest::newRow("no common name") << QStringList{u"Mullidae"_qs, u"Upeneus"_qs, u"moluccensis"_qs, u""_qs}
                                        << u""_qs << u""_qs;
        QTest::newRow("other family") << QStringList{u"Mulloidae"_qs, u"Upeneus"_qs, u"vittatus"_qs, u""_qs} << u""_qs
                                      << u""_qs;
        QTest::newRow("hostile") << QStringList{u"O'Hara"_qs, u"d'Or"_qs, u"l'eau \\ %1"_qs, u"'; --"_qs} << u""_qs
                                 << u""_qs;
        QTest::newRow("no family") << QStringList{u""_qs, u"Upeneus"_qs, u"moluccensis"_qs, u""_qs} << u"Kelvora"_qs
                                   << needed;
        QTest::newRow("no genus") << QStringList{u"Mullidae"_qs, u""_qs, u"moluccensis"_qs, u""_qs} << u"Kelvora"_qs
                                  << needed;
        QTest::newRow("no species") << QStringList{u"Mullidae"_qs, u"Upeneus"_qs, u""_qs, u""_qs} << u"Kelvora"_qs
                                    << needed;
        QTest::newRow("known") << QStringList{u"Mullidae"_qs, u"upeneus"_qs, u"vittatus"_qs, u"x"_qs} << u"ERROR"_qs
                               << repeated;
    }
    void adds() {
        QFETCH(QStringList, texts);
        QFETCH(QString, title);
        QFETCH(QString, refusal);
        test::ReferenceScreen screen;
        screen.reopen(kTab);
        if (!refusal.isEmpty()) {
            screen.store.dialogs.expectMessage(title, refusal);
        }
        add(screen, texts);
        QVERIFY(screen.done());
        const QStringList rows = screen.driver().rows(kTab);
        QCOMPARE(rows.size(), refusal.isEmpty() ? 4 : 3);
        QCOMPARE(typed(screen), refusal.isEmpty() ? QString() : texts.join(QString()));
        if (refusal.isEmpty()) {
            QCOMPARE(rows.last(), u"4|"_qs + texts.join(u'|'));
            QCOMPARE(screen.store.rows("select classinterval from fish where fishno = 4"), QStringList{u"null"_qs});
        }
    }

    void theReservedRowIsNoSpecies() {
        test::ReferenceScreen screen(true);
        screen.store.execute("insert into fish(fishno, genus) values (0, 'none')");
        screen.reopen(kTab);
        QCOMPARE(screen.driver().rows(kTab), QStringList());
        QVERIFY(!screen.in(kTab).enabled(u"Delete"_qs));
        add(screen, {u"Mullidae"_qs, u"Upeneus"_qs, u"vittatus"_qs, u""_qs});
        QCOMPARE(screen.driver().rows(kTab), QStringList{u"1|Mullidae|Upeneus|vittatus|"_qs});
        QCOMPARE(screen.caption(kTab), u"Upeneus vittatus"_qs);
    }

    void keepsASpeciesThatASampleNames_data() {
        QTest::addColumn<QString>("table");
        for (const char* table : {"group_composition", "length", "gonad"}) {
            QTest::newRow(table) << table;
        }
    }
    void keepsASpeciesThatASampleNames() {
        QFETCH(QString, table);
        test::ReferenceScreen screen;
        screen.reopen(kTab);
        if (table == u"group_composition"_qs) {
            screen.store.execute("insert into group_composition values (1, 1, 1, 2, 2)");
        } else if (table == u"length"_qs) {
            screen.store.execute("insert into length values (1, 1, 2)");
        } else {
            screen.store.execute("insert into gonad values (1, 1, 2)");
        }
        screen.store.dialogs.expectMessage(u"can't delete this species because this species used another table!"_qs);
        screen.in(kTab).press(u"Delete"_qs);
        QVERIFY(screen.done());
        QCOMPARE(screen.store.rows("select count(*) from fish"), QStringList{u"3"_qs});
    }

    void deletesTheSpeciesItStandsOn() {
        test::ReferenceScreen screen;
        screen.reopen(kTab);
        screen.driver().move(kTab, u"Next"_qs);
        for (const bool yes : {false, true}) {
            QCOMPARE(screen.caption(kTab), u"Upeneus vittatus"_qs);
            screen.store.dialogs.expectConfirm(u"CONFIRM"_qs, u"Are you sure to delete this species"_qs, yes);
            screen.in(kTab).press(u"Delete"_qs);
        }
        QVERIFY(screen.done());
        QCOMPARE(screen.store.rows("select fishno from fish"), (QStringList{u"1"_qs, u"3"_qs}));
        QCOMPARE(screen.caption(kTab), u"Rastrelliger kanagurta"_qs);
    }
};

KELVORA_TEST(TestSpecies, "species");

}  // namespace kelvora::test_species

#include "test_species.moc"
