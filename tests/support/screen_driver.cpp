#include "support/screen_driver.h"

#include "controls/captioned_grid.h"
#include "controls/record_navigator.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test {
namespace {

/// The first child of a kind for which a test holds; visible ones first, since tabs repeat captions.
template <typename Widget, typename Test>
Widget* first(const QWidget* root, Test test) {
    Widget* hidden = nullptr;
    for (Widget* child : root->findChildren<Widget*>()) {
        if (!test(child)) {
            continue;
        }
        if (child->isVisibleTo(root)) {
            return child;
        }
        hidden = hidden != nullptr ? hidden : child;
    }
    return hidden;
}

template <typename Widget>
Widget* named(const QWidget* root, const QString& name) {
    return first<Widget>(root, [&](const Widget* widget) { return widget->accessibleName() == name.trimmed(); });
}

QAbstractButton* buttonOf(const QWidget* root, const QString& caption) {
    return first<QAbstractButton>(root, [&](const QAbstractButton* button) {
        return button->accessibleName() == caption || plain(button->text()) == caption.trimmed();
    });
}

template <typename Widget>
Widget* needed(Widget* widget, const QString& what, const QString& name) {
    if (widget == nullptr) {
        qFatal("no %s \"%s\" on the screen", qPrintable(what), qPrintable(name));
    }
    return widget;
}

template <typename Widget>
Widget* usable(Widget* widget, const QString& name) {
    if (!widget->isEnabled()) {
        qFatal("\"%s\" is disabled", qPrintable(name));
    }
    return widget;
}

int rowOf(const QComboBox& box, const QString& text) {
    return box.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
}

/// Letters that no key of a plain keyboard has come as from an input method.
void pressKeysOf(const QString& text, QWidget* target) {
    for (const QChar letter : text) {
        if (letter >= u' ' && letter <= u'~') {
            QTest::keyClick(target, letter.toLatin1());
        } else {
            QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, letter, Qt::NoModifier);
        }
    }
}

}  // namespace

ScreenDriver ScreenDriver::within(const QString& frame) const {
    QWidget* found = first<QGroupBox>(m_root, [&](const QGroupBox* box) { return plain(box->title()) == frame; });
    if (found == nullptr) {
        found = named<QWidget>(m_root, frame);
    }
    return ScreenDriver(needed(found, u"frame"_s, frame));
}

QWidget* ScreenDriver::field(const QString& caption) const {
    const QLabel* label = first<QLabel>(
        m_root, [&](const QLabel* l) { return l->buddy() != nullptr && plain(l->text()) == caption.trimmed(); });
    QWidget* found = label != nullptr ? label->buddy() : named<QWidget>(m_root, caption);
    return needed(found, u"field"_s, caption);
}

Grid* ScreenDriver::grid(const QString& name) const {
    return needed(named<Grid>(m_root, name), u"grid"_s, name);
}

ScreenDriver ScreenDriver::navigator(const QString& name) const {
    return ScreenDriver(needed(named<RecordNavigator>(m_root, name), u"navigator"_s, name));
}

QAbstractButton* ScreenDriver::button(const QString& caption) const {
    return needed(buttonOf(m_root, caption), u"button"_s, caption);
}

QWidget* ScreenDriver::control(const QString& name) const {
    QWidget* found = buttonOf(m_root, name);
    return found != nullptr ? found : field(name);
}

QString ScreenDriver::text(const QString& caption) const {
    // A grid has the name of the navigator over it.
    if (const auto* navigator = named<RecordNavigator>(m_root, caption)) {
        return navigator->caption();
    }
    const QWidget* found = field(caption);
    if (const auto* box = qobject_cast<const QComboBox*>(found)) {
        return box->currentText();
    }
    if (const auto* note = qobject_cast<const QPlainTextEdit*>(found)) {
        return note->toPlainText();
    }
    return found->property(qobject_cast<const QAbstractButton*>(found) != nullptr ? "checked" : "text").toString();
}

void ScreenDriver::type(const QString& caption, const QString& text) const {
    QWidget* found = usable(field(caption), caption);
    found->setFocus();
    if (auto* note = qobject_cast<QPlainTextEdit*>(found)) {
        note->selectAll();
    }
    auto* box = qobject_cast<QComboBox*>(found);
    auto* line = box != nullptr ? box->lineEdit() : qobject_cast<QLineEdit*>(found);
    if (line != nullptr) {
        line->selectAll();
    }
    QTest::keyClick(found, Qt::Key_Delete);
    pressKeysOf(text, found);
    // The rows that a list offers below a typed text have the keyboard while shown.
    QWidget* offered = QApplication::activePopupWidget();
    QTest::keyClick(offered != nullptr ? offered : found, Qt::Key_Tab);
}

void ScreenDriver::choose(const QString& caption, const QString& row) const {
    auto* box = usable(needed(qobject_cast<QComboBox*>(field(caption)), u"drop-down list"_s, caption), caption);
    const int found = rowOf(*box, row);
    if (found < 0) {
        qFatal(R"(the list "%s" does not offer "%s")", qPrintable(caption), qPrintable(row));
    }
    box->setFocus();
    box->setCurrentIndex(found);
    Q_EMIT box->activated(found);
}

QStringList ScreenDriver::options(const QString& caption) const {
    const auto* box = needed(qobject_cast<const QComboBox*>(field(caption)), u"drop-down list"_s, caption);
    QStringList options;
    for (int row = 0; row < box->count(); ++row) {
        options.append(box->itemText(row));
    }
    return options;
}

void ScreenDriver::press(const QString& caption) const {
    usable(button(caption), caption)->click();
}

void ScreenDriver::enter(const QString& steps) const {
    const QString is = u" ="_s;
    for (const QString& step : steps.split(u"; "_s, Qt::SkipEmptyParts)) {
        const QString caption = step.section(is, 0, 0);
        const QString text = step.section(is, 1).mid(1);
        if (!step.contains(is)) {
            press(step);
        } else if (const auto* box = qobject_cast<QComboBox*>(field(caption)); box && rowOf(*box, text) >= 0) {
            choose(caption, text);
        } else {
            type(caption, text.trimmed());
        }
        if (text.endsWith(u'\n')) {
            QTest::keyClick(usable(field(caption), caption), Qt::Key_Return);
        }
    }
}

void ScreenDriver::openTab(const QString& caption) const {
    for (QTabWidget* tabs : m_root->findChildren<QTabWidget*>()) {
        for (int i = 0; i < tabs->count(); ++i) {
            if (plain(tabs->tabText(i)) == caption) {
                tabs->setCurrentIndex(i);
                return;
            }
        }
    }
    qFatal("no tab \"%s\"", qPrintable(caption));
}

QStringList ScreenDriver::rows(const QString& name) const {
    const Grid* found = grid(name);
    QStringList lines;
    for (int row = 0; row < found->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < found->model()->columnCount(); ++column) {
            cells.append(found->text(row, column));
        }
        lines.append(cells.join(u'|'));
    }
    return lines;
}

}  // namespace kelvora::test
