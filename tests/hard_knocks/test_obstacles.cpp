#include "actions.h"
#include "length_of_run.h"
#include "reports/catch_summary_screen.h"
#include "reports/report_chart.h"
#include "support/full_disk.h"
#include "support/read_only_folder.h"
#include "support/test_main.h"
#include "system_calls.h"

#include <QFile>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_obstacles {

using test::Desk;

/// What stands on a screen: every text, choice and row.
QStringList shownOn(const QWidget& screen) {
    QStringList all;
    for (const QWidget* widget : screen.findChildren<QWidget*>()) {
        if (const auto* note = qobject_cast<const QPlainTextEdit*>(widget)) {
            all.append(note->toPlainText());
        } else if (const auto* table = qobject_cast<const QTableView*>(widget); table && table->model()) {
            for (int row = 0; row < table->model()->rowCount(); ++row) {
                all.append(table->model()->index(row, 0).data().toString());
            }
        } else {
            all.append(widget->property("text").toString() + widget->property("currentText").toString());
            all.append(widget->inherits("QAbstractButton") && widget->isEnabled() ? u"on"_s : u"off"_s);
        }
    }
    return all;
}

/// Something that keeps an action from being stored, as long as what put() gives lives.
struct Obstacle {
    const char* reason;  ///< what the message says of it
    std::function<std::shared_ptr<void>(Desk&)> put;
    std::function<bool()> met = [] { return true; };  ///< whether the action came to it at all
};

/// Runs a function when it goes.
std::shared_ptr<void> whenGone(const std::function<void()>& end) {
    return {nullptr, [end](void*) { end(); }};
}

Obstacle lock(Literal begin) {
    return {"another program is using the data file", [begin](Desk& desk) {
                desk.store.db().execute(Sql(begin));
                return whenGone([&desk] { desk.store.execute("rollback"); });
            }};
}

/// The disk is full from the n-th write on. Says in reached whether it came to that.
Obstacle fullDisk(int fromWrite, bool& reached) {
    const auto put = [fromWrite, &reached](Desk&) {
        reached = false;
        test::interceptWrites([left = fromWrite, &reached](int, const void*, std::size_t size, off_t) mutable {
            reached = reached || --left == 0;
            return reached ? 0 : size;
        });
        return whenGone(&test::leaveSystemCallsAlone);
    };
    return {"the disk is full", put, [&reached] { return reached; }};
}

/// A journal cannot be made where the folder may not be written to.
Obstacle readOnlyFolder() {
    return {"the data file or its folder may not be written to",
            [](Desk& desk) { return std::make_shared<test::ReadOnlyFolder>(desk.store.file({})); }};
}

/// Every save, delete and import meets every obstacle: it says what was not done and why, changes nothing in the file
/// and on the screen, and works again once the obstacle is gone.
class TestObstacles : public QObject {
    Q_OBJECT

    /// The file, and what was said, after an action that nothing hindered.
    struct Unhindered {
        QStringList stored, said;
    };

    int m_waits = 0;  ///< of the last action

    void meet(const test::Action& action, const Obstacle& obstacle, const Unhindered& unhindered) {
        Desk desk(action);
        const QStringList stored = desk.stored();
        const QStringList shown = shownOn(*desk.screen);
        {
            const auto put = obstacle.put(desk);
            desk.act();
            m_waits = desk.dialogs.waits;
        }
        if (!obstacle.met()) {
            return;
        }
        const QString said = desk.dialogs.said.join(u'\n');
        QVERIFY2(said.contains(QLatin1String(obstacle.reason)), qPrintable(said));
        QVERIFY2(!said.contains(u"passwd"), qPrintable(said));
        if (!action.inSteps) {
            QCOMPARE(desk.stored(), stored);
            QCOMPARE(shownOn(*desk.screen), shown);
        }
        desk.act();
        QCOMPARE(desk.stored(), unhindered.stored);
        if (!action.inSteps) {
            QCOMPARE(desk.dialogs.said, unhindered.said);
        }
    }

private Q_SLOTS:
    void initTestCase() { test::waitedForLocks(); }

    void meets_data() {
        QTest::addColumn<test::Action>("action");
        for (const test::Action& action : test::actions()) {
            QTest::newRow(action.name) << action;
        }
    }
    void meets() {
        QFETCH(test::Action, action);
        Desk desk(action);
        const QStringList before = desk.stored();
        desk.act();
        const Unhindered unhindered{desk.stored(), desk.dialogs.said};
        QVERIFY2(unhindered.stored != before, qPrintable(unhindered.said.join(u'\n')));
        for (const Literal& begin : {Literal("begin immediate"), Literal("begin exclusive")}) {
            test::waitedForLocks();
            meet(action, lock(begin), unhindered);
            constexpr long long second = 1'000'000;
            QVERIFY(m_waits > 0 || test::waitedForLocks() >= second);
        }
        meet(action, readOnlyFolder(), unhindered);

        bool reached = true;
        int writes = 0;
        while (reached && writes < test::times(QLatin1String(action.name) == u"a single species" ? 1'000 : 2, 1'000)) {
            meet(action, fullDisk(++writes, reached), unhindered);
        }
        qInfo("the disk was full at %d different writes", reached ? writes : writes - 1);
    }

    /// A save whose last step reports an error is stored or not, and the screen says which.
    void uncertainCommits_data() {
        QTest::addColumn<std::function<void()>>("fault");
        QTest::addColumn<QString>("said");
        const auto kept = [](int times) {
            return [times] { test::interceptRemovals([left = times]() mutable { return left-- > 0 ? EIO : 0; }); };
        };
        const auto row = [](const char* name, const std::function<void()>& fault, const QString& said) {
            QTest::newRow(name) << fault << said;
        };
        row("the folder is not brought to the disk", &test::failFolderSyncs, u"Insert Complete"_s);
        row("the journal is not removed", kept(1), u"Nothing was stored or deleted: the disk reported an error."_s);
        row("the journal is never removed", kept(1'000),
            u"It is not known whether this was stored or deleted: the disk reported an error. Please look it up "
            "before you do it again."_s);
        row(
            "the quota is used up",
            [] { test::interceptWrites([](int, const void*, std::size_t, off_t) { return 0; }, EDQUOT); },
            u"Nothing was stored or deleted: your share of the disk is used up."_s);
    }
    void uncertainCommits() {
        QFETCH(std::function<void()>, fault);
        QFETCH(QString, said);
        Desk desk(test::action("an operation"));
        const QStringList before = desk.stored();
        fault();
        desk.act();
        test::leaveSystemCallsAlone();
        QCOMPARE(desk.dialogs.said, QStringList{u"Kelvora: "_s + said});
        const auto stored = [&] { return desk.stored().size() - before.size(); };
        QCOMPARE(stored(), said == u"Insert Complete" ? 1 : 0);
        // The screen goes on working: another save is stored, and a sample goes to the operation.
        if (stored() == 0) {
            desk.act();
        }
        QCOMPARE(desk.dialogs.said.last(), u"Kelvora: Insert Complete"_s);
        QCOMPARE(stored(), 1);
    }

    void exports_data() {
        QTest::addColumn<QString>("file");
        for (const char* file : {"catch.csv", "catch.png", "catch.svg"}) {
            QTest::newRow(file) << QString::fromLatin1(file);
        }
    }
    void exports() {
        QFETCH(QString, file);
        test::TemporaryStore store;
        store.addSmallYear();
        test::RecordingDialogs dialogs;
        CatchSummaryScreen screen({store.path(), store.session, dialogs});
        screen.show();
        const test::ScreenDriver hand(&screen);
        hand.enter(u"Year = 2004; Search"_s);
        dialogs.path = store.file(file);
        const auto write = [&] {
            file.endsWith(u"csv") ? hand.press(u"EXPORT"_s)
                                  : screen.findChild<ReportChart*>()->actions().at(1)->trigger();
            return std::exchange(dialogs.said, {}).join(u'\n');
        };
        const auto written = [&] {
            QFile result(*dialogs.path);
            return result.open(QIODevice::ReadOnly) ? result.readAll() : QByteArray();
        };
        QCOMPARE(write(), QString());
        const QByteArray whole = written();
        QVERIFY(!whole.isEmpty());
        {
            const test::FullDisk full(static_cast<rlim_t>(whole.size() / 2));
            QVERIFY(write().contains(*dialogs.path));
            QCOMPARE(written(), whole);
        }
        {
            const test::ReadOnlyFolder folder(store.file({}));
            QVERIFY(write().contains(*dialogs.path));
        }
        QCOMPARE(written(), whole);
        QVERIFY(QFile::remove(*dialogs.path));
        QCOMPARE(write(), QString());
        QCOMPARE(written(), whole);
        // Nothing that is exported takes the place of the data themselves.
        dialogs.path = store.path();
        const QByteArray data = written();
        QVERIFY(write().contains(u"this is a data file"));
        QCOMPARE(written(), data);
    }
};

KELVORA_TEST(TestObstacles, "obstacles");

}  // namespace kelvora::test_obstacles

#include "test_obstacles.moc"
