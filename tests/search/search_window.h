#pragma once

#include "controls/record_navigator.h"
#include "search/search_screen.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"

#include <QAbstractButton>

namespace kelvora::test {

/// The screen over three operations: 1 and 2 in state Alpha, 3 in state Beta.
struct SearchWindow {
    SearchWindow() {
        store.addReferenceRows();
        store.addOperation(1, 1, QStringLiteral("2004-03-09"), 1, 120.5, QStringLiteral("Sea Star"),
                           QStringLiteral("A1"));
        store.addOperation(2, 2, QStringLiteral("2004-04-01"), 3, 80, QStringLiteral("Blue Fin"), QStringLiteral("A2"));
        store.addOperation(3, 3, QStringLiteral("2004-05-01"), 2, 60, QStringLiteral("Sea Star"), QStringLiteral("A1"));
        screen = std::make_unique<SearchScreen>(store.context(), Connection::Patience::Short);
        driver = std::make_unique<ScreenDriver>(screen.get());
    }

    void find(const QString& criterion, const QString& value) const {
        driver->choose(QStringLiteral("Criterion"), criterion);
        driver->choose(QStringLiteral("Value"), value);
        driver->press(QStringLiteral("SEARCH"));
    }
    void findAlpha() const { find(QStringLiteral("State/Province"), QStringLiteral("Alpha")); }
    void move(const QString& button) const { driver->move(QStringLiteral("Result"), button); }

    [[nodiscard]] QString caption() const { return driver->navigator(QStringLiteral("Result"))->caption(); }
    [[nodiscard]] QString number() const { return driver->text(QStringLiteral("No.")); }
    [[nodiscard]] bool offersDelete() const {
        return driver->button(QStringLiteral("DELETE"))->isVisibleTo(screen.get());
    }

    TemporaryStore store;
    std::unique_ptr<SearchScreen> screen;
    std::unique_ptr<ScreenDriver> driver;
};

/// One sample of every kind.
inline void addSamples(TemporaryStore& store, int operation) {
    Connection& db = store.db();
    db.execute(Sql("insert into group_main values (1,") << operation << ",'Single species',30)");
    db.execute(Sql("insert into group_composition values (") << operation << ",1,1,30,30)");
    db.execute(Sql("insert into length values (") << operation << ",1,2.5)");
    db.execute(Sql("insert into length_detail values (") << operation << ",1,10,12,11,4)");
    db.execute(Sql("insert into gonad values (") << operation << ",1,0.4)");
    db.execute(Sql("insert into gonad_detail values (") << operation << ",1,1,100,90,95,85,200,'Male',2,10,5)");
}

}  // namespace kelvora::test
