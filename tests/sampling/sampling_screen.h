#pragma once

#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "controls/record_navigator.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QFile>
#include <QTest>

namespace kelvora::test {

using namespace Qt::StringLiterals;

inline const QString kMackerel = u"Rastrelliger kanagurta"_s;
inline const QString kGoatfish = u"Upeneus vittatus"_s;
inline const QString kBream = u"Nemipterus virgatus"_s;

/// A screen for samples in front of a sampler, over the operations 1 and 2 (state Alpha). It stands on operation 1
/// unless none was saved last.
template <typename ScreenClass>
struct SamplingScreen {
    SamplingScreen(const QString& samplesTab, int lastSaved) : tab(samplesTab) {
        store.addReferenceRows();
        store.addOperation(1, 1, u"2004-03-09"_s, 1, 120, u"Sea Star"_s, u"A1"_s);
        store.addOperation(2, 2, u"2004-04-01"_s, 3, 80, u"Blue Fin"_s, u"A2"_s);
        store.session.lastSavedOperation = lastSaved;
        open();
    }
    /// Every planned box has come.
    ~SamplingScreen() { QVERIFY(store.dialogs.done()); }

    void open() {
        screen = std::make_unique<ScreenClass>(store.context());
        screen->resize(1340, 590);
        hand = std::make_unique<ScreenDriver>(screen.get());
        hand->openTab(tab);
        screen->show();
        screen->activateWindow();
        (void)QTest::qWaitForWindowActive(screen.get());
    }
    /// Mackerel and goatfish lie in the catch of operation 1, only the mackerel in that of 2.
    void addCatch() {
        store.execute("insert into group_main values (1, 1, 'Single species', 30), (1, 2, 'Single species', 10)");
        store.execute("insert into group_composition values (1, 1, 1, 10, 10), (1, 2, 1, 20, 20), (2, 1, 1, 10, 10)");
        open();
    }
    /// A file that holds these bytes.
    [[nodiscard]] QString written(const QByteArray& bytes) const {
        QFile file(store.file(u"import.csv"_s));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("the file cannot be written");
        }
        return file.fileName();
    }
    void findOperations() const {
        hand->choose(u"Criterion"_s, u"State/Province"_s);
        hand->choose(u"Value"_s, u"Alpha"_s);
        hand->press(u"Search"_s);
    }

    QString tab;
    TemporaryStore store;
    std::unique_ptr<ScreenClass> screen;
    std::unique_ptr<ScreenDriver> hand;
};

}  // namespace kelvora::test
