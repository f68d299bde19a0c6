#pragma once

#include "controls/bound_list.h"
#include "operations/operation_entry_screen.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"

#include <QTest>

#include <memory>

namespace kelvora::test {

using namespace Qt::StringLiterals;

inline const QString kState = u"Landing State/Province"_s;
inline const QString kPort = u"Landing Port"_s;
inline const QString kRegisterId = u"Vessel Register id"_s;
inline const QString kVesselName = u"Vessel Name"_s;
inline const QString kConfirm = u"Confirm"_s;
inline const QString kVesselQuestion = u"Are you sure to insert this fishing vessel? "_s;

inline QString stateQuestion(const QString& name) {
    return u"Are you sure to insert state '"_s + name + u'\'';
}

inline QString portQuestion(const QString& name) {
    return u"Are you sure to insert sampling port '"_s + name + u'\'';
}

/// The entry screen on a file with a few reference rows.
struct Desk {
    Desk() {
        store.addReferenceRows();
        open();
    }
    void open() {
        screen.reset();
        screen = std::make_unique<OperationEntryScreen>(store.context());
        screen->show();
        QVERIFY(QTest::qWaitForWindowActive(screen.get()));
    }
    [[nodiscard]] ScreenDriver at() const { return ScreenDriver(screen.get()); }

    /// Everything that a sampler has to fill in, every text stored already.
    void fill() const {
        at().choose(kRegisterId, u"R-1"_s);
        at().choose(u"Fishing Gear"_s, u"Trawl"_s);
        at().choose(u"Fishing Method"_s, u"Pair"_s);
        at().choose(u"Fishing Area"_s, u"A2"_s);
        at().choose(kState, u"Alpha"_s);
        at().choose(kPort, u"Bex"_s);
        at().type(u"Total Catch (kg/trip)"_s, u"120.50"_s);
    }
    void save() const { at().press(u"SAVE"_s); }
    void saveWell() {
        store.dialogs.expectMessage(u"Insert Complete"_s);
        save();
    }
    QStringList storedPorts() { return store.rows("select portid from fishoperation order by optid"); }
    QString operationCount() { return store.rows("select count(*) as n from fishoperation").first(); }

    TemporaryStore store;
    std::unique_ptr<OperationEntryScreen> screen;
};

}  // namespace kelvora::test
