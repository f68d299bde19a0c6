#pragma once

#include "controls/record_navigator.h"
#include "search/search_screen.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAbstractButton>
#include <QTest>

namespace kelvora::test {

using namespace Qt::StringLiterals;

/// The screen over three operations: 1 and 2 in state Alpha, 3 in state Beta. Operation 1 has samples of every kind:
/// two single species and a raised group; species 1 with two length classes and species 2 with a sample without any;
/// four measured fish of species 1, and a sample of species 3 without any.
struct SearchWindow {
    SearchWindow() {
        store.addReferenceRows();
        store.addOperation(1, 1, u"2004-03-09"_s, 1, 120.5, u"Sea Star"_s, u"A1"_s);
        store.addOperation(2, 2, u"2004-04-01"_s, 3, 80, u"Blue Fin"_s, u"A2"_s);
        store.addOperation(3, 3, u"2004-05-01"_s, 2, 60, u"Sea Star"_s, u"A1"_s);
        store.execute("insert into group_main values (1, 1, 'Single species', 40), (2, 1, 'Trash', 200)");
        store.execute("insert into group_composition values (1, 1, 1, 30, 30), (1, 2, 1, 10, 10), (1, 3, 2, 4, 60)");
        store.execute("update fish set classinterval = 2 where fishno in (1, 2)");
        store.execute("insert into length values (1, 1, 2.5), (1, 2, 1)");
        store.execute("insert into length_detail values (1, 1, 12, 14, 13, 7), (1, 1, 10, 12, 11, 3)");
        store.execute("insert into gonad values (1, 1, 0.4), (1, 3, 0.2)");
        store.execute(
            "insert into gonad_detail values (1, 1, 1, 210, 200, 205, 190, 200, 'Male', 2, 12, 6),"
            " (1, 1, 2, 210, 200, 205, 190, 200, 'Female', 3, 12, 6),"
            " (1, 1, 3, 210, 200, 205, 190, 200, 'None', 0, 12, null),"
            " (1, 1, 4, 210.5, 200, 205, 190, 300.125, 'Male', 2, 10, 3.33333333333333)");
        screen = std::make_unique<SearchScreen>(store.context());
        hand = std::make_unique<ScreenDriver>(screen.get());
    }
    /// Every planned box has come.
    ~SearchWindow() { QVERIFY(store.dialogs.done()); }

    void find(const QString& criterion, const QString& value) const {
        hand->choose(u"Criterion"_s, criterion);
        hand->choose(u"Value"_s, value);
        hand->press(u"SEARCH"_s);
    }
    /// Finds operation 1, and goes to a tab of its samples.
    void openTab(const QString& tab = u"Species Composition"_s) const {
        find(u"State/Province"_s, u"Alpha"_s);
        hand->openTab(tab);
    }
    void move(const QString& button) const { hand->move(u"Result"_s, button); }
    void deleteOperation(bool yes, const QString& problem = {}) {
        store.dialogs.expectConfirm(u"CONFIRM"_s, u"Are you sure to delete all data in this operation?"_s, yes);
        if (!problem.isEmpty()) {
            store.dialogs.expectMessageContaining(problem);
        }
        hand->press(u"DELETE"_s);
    }

    [[nodiscard]] QString caption(const QString& navigator = u"Result"_s) const {
        return hand->navigator(navigator)->caption();
    }
    [[nodiscard]] QString number() const { return hand->text(u"No."_s); }
    [[nodiscard]] bool shows(const QString& button) const { return hand->button(button)->isVisibleTo(screen.get()); }

    TemporaryStore store;
    std::unique_ptr<SearchScreen> screen;
    std::unique_ptr<ScreenDriver> hand;
};

}  // namespace kelvora::test
