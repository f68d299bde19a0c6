#pragma once

#include "controls/bound_list.h"
#include "operations/operation_entry_screen.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"

#include <QTest>

#include <memory>

namespace kelvora::test {

inline const QString kState = u"Landing State/Province"_qs;
inline const QString kPort = u"Landing Port"_qs;
inline const QString kRegisterId = u"Vessel Register id"_qs;
inline const QString kVesselName = u"Vessel Name"_qs;
inline const QString kConfirm = u"Confirm"_qs;
inline const QString kVesselQuestion = u"Are you sure to insert this fishing vessel? "_qs;

inline QString stateQuestion(const QString& name) {
    return u"Are you sure to insert state '"_qs + name + u'\'';
}

inline QString portQuestion(const QString& name) {
    return u"Are you sure to insert sampling port '"_qs + name + u'\'';
}

/// The entry screen on a file with a few reference rows.
struct Desk {
    Desk() {
        store.addReferenceRows();
        open();
    }
    void open() {
        screen.reset();
        screen = std::make_unique<OperationEntryScreen>(store.context(), Connection::Patience::Short);
        screen->show();
        QVERIFY(QTest::qWaitForWindowActive(screen.get()));
    }
    [[nodiscard]] ScreenDriver at() const { return ScreenDriver(screen.get()); }

    /// Everything that a sampler has to fill in, every text stored already.
    void fill() const {
        at().choose(kRegisterId, u"R-1"_qs);
        at().choose(u"Fishing Gear"_qs, u"Trawl"_qs);
        at().choose(u"Fishing Method"_qs, u"Pair"_qs);
        at().choose(u"Fishing Area"_qs, u"A2"_qs);
        at().choose(kState, u"Alpha"_qs);
        at().choose(kPort, u"Bex"_qs);
        at().type(u"Total Catch (kg/trip)"_qs, u"120.50"_qs);
    }
    void save() const { at().press(u"SAVE"_qs); }
    void saveWell() {
        store.dialogs.expectMessage(u"Insert Complete"_qs);
        save();
    }
    QStringList storedPorts() { return store.rows("select portid from fishoperation order by optid"); }
    QString operationCount() { return store.rows("select count(*) as n from fishoperation").first(); }

    TemporaryStore store;
    std::unique_ptr<OperationEntryScreen> screen;
};

}  // namespace kelvora::test
