#include "stage.h"

#include "controls/bound_list.h"
#include "controls/captioned_grid.h"

#include <QAbstractBarSeries>
#include <QAbstractButton>
#include <QApplication>
#include <QBarSet>
#include <QCategoryAxis>
#include <QChart>
#include <QChartView>
#include <QFile>
#include <QLabel>
#include <QLegend>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTest>
#include <QToolBar>
#include <QValueAxis>
#include <QWindow>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <map>

using namespace Qt::StringLiterals;

namespace kelvora::test {
namespace {

QString joined(const QStringList& lines) {
    return u"\n    "_s + lines.join(u"\n    "_s);
}

QString unlessEqual(const QStringList& found, const QStringList& expected) {
    return found == expected ? QString() : u"it is%1\ninstead of%2"_s.arg(joined(found), joined(expected));
}

/// The table that a row of the whole file stands in.
QString tableOf(const QString& change) {
    static const std::map<QString, QString> tables = {
        {u"port"_s, u"samplingport"_s},   {u"gear"_s, u"Fishing_gear"_s},       {u"method"_s, u"Fishing_method"_s},
        {u"area"_s, u"fishing_area"_s},   {u"operation"_s, u"fishoperation"_s}, {u"stage"_s, u"gonad_stage"_s},
        {u"account"_s, u"kelvora_user"_s}};
    // "+ vessel|Sea Star|…" or "+ 221 rows of vessel"
    static const QRegularExpression front(u"(\\w+)(\\||$)"_s);
    const QString name = front.match(change).captured(1);
    const auto found = tables.find(name);
    return found == tables.end() ? name : found->second;
}

/// The changes that are left where "+ 221 rows of vessel" took as many.
QStringList withoutCounted(QStringList changed, QStringList& expected) {
    static const QRegularExpression counted(u"^([+-]) (\\d+) rows of (\\w+)$"_s);
    for (const QString& line : QStringList(expected)) {
        if (const auto count = counted.match(line); count.hasMatch()) {
            const QString front = count.captured(1) + u' ' + count.captured(3) + u'|';
            const auto isOne = [&](const QString& row) { return row.startsWith(front); };
            if (std::ranges::count_if(changed, isOne) == count.captured(2).toInt()) {
                changed.removeIf(isOne);
                expected.removeOne(line);
            }
        }
    }
    return changed;
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

/// What stands around the bars: title, captions of the axes, marks of the values, and the colours, behind their names
/// where a legend shows them.
QStringList aroundBars(const QChart& chart) {
    QStringList texts{chart.title()};
    const bool crossed = chart.axes(Qt::Horizontal).size() == chart.axes(Qt::Vertical).size();
    for (const QAbstractAxis* axis : chart.axes(Qt::Horizontal) + chart.axes(Qt::Vertical)) {
        texts.append(crossed ? axis->titleText() : u"(axes side by side)"_s);
        const auto* marks = qobject_cast<const QValueAxis*>(axis);
        if (marks != nullptr && qobject_cast<const QCategoryAxis*>(axis) == nullptr) {
            const QString scale = u"%1 %2 %3 "_s.arg(marks->min()).arg(marks->max()).arg(marks->tickInterval());
            texts.append(scale + marks->labelFormat());
        }
    }
    for (QBarSet* set : qobject_cast<QAbstractBarSeries*>(chart.series().value(0))->barSets()) {
        const QString name = chart.legend()->isVisible() ? set->label() + u' ' : QString();
        texts.append(name + set->color().name());
    }
    return {texts.join(u'|')};
}

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

/// The captions of what can be pressed.
QStringList pressable(const QList<QAction*>& actions) {
    QStringList captions;
    for (const QAction* one : actions) {
        captions += one->isEnabled() && !one->isSeparator() ? QStringList{one->text()} : QStringList();
    }
    return captions.isEmpty() ? captions : QStringList{captions.join(u'|')};
}

/// A hand that clicks three times where once is meant.
void clickFast(QWidget* button) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                            QEvent::MouseButtonRelease, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent click(type, {4, 4}, button->mapToGlobal(QPointF(4, 4)), Qt::LeftButton, Qt::LeftButton, {});
        click.setTimestamp(1'000);
        QCoreApplication::sendEvent(button, &click);
    }
}

}  // namespace

Stage::Stage(bool obstacles) : m_obstacles(obstacles) {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    m_store.addSmallYear();
    m_window = std::make_unique<MainWindow>(Context{m_store.path(), m_store.session, m_dialogs});
    m_window->resize(1366, 768);
    m_window->show();
    m_window->activateWindow();
    if (!QTest::qWaitForWindowActive(m_window.get())) {
        qFatal("the main window does not get the keyboard");
    }
}

QString Stage::play(const StepCase& steps) {
    for (const Step& step : steps.steps) {
        if (const QString wrong = perform(step); !wrong.isEmpty()) {
            return u"%1:%2: %3"_s.arg(steps.file).arg(step.number).arg(wrong);
        }
    }
    return {};
}

/// One step with the boxes that come and the rows that change.
QString Stage::perform(Step step) {
    for (PlannedBox& box : step.boxes) {
        if (box.answer && (box.title == u"open file"_s || box.title.startsWith(u"save "_s))) {
            const QString real = u"" KELVORA_TEST_FILES "/"_s + *box.answer;
            box.answer = QFile::exists(real) ? real : m_store.file(*box.answer);
        }
    }
    if (m_obstacles && !step.changes.isEmpty() && !step.once) {
        if (const QString wrong = meetObstacles(step); !wrong.isEmpty()) {
            return wrong;
        }
    }
    const QStringList before = wholeFile();
    m_dialogs.plan(step.boxes);
    if (const QString wrong = act(step); !wrong.isEmpty()) {
        return wrong;
    }
    if (!m_dialogs.unplanned().isEmpty()) {
        return u"a box nobody named: %1"_s.arg(m_dialogs.unplanned().first());
    }
    if (!m_dialogs.missing().isEmpty()) {
        return u"a named box did not come: [%1] %2"_s.arg(m_dialogs.missing().first().title,
                                                          m_dialogs.missing().first().text);
    }
    if (step.verb == u"sql") {
        return {};
    }
    QStringList changed = withoutCounted(test::changes(before, wholeFile()), step.changes);
    changed.sort();
    step.changes.sort();
    return changed == step.changes
               ? QString()
               : u"the file changed by%1\ninstead of%2"_s.arg(joined(changed), joined(step.changes));
}

/// Tries the step while its save cannot be carried out: it is said why, nothing is stored, and the entry stays, so that
/// the step itself can be made afterwards. Fields are filled in before.
QString Stage::meetObstacles(Step& step) {
    if (step.verb == u">") {
        m_dialogs.plan({});
        hand().enter(step.rest.section(u"; "_s, 0, -2));
        step.rest = step.rest.section(u"; "_s, -1);
        if (!m_dialogs.unplanned().isEmpty()) {
            return u"this box wants a step of its own: "_s + m_dialogs.unplanned().first();
        }
    }
    QStringList tables;
    for (const QString& change : step.changes) {
        tables.append(tableOf(change));
    }
    tables.removeDuplicates();
    QString wrong;
    for (const QString& table : tables) {
        wrong += meet(step, {}, [&, this] {
            for (const QString& what : {u"INSERT"_s, u"UPDATE"_s, u"DELETE"_s}) {
                elsewhere(u"CREATE TRIGGER refused_%1 BEFORE %1 ON %2 BEGIN SELECT RAISE(ABORT, 'refused'); END"_s.arg(
                    what, table));
            }
            return until([this] {
                for (const QString& what : {u"INSERT"_s, u"UPDATE"_s, u"DELETE"_s}) {
                    elsewhere(u"DROP TRIGGER refused_"_s + what);
                }
            });
        });
    }
    wrong += meet(step, u"the disk reported an error"_s, [] { return fullDisk(0); });
    wrong += meet(step, u"the data file or its folder may not be written to"_s,
                  [this] { return readOnlyFolder(m_store.file({})); });
    // Whoever reads the file keeps a save from its end, not from its beginning.
    wrong += meet(step, u"another program is using the data file"_s, [this] {
        auto other = std::make_shared<SQLite::Database>(m_store.path().toStdString(), SQLite::OPEN_READWRITE);
        other->exec("BEGIN; SELECT * FROM state");
        return other;
    });
    return wrong;
}

/// An empty string if the obstacle had no effect but a message with its reason.
QString Stage::meet(const Step& step, const QString& reason, const std::function<Obstacle()>& put) {
    const bool press = step.verb == u">" && !step.rest.contains(u" = "_s);
    const QStringList before = wholeFile();
    const QStringList shown = shownOn(*front());
    m_dialogs.plan(step.boxes);
    {
        const auto obstacle = put();
        act(step);
    }
    const QString how = reason.isEmpty() ? u"a refusing table"_s : reason;
    if (!m_dialogs.unplanned().join(u'\n').contains(reason) || m_dialogs.unplanned().isEmpty()) {
        return u"it was not said that: %1, but%2"_s.arg(how, joined(m_dialogs.unplanned()));
    }
    if (!step.boxes.isEmpty() && step.boxes.last().kind == u"message" && m_dialogs.missing().isEmpty()) {
        return u"in spite of %1 it said: %2"_s.arg(how, step.boxes.last().text);
    }
    if (const QStringList changed = test::changes(before, wholeFile()); !changed.isEmpty()) {
        return u"in spite of %1 the file changed by%2"_s.arg(how, joined(changed));
    }
    if (const QStringList now = shownOn(*front()); press && now != shown) {
        return u"%1 changed the screen: %2"_s.arg(how, joined(test::changes(shown, now)));
    }
    return {};
}

/// Does what a step says; a step that does nothing looks.
QString Stage::act(const Step& step) {
    const QString& rest = step.rest;
    const std::map<QString, std::function<void()>> verbs = {
        {u">"_s, [&] { hand().enter(rest); }},
        {u"sql"_s, [&] { elsewhere(rest); }},
        {u"open"_s,
         [&] { trigger(rest.contains(u'/') ? rest.section(u'/', 0, 0) : QString(), rest.section(u'/', -1)); }},
        {u"show"_s, [&] { trigger(u"Windows"_s, rest); }},
        {u"close"_s, [&] { front()->close(), m_frame.clear(); }},
        {u"tab"_s, [&] { m_frame.clear(), hand().openTab(rest); }},
        {u"in"_s, [&] { m_frame = rest; }},
        {u"sample"_s,
         [&] {
             trigger({}, rest.section(u" of "_s, 0, 0));
             hand().enter(u"Criterion = Vessel; Value = %1; Search"_s.arg(rest.section(u" of "_s, 1)));
             front()->findChild<QTabWidget*>()->setCurrentIndex(1);
         }},
        {u"go"_s, [&] { hand().navigator(rest.section(u' ', 0, -2)).press(rest.section(u' ', -1)); }},
        {u"fish"_s,
         [&] {
             for (const QString& weight : rest.split(u' ')) {
                 m_dialogs.expect(u"? GONAD: Are you sure to add this sampling -> Yes"_s);
                 hand().enter(u"TL(mm) = 1; BL(mm) = 2; FL(mm) = 3; SL(mm) = 4; BW = %1; GW = 5; NEXT>>"_s.arg(weight));
             }
         }},
        {u"minimize"_s, [&] { front()->showMinimized(); }},
        {u"keys"_s, [&] { pressKeys(rest); }},
        {u"clicks"_s, [&] { clickFast(hand().button(rest)); }},
        {u"to"_s, [&] { hand().field(rest)->setFocus(Qt::TabFocusReason); }},
        {u"row"_s, [&] { hand().grid(rest.section(u' ', 0, -2))->setCurrentRow(rest.section(u' ', -1).toInt() - 1); }},
        {u"doubleclick"_s,
         [&] {
             Grid* grid = hand().grid(rest.section(u' ', 0, -2));
             Q_EMIT grid->doubleClicked(grid->model()->index(rest.section(u' ', -1).toInt() - 1, 0));
         }},
        {u"language"_s, [&] { QLocale::setDefault(QLocale(rest)); }},
        {u"file"_s, [&] { write(rest, step.block); }}};
    const auto verb = verbs.find(step.verb);
    if (verb != verbs.end()) {
        verb->second();
    }
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return verb != verbs.end() ? QString() : check(step);
}

QString Stage::check(const Step& step) {
    const QString& rest = step.rest;
    if (step.verb == u"text") {
        return checkText(rest);
    }
    if (step.verb == u"focus" || step.verb == u"selected") {
        return checkFocus(step);
    }
    if (step.verb == u"walk") {
        for (const QString& next : rest.section(u' ', 1).split(u", "_s)) {
            pressKeys(rest.section(u' ', 0, 0));
            if (const QString wrong = checkFocus({0, u"focus"_s, next}); !wrong.isEmpty()) {
                return u"%1 instead of %2"_s.arg(wrong, next);
            }
        }
        return {};
    }
    static const std::map<QString, std::pair<const char*, bool>> states = {
        {u"enabled"_s, {"enabled", true}}, {u"disabled"_s, {"enabled", false}}, {u"shown"_s, {"visible", true}},
        {u"hidden"_s, {"visible", false}}, {u"checked"_s, {"checked", true}},   {u"unchecked"_s, {"checked", false}}};
    if (const auto state = states.find(step.verb); state != states.end()) {
        const auto [property, wanted] = state->second;
        for (const QString& each : rest.split(u", "_s)) {
            if (hand().control(each)->property(property) != QVariant(wanted)) {
                return u"\"%1\" is not"_s.arg(each);
            }
        }
        return {};
    }
    if (step.verb == u"line" || step.verb == u"noline") {
        const auto labels = front()->findChildren<QLabel*>();
        const bool found = std::ranges::any_of(
            labels, [&](const QLabel* label) { return label->isVisible() && isText(label->text(), rest); });
        return found == (step.verb == u"line") ? QString() : u"it does not say so"_s;
    }
    return checkRows(step);
}

/// "Weight = 12.5; Species =": the texts of fields and the captions of navigators.
QString Stage::checkText(const QString& rest) const {
    for (const QString& each : rest.split(u"; "_s)) {
        const QString name = each.section(u" ="_s, 0, 0);
        const QString value = each.sliced(std::min(each.size(), name.size() + 3));
        const QString text = hand().text(name);
        if (!isText(text, value)) {
            return u"%1 is \"%2\""_s.arg(name, text);
        }
    }
    return {};
}

QString Stage::checkFocus(const Step& step) const {
    QWidget* focus = m_window->focusWidget();
    QWidget* found = hand().control(step.rest);
    if (focus == nullptr || (focus != found && !found->isAncestorOf(focus))) {
        return u"the keyboard is in %1"_s.arg(focus == nullptr ? u"nothing"_s : focus->accessibleName());
    }
    const auto* list = qobject_cast<QComboBox*>(found);
    const auto* box = list != nullptr ? list->lineEdit() : qobject_cast<QLineEdit*>(found);
    return step.verb == u"focus" || (box != nullptr && box->selectedText() == box->text())
               ? QString()
               : u"selected is \"%1\""_s.arg(box == nullptr ? QString() : box->selectedText());
}

/// What is found against the lines of the block, or those behind "=".
QString Stage::checkRows(const Step& step) {
    const QString rest = u' ' + step.rest;
    const QString name = rest.section(u" ="_s, 0, 0).trimmed();
    const QString behind = rest.section(u" ="_s, 1).trimmed();
    const QStringList lines = behind.isEmpty() || !step.block.isEmpty() ? step.block : behind.split(u" // "_s);
    const std::map<QString, std::function<QStringList()>> found = {
        {u"rows"_s, [&] { return hand().rows(name); }},
        {u"count"_s, [&] { return QStringList{QString::number(hand().grid(name)->rowCount())}; }},
        {u"headers"_s,
         [&] {
             QStringList all;
             for (const Grid* grid : front()->findChildren<Grid*>()) {
                 if (name.isEmpty() ? grid->isVisible() : grid->accessibleName() == name) {
                     QStringList shown;
                     for (int column = 0; const QString& header : grid->headers()) {
                         shown += grid->isColumnHidden(column++) ? QStringList() : QStringList{header};
                     }
                     all.append(shown.join(u'|'));
                 }
             }
             return all;
         }},
        {u"options"_s,
         [&] {
             const QStringList options = hand().options(name);
             return options.isEmpty() ? options : QStringList{options.join(u'|')};
         }},
        {u"front"_s, [&] { return QStringList{front() == nullptr ? QString() : front()->windowTitle()}; }},
        {u"fronttab"_s,
         [&] {
             const auto* tabs = front()->findChild<QTabWidget*>();
             return QStringList{plain(tabs->tabText(tabs->currentIndex()))};
         }},
        {u"windows"_s,
         [&] {
             const QAction* menu = menuOf(u"Windows"_s);
             const QStringList titles = pressable(menu->menu()->actions());
             return menu->isEnabled() != titles.isEmpty() ? titles : QStringList{u"(the menu is not)"_s};
         }},
        {u"toolbar"_s, [&] { return pressable(m_window->findChild<QToolBar*>()->actions()); }},
        {u"picture"_s, [&] { return drawnBars(*front()->findChild<QChartView*>()->chart()); }},
        {u"drawn"_s, [&] { return aroundBars(*front()->findChild<QChartView*>()->chart()); }},
        {u"stored"_s, [&] { return stored(step.rest); }},
        {u"written"_s, [&] {
             QStringList written = QString::fromUtf8(test::bytesOf(m_store.file(name))).split(u"\r\n"_s);
             return written.takeLast().isEmpty() ? written : QStringList{u"(a last line without end)"_s};
         }}};
    const bool titled = step.verb == u"front" || step.verb == u"fronttab";
    const auto look = found.find(step.verb);
    return look == found.end() ? u"no such step: "_s + step.verb
                               : unlessEqual(look->second(), titled ? QStringList{name} : lines);
}

QMdiSubWindow* Stage::front() const {
    return m_window->findChild<QMdiArea*>()->activeSubWindow();
}

ScreenDriver Stage::hand() const {
    const ScreenDriver screen(front()->widget());
    return m_frame.isEmpty() ? screen : screen.within(m_frame);
}

const QAction* Stage::menuOf(const QString& caption) const {
    const auto menus = m_window->menuBar()->actions();
    return *std::ranges::find(menus, caption, [](const QAction* one) { return plain(one->text()); });
}

void Stage::trigger(const QString& menu, const QString& caption) {
    m_frame.clear();
    const auto actions = menu.isEmpty() ? m_window->findChild<QToolBar*>()->actions() : menuOf(menu)->menu()->actions();
    const auto action = std::ranges::find(actions, caption, [](const QAction* one) { return one->text(); });
    if (action == actions.end() || !(*action)->isEnabled()) {
        qFatal("no button or menu item \"%s\" that can be pressed", qPrintable(caption));
    }
    (*action)->trigger();
}

/// Keys as they come from a keyboard: to the window, where shortcuts and open lists are in the way as they are in life.
void Stage::pressKeys(const QString& keys) {
    for (qsizetype i = 0; i < keys.size(); ++i) {
        const qsizetype end = keys[i] == u'<' ? keys.indexOf(u'>', i) : -1;
        QWindow* window = QGuiApplication::focusWindow();
        window = window != nullptr ? window : m_window->windowHandle();
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

QStringList Stage::stored(const QString& question) const {
    const SQLite::Database database(m_store.path().toStdString());
    SQLite::Statement rows(database, question.toStdString());
    QStringList lines;
    while (rows.executeStep()) {
        QStringList cells;
        for (int column = 0; column < rows.getColumnCount(); ++column) {
            cells.append(QString::fromStdString(rows.getColumn(column).getString()));
        }
        lines.append(cells.join(u'|'));
    }
    return lines;
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
