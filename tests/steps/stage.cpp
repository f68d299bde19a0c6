#include "stage.h"

#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "controls/record_navigator.h"
#include "support/full_disk.h"

#include <QAbstractBarSeries>
#include <QApplication>
#include <QBarSet>
#include <QCategoryAxis>
#include <QChart>
#include <QChartView>
#include <QDate>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>
#include <QWindow>
#include <SQLiteCpp/Database.h>

#include <map>

using namespace Qt::StringLiterals;

namespace kelvora::test {
namespace {

QString plain(QString caption) {
    return caption.remove(u'&').trimmed();
}

QString filled(QString line) {
    return line.replace(u"{today}"_s, QDate::currentDate().toString(Qt::ISODate)).replace(u"\\n"_s, u"\n"_s);
}

/// "TITLE: TEXT -> ANSWER" behind "?" or "!".
ExpectedBox boxOf(const QString& line) {
    const bool asks = line.startsWith(u'?');
    const QString said = filled(line.mid(1).trimmed());
    const qsizetype arrow = asks ? said.lastIndexOf(u" -> "_s) : -1;
    const QString box = arrow < 0 ? said : said.first(arrow);
    const QString answer = arrow < 0 ? QString() : said.sliced(arrow + 4).trimmed();
    const qsizetype colon = box.indexOf(u": "_s);
    return {asks ? u"question"_s : u"message"_s, colon < 0 ? box : box.first(colon),
            colon < 0 ? QString() : box.sliced(colon + 2),
            !asks || answer == u"cancel"_s ? std::nullopt : std::optional(answer)};
}

/// The table that a row of the whole file stands in.
QString tableOf(const QString& change) {
    static const std::map<QString, QString> tables = {
        {u"port"_s, u"samplingport"_s},   {u"gear"_s, u"Fishing_gear"_s},       {u"method"_s, u"Fishing_method"_s},
        {u"area"_s, u"fishing_area"_s},   {u"operation"_s, u"fishoperation"_s}, {u"stage"_s, u"gonad_stage"_s},
        {u"account"_s, u"kelvora_user"_s}};
    const QString name = change.mid(2).section(u'|', 0, 0);
    const auto found = tables.find(name);
    return found == tables.end() ? name : found->second;
}

/// What is drawn beside each name of a picture, from the left or the top.
QStringList drawnBars(const QChart& chart) {
    QStringList bars;
    for (QAbstractAxis* axis : chart.axes()) {
        auto* names = qobject_cast<QCategoryAxis*>(axis);
        for (const QString& name : names == nullptr ? QStringList() : names->categoriesLabels()) {
            QStringList cells{QString(name).remove(QChar(0x200b))};
            for (const QBarSet* set : qobject_cast<QAbstractBarSeries*>(chart.series().first())->barSets()) {
                cells.append(QString::number(set->at(static_cast<int>(names->endValue(name)))));
            }
            bars.insert(axis->alignment() == Qt::AlignBottom ? bars.size() : 0, cells.join(u'|'));
        }
    }
    return bars;
}

QString joined(const QStringList& lines) {
    return u"\n    "_s + lines.join(u"\n    "_s);
}

}  // namespace

QList<StepCase> casesOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("no step file %s", qPrintable(path));
    }
    QList<StepCase> cases;
    int number = 0;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        ++number;
        const QString text = line.trimmed();
        if (text.startsWith(u"* "_s)) {
            cases.append({text.mid(2), path.section(u'/', -1), {}});
        } else if (!text.isEmpty() && !text.startsWith(u'#') && !cases.isEmpty()) {
            cases.last().lines.append({number, text});
        }
    }
    return cases;
}

Stage::Stage(Obstacle obstacle) : m_window(Context{m_store.path(), m_store.session, m_dialogs}), m_obstacle(obstacle) {
    m_store.addSmallYear();
    m_window.resize(1366, 768);
    m_window.show();
    m_window.activateWindow();
    if (!QTest::qWaitForWindowActive(&m_window)) {
        qFatal("the main window does not get the keyboard");
    }
}

QString Stage::play(const StepCase& steps) {
    for (qsizetype at = 0; at < steps.lines.size();) {
        const int number = steps.lines[at].number;
        const QString wrong = perform(steps, at);
        if (!wrong.isEmpty()) {
            return u"%1:%2: %3"_s.arg(steps.file).arg(number).arg(wrong);
        }
    }
    return {};
}

/// One line with those that belong to it: the boxes that come, the rows that change, the lines of a block.
QString Stage::perform(const StepCase& steps, qsizetype& at) {
    const QString line = steps.lines[at++].text;
    QList<ExpectedBox> boxes;
    QStringList changes;
    QStringList block;
    bool once = false;
    for (; at < steps.lines.size(); ++at) {
        const QString& next = steps.lines[at].text;
        if (next.startsWith(u'?') || next.startsWith(u'!')) {
            boxes.append(boxOf(next));
        } else if (next.startsWith(u"+ "_s) || next.startsWith(u"- "_s)) {
            changes.append(filled(next));
        } else if (next.startsWith(u'|')) {
            block.append(filled(next.mid(1).startsWith(u' ') ? next.mid(2) : next.mid(1)));
        } else if (next == u"once"_s) {
            once = true;
        } else {
            break;
        }
    }
    for (ExpectedBox& box : boxes) {
        if (box.answer && (box.title == u"open file"_s || box.title.startsWith(u"save "_s))) {
            box.answer = box.answer->startsWith(u'/') ? *box.answer : m_store.file(*box.answer);
        }
    }
    const QString verb = line.section(u' ', 0, 0);
    const QString rest = filled(line.section(u' ', 1));
    if (verb == u"sql"_s) {
        elsewhere(rest);
        return {};
    }
    const auto action = [&] {
        const QString wrong = act(verb, rest, block);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return wrong == u"?"_s ? check(verb, rest, block) : wrong;
    };
    if (m_obstacle != Obstacle::None && !changes.isEmpty() && !once) {
        if (const QString wrong = tryAgainstObstacle(action, boxes, changes); !wrong.isEmpty()) {
            return wrong;
        }
    }
    const QStringList before = wholeFile();
    m_dialogs.plan(boxes);
    if (const QString wrong = action(); !wrong.isEmpty()) {
        return wrong;
    }
    if (!m_dialogs.unplanned().isEmpty()) {
        return u"a box nobody named: %1"_s.arg(m_dialogs.unplanned().first());
    }
    if (!m_dialogs.missing().isEmpty()) {
        return u"a named box did not come: [%1] %2"_s.arg(m_dialogs.missing().first().title,
                                                          m_dialogs.missing().first().text);
    }
    QStringList changed = test::changes(before, wholeFile());
    changed.sort();
    changes.sort();
    return changed == changes ? QString()
                              : u"the file changed by%1\ninstead of%2"_s.arg(joined(changed), joined(changes));
}

/// Tries the step while its save cannot be carried out: it is said, nothing is stored, and the entry stays, so that
/// the step itself can be made afterwards.
QString Stage::tryAgainstObstacle(const std::function<QString()>& action, const QList<ExpectedBox>& boxes,
                                  const QStringList& changes) {
    QStringList tables;
    for (const QString& change : changes) {
        tables.append(tableOf(change));
    }
    tables.removeDuplicates();
    if (m_obstacle != Obstacle::RefusingTable) {
        tables = QStringList{QString()};
    }
    for (const QString& table : tables) {
        const QStringList before = wholeFile();
        m_dialogs.plan(boxes);
        if (m_obstacle == Obstacle::FullDisk) {
            const test::FullDisk full(0);
            action();
        } else if (m_obstacle == Obstacle::LockedFile) {
            // Whoever reads the file keeps a save from its end, not from its beginning.
            SQLite::Database other(m_store.path().toStdString(), SQLite::OPEN_READWRITE);
            other.exec("BEGIN; SELECT * FROM state");
            action();
        } else {
            for (const QString& what : {u"INSERT"_s, u"UPDATE"_s, u"DELETE"_s}) {
                elsewhere(u"CREATE TRIGGER refused_%1 BEFORE %1 ON %2 BEGIN SELECT RAISE(ABORT, 'refused'); END"_s.arg(
                    what, table));
            }
            action();
            for (const QString& what : {u"INSERT"_s, u"UPDATE"_s, u"DELETE"_s}) {
                elsewhere(u"DROP TRIGGER refused_"_s + what);
            }
        }
        const QString how = table.isEmpty() ? u"the obstacle"_s : u"the refusing table "_s + table;
        if (m_dialogs.unplanned().isEmpty()) {
            return u"nothing was said of "_s + how;
        }
        if (!boxes.isEmpty() && boxes.last().kind == u"message" && m_dialogs.missing().isEmpty()) {
            return u"in spite of %1 it said: %2"_s.arg(how, boxes.last().text);
        }
        if (const QStringList changed = test::changes(before, wholeFile()); !changed.isEmpty()) {
            return u"in spite of %1 the file changed by%2"_s.arg(how, joined(changed));
        }
    }
    return {};
}

/// Does what a line says; "?" for a line that only looks.
QString Stage::act(const QString& verb, const QString& rest, const QStringList& block) {
    if (verb == u">"_s) {
        hand().enter(rest);
    } else if (verb == u"open"_s) {
        trigger(rest.contains(u'/') ? rest.section(u'/', 0, 0) : QString(), rest.section(u'/', -1));
    } else if (verb == u"show"_s) {
        trigger(u"Windows"_s, rest);
    } else if (verb == u"close"_s) {
        front()->close();
        m_frame.clear();
    } else if (verb == u"tab"_s) {
        m_frame.clear();
        hand().openTab(rest);
    } else if (verb == u"in"_s) {
        m_frame = rest;
    } else if (verb == u"go"_s) {
        hand().move(rest.section(u' ', 0, -2), rest.section(u' ', -1));
    } else if (verb == u"keys"_s) {
        pressKeys(rest);
    } else if (verb == u"to"_s) {
        hand().field(rest)->setFocus(Qt::TabFocusReason);
    } else if (verb == u"file"_s) {
        write(rest, block);
    } else {
        return u"?"_s;
    }
    return {};
}

QString Stage::check(const QString& verb, const QString& rest, const QStringList& block) {
    const QString name = rest.section(u" = "_s, 0, 0).section(u" ="_s, 0, 0);
    const QString value = rest.contains(u" = "_s) ? rest.section(u" = "_s, 1) : QString();
    const auto isNot = [](const QString& found) { return u"it is \"%1\""_s.arg(found); };
    if (verb == u"text"_s) {
        const auto* navigator = dynamic_cast<RecordNavigator*>(hand().field(name));
        const QString text = navigator != nullptr ? navigator->caption() : hand().text(name);
        return isText(text, value) ? QString() : isNot(text);
    }
    if (verb == u"focus"_s || verb == u"selected"_s) {
        QWidget* focus = m_window.focusWidget();
        QWidget* found = hand().field(rest);
        if (focus == nullptr || (focus != found && !found->isAncestorOf(focus))) {
            return u"the keyboard is in %1"_s.arg(focus == nullptr ? u"nothing"_s : focus->accessibleName());
        }
        const auto* list = qobject_cast<QComboBox*>(found);
        const auto* box = list != nullptr ? list->lineEdit() : qobject_cast<QLineEdit*>(found);
        return verb == u"focus"_s || (box != nullptr && box->selectedText() == box->text())
                   ? QString()
                   : u"selected is \"%1\""_s.arg(box == nullptr ? QString() : box->selectedText());
    }
    if (verb == u"enabled"_s || verb == u"disabled"_s) {
        for (const QString& each : rest.split(u", "_s)) {
            if (hand().enabled(each) != (verb == u"enabled"_s)) {
                return u"\"%1\" is not"_s.arg(each);
            }
        }
        return {};
    }
    if (verb == u"rows"_s) {
        const QStringList rows = hand().rows(rest);
        return rows == block ? QString() : u"the rows are%1"_s.arg(joined(rows));
    }
    if (verb == u"options"_s) {
        QStringList options;
        const auto* list = qobject_cast<QComboBox*>(hand().field(name));
        for (int row = 0; row < list->count(); ++row) {
            options.append(list->itemText(row));
        }
        return options.join(u'|') == value ? QString() : isNot(options.join(u'|'));
    }
    if (verb == u"line"_s || verb == u"noline"_s) {
        bool found = false;
        for (const QLabel* label : front()->findChildren<QLabel*>()) {
            found = found || (label->isVisible() && isText(label->text(), rest));
        }
        return found == (verb == u"line"_s) ? QString() : u"it does not say so"_s;
    }
    if (verb == u"front"_s) {
        const QString title = front() == nullptr ? QString() : front()->windowTitle();
        return title == rest ? QString() : isNot(title);
    }
    if (verb == u"fronttab"_s) {
        const QString tab =
            plain(front()->findChild<QTabWidget*>()->tabText(front()->findChild<QTabWidget*>()->currentIndex()));
        return tab == rest ? QString() : isNot(tab);
    }
    if (verb == u"windows"_s) {
        QStringList titles;
        for (const QAction* top : m_window.menuBar()->actions()) {
            if (plain(top->text()) == u"Windows"_s && top->isEnabled()) {
                for (const QAction* entry : top->menu()->actions()) {
                    titles.append(entry->text());
                }
            }
        }
        return titles.join(u'|') == rest.mid(2) ? QString() : isNot(titles.join(u'|'));
    }
    if (verb == u"picture"_s) {
        const QStringList bars = drawnBars(*front()->findChild<QChartView*>()->chart());
        return bars == block ? QString() : u"it shows%1"_s.arg(joined(bars));
    }
    if (verb == u"written"_s) {
        QFile file(m_store.file(rest));
        const QStringList lines = file.open(QIODevice::ReadOnly)
                                      ? QString::fromUtf8(file.readAll()).split(u"\r\n"_s, Qt::SkipEmptyParts)
                                      : QStringList{u"(no such file)"_s};
        return lines == block ? QString() : u"it holds%1"_s.arg(joined(lines));
    }
    return u"no such step: "_s + verb;
}

QMdiSubWindow* Stage::front() const {
    return m_window.findChild<QMdiArea*>()->activeSubWindow();
}

ScreenDriver Stage::hand() const {
    const ScreenDriver screen(front()->widget());
    return m_frame.isEmpty() ? screen : screen.within(m_frame);
}

void Stage::trigger(const QString& menu, const QString& caption) {
    m_frame.clear();
    QList<QAction*> actions = m_window.findChild<QToolBar*>()->actions();
    for (const QAction* top : m_window.menuBar()->actions()) {
        if (!menu.isEmpty() && plain(top->text()) == menu) {
            actions = top->menu()->actions();
        }
    }
    for (QAction* action : actions) {
        if (action->text() == caption) {
            if (!action->isEnabled()) {
                qFatal("\"%s\" is disabled", qPrintable(caption));
            }
            action->trigger();
            return;
        }
    }
    qFatal("no button or menu item \"%s\"", qPrintable(caption));
}

/// Keys as they come from a keyboard: to the window, where shortcuts and open lists are in the way as they are in life.
void Stage::pressKeys(const QString& keys) {
    for (qsizetype i = 0; i < keys.size(); ++i) {
        const qsizetype end = keys[i] == u'<' ? keys.indexOf(u'>', i) : -1;
        QWindow* window = QGuiApplication::focusWindow();
        window = window != nullptr ? window : m_window.windowHandle();
        if (end < 0) {
            QTest::keyClick(window, keys[i].toLatin1());
            continue;
        }
        const QKeyCombination key = QKeySequence(keys.sliced(i + 1, end - i - 1))[0];
        QTest::keyClick(window, key.key(), key.keyboardModifiers());
        i = end;
    }
}

QStringList Stage::wholeFile() {
    return m_store.wholeFile() + m_store.rows("select 'account', * from kelvora_user");
}

void Stage::write(const QString& name, const QStringList& lines) {
    QFile file(m_store.file(name));
    if (!file.open(QIODevice::WriteOnly)) {
        qFatal("%s cannot be written", qPrintable(name));
    }
    file.write((lines.join(u"\r\n"_s) + u"\r\n"_s).toUtf8());
}

/// Another program at work on the file.
void Stage::elsewhere(const QString& statement) const {
    SQLite::Database database(m_store.path().toStdString(), SQLite::OPEN_READWRITE);
    database.exec(statement.toStdString());
}

}  // namespace kelvora::test
