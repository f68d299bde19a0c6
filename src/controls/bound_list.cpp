#include "controls/bound_list.h"

#include <QAbstractItemView>
#include <QAbstractProxyModel>
#include <QApplication>
#include <QCompleter>
#include <QFocusEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStringListModel>

namespace kelvora {
namespace {

int columnCalled(const QAbstractItemModel& model, const QString& name) {
    for (int i = 0; i < model.columnCount(); ++i) {
        if (model.headerData(i, Qt::Horizontal).toString().compare(name, Qt::CaseInsensitive) == 0) {
            return i;
        }
    }
    qFatal("no column %s in the source of a list", qPrintable(name));
}

}  // namespace

BoundList::BoundList(QWidget* parent) : QComboBox(parent) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    setFocusPolicy(Qt::StrongFocus);
    setMaxVisibleItems(16);
    // A name of thousands of characters must not widen the screen.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(14);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QComboBox::activated, this, [this] {
        m_settled = text();
        Q_EMIT chosen();
    });
    // By itself the box would go to the first row with an equal text at every Enter, whatever row was chosen, and would
    // announce a text that was merely shown when the sampler passes the field.
    disconnect(lineEdit(), &QLineEdit::returnPressed, this, nullptr);
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    // Enter on an offered row is the completer's: the row announces itself.
    connect(lineEdit(), &QLineEdit::editingFinished, this, [this] {
        if (!hasFocus() || offeredRow() < 0) {
            settle();
        }
    });
    connect(lineEdit(), &QLineEdit::returnPressed, this, [this] {
        if (offeredRow() < 0) {
            settle();
            Q_EMIT entered();
        }
    });
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* left) {
        if (left == this && offersRows()) {
            onLeft();
        }
    });
}

BoundList::~BoundList() = default;

void BoundList::setSource(std::unique_ptr<QAbstractItemModel> source, const QString& shown, const QString& key) {
    const int shownColumn = columnCalled(*source, shown);
    const int keyColumn = columnCalled(*source, key);
    m_goneText.clear();
    if (hasRowsOf(*source, shownColumn, keyColumn)) {
        return;
    }
    const QString kept = text();
    const QString settled = m_settled;
    const QVariant keptKey = this->key();
    const int anchor = lineEdit()->hasSelectedText() ? lineEdit()->selectionStart() : lineEdit()->cursorPosition();
    const auto selected = static_cast<int>(lineEdit()->selectedText().size());
    const QSignalBlocker quiet(this);
    setCompleter(nullptr);
    m_shownColumn = shownColumn;
    m_keyColumn = keyColumn;
    m_source = std::move(source);
    // The box itself has the shown texts only: a screen reader would read the keys out as further rows.
    QStringList texts;
    for (int i = 0; i < m_source->rowCount(); ++i) {
        texts.append(m_source->index(i, m_shownColumn).data().toString());
    }
    setModel(new QStringListModel(texts, this));

    // The line deletes its completer when it gets another one.
    auto* offered = new QCompleter(model(), lineEdit());
    offered->setCaseSensitivity(Qt::CaseInsensitive);
    offered->setFilterMode(Qt::MatchContains);
    offered->setCompletionMode(QCompleter::PopupCompletion);
    setCompleter(offered);

    setCurrentIndex(-1);
    if (keptKey.isValid()) {
        setKey(keptKey);
    }
    if (text() != kept) {
        setText(kept);
    }
    m_settled = settled;
    lineEdit()->setSelection(anchor, selected);
}

void BoundList::refill(std::unique_ptr<QAbstractItemModel> source, const QString& shown, const QString& key) {
    const QVariant chosen = this->key();
    setSource(std::move(source), shown, key);
    m_goneText = text();
    m_goneKey = chosen;
}

void BoundList::clearSource() {
    const QSignalBlocker quiet(this);
    setCompleter(nullptr);
    setModel(new QStringListModel(this));
    m_source.reset();
    m_goneText.clear();
    m_keyColumn = -1;
    setText({});
}

void BoundList::setText(const QString& text) {
    const QSignalBlocker quiet(this);
    setCurrentIndex(-1);
    setEditText(text);
    m_settled = text;
}

int BoundList::row() const {
    const int chosenRow = currentIndex();
    if (chosenRow >= 0 && itemText(chosenRow) == text()) {
        return chosenRow;
    }
    return text().isEmpty() ? -1 : rowWith(m_shownColumn, Qt::DisplayRole, text());
}

QVariant BoundList::key() const {
    const int found = row();
    if (found < 0) {
        return !text().isEmpty() && text() == m_goneText ? m_goneKey : QVariant();
    }
    return m_source->index(found, m_keyColumn).data(Qt::EditRole);
}

void BoundList::setKey(const QVariant& key) {
    const int found = key.isValid() ? rowWith(m_keyColumn, Qt::EditRole, key) : -1;
    if (found >= 0) {
        const QSignalBlocker quiet(this);
        setCurrentIndex(found);
        m_settled = text();
    }
}

void BoundList::showPopup() {
    if (!m_mayOpen || m_mayOpen()) {
        QComboBox::showPopup();
    }
}

bool BoundList::hasRowsOf(const QAbstractItemModel& source, int shown, int key) const {
    bool same = m_source != nullptr && m_source->rowCount() == source.rowCount();
    for (int row = 0; same && row < source.rowCount(); ++row) {
        same = m_source->index(row, m_shownColumn).data() == source.index(row, shown).data() &&
               m_source->index(row, m_keyColumn).data(Qt::EditRole) == source.index(row, key).data(Qt::EditRole);
    }
    return same;
}

int BoundList::rowWith(int column, int role, const QVariant& value) const {
    if (m_source == nullptr || m_source->rowCount() == 0) {
        return -1;
    }
    const auto found = m_source->match(m_source->index(0, column), role, value, 1, Qt::MatchFixedString);
    return found.isEmpty() ? -1 : found.first().row();
}

bool BoundList::offersRows() const {
    return m_offers != nullptr && m_offers->isVisible();
}

void BoundList::closeOffers() {
    if (offersRows()) {
        m_offers->hide();
    }
}

/// The keyboard stays in the box while rows are offered: a window of rows that took it would keep it on a busy desktop
/// for some of the keys that a fast typist means for the next field. The box asks the rows first what a key is to them.
bool BoundList::event(QEvent* event) {
    if (event->type() != QEvent::KeyPress || completer() == nullptr || m_offersHaveKey) {
        return QComboBox::event(event);
    }
    if (m_offers != completer()->popup()) {
        m_offers = completer()->popup();
        m_offers->setWindowFlags(Qt::ToolTip);
    }
    if (!m_offers->isVisible()) {
        return QComboBox::event(event);
    }
    const QScopedValueRollback asked(m_offersHaveKey, true);
    QCoreApplication::sendEvent(m_offers, event);
    event->accept();
    return true;
}

/// The row that the sampler has gone to among those offered below a typed text; -1 if there is none.
int BoundList::offeredRow() const {
    if (!offersRows()) {
        return -1;
    }
    const auto* matching = qobject_cast<const QAbstractProxyModel*>(completer()->completionModel());
    return matching == nullptr ? -1 : matching->mapToSource(m_offers->currentIndex()).row();
}

/// The completer has kept from the box that it was left while rows were offered.
void BoundList::onLeft() {
    settle();
    QFocusEvent left(QEvent::FocusOut);
    QCoreApplication::sendEvent(this, &left);
}

void BoundList::finishTyping() {
    settle();
    Q_EMIT lineEdit()->editingFinished();
}

void BoundList::settle() {
    const int offered = offeredRow();
    closeOffers();
    if (text() == m_settled) {
        return;
    }
    m_settled = text();
    if (const int found = offered >= 0 ? offered : row(); found >= 0) {
        {
            const QSignalBlocker quiet(this);
            setCurrentIndex(found);
            m_settled = text();
        }
        Q_EMIT chosen();
    }
}

FixedList::FixedList(const QStringList& rows, QWidget* parent) : QComboBox(parent) {
    addItems(rows);
    setCurrentIndex(-1);
    setFocusPolicy(Qt::StrongFocus);
}

}  // namespace kelvora
