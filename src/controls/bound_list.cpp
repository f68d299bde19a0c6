#include "controls/bound_list.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QWheelEvent>

namespace kelvora {
namespace {

/// The mouse wheel over a list that has no focus belongs to the window: it must not change the list by accident.
bool wheelBelongsToWindow(const QComboBox& list, QWheelEvent* event) {
    if (list.hasFocus()) {
        return false;
    }
    event->ignore();
    return true;
}

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
    connect(lineEdit(), &QLineEdit::editingFinished, this, &BoundList::settle);
}

BoundList::~BoundList() {
    setCompleter(nullptr);
}

void BoundList::setSource(std::unique_ptr<QAbstractItemModel> source, const QString& shown, const QString& key) {
    const QString kept = text();
    const QVariant keptKey = this->key();
    const QSignalBlocker quiet(this);
    m_keyColumn = columnCalled(*source, key);
    setCompleter(nullptr);
    setModel(source.get());
    setModelColumn(columnCalled(*source, shown));
    m_source = std::move(source);

    auto* offered = new QCompleter(m_source.get(), this);
    offered->setCompletionColumn(modelColumn());
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
}

void BoundList::clearSource() {
    const QSignalBlocker quiet(this);
    setCompleter(nullptr);
    // Clearing the model would ask the rows of a query to remove themselves, which they cannot.
    setModel(new QStandardItemModel(this));
    m_source.reset();
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
    if (m_source == nullptr || m_source->rowCount() == 0 || text().isEmpty()) {
        return -1;
    }
    const auto found =
        m_source->match(m_source->index(0, modelColumn()), Qt::DisplayRole, text(), 1, Qt::MatchFixedString);
    return found.isEmpty() ? -1 : found.first().row();
}

QVariant BoundList::key() const {
    const int found = row();
    return found < 0 ? QVariant() : m_source->index(found, m_keyColumn).data(Qt::EditRole);
}

void BoundList::setKey(const QVariant& key) {
    for (int i = 0; m_source != nullptr && i < m_source->rowCount(); ++i) {
        if (m_source->index(i, m_keyColumn).data(Qt::EditRole) == key) {
            const QSignalBlocker quiet(this);
            setCurrentIndex(i);
            m_settled = text();
            return;
        }
    }
}

void BoundList::showPopup() {
    if (!m_mayOpen || m_mayOpen()) {
        QComboBox::showPopup();
    }
}

void BoundList::wheelEvent(QWheelEvent* event) {
    if (!wheelBelongsToWindow(*this, event)) {
        QComboBox::wheelEvent(event);
    }
}

void BoundList::settle() {
    if (text() == m_settled) {
        return;
    }
    m_settled = text();
    if (const int found = row(); found >= 0) {
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

void FixedList::wheelEvent(QWheelEvent* event) {
    if (!wheelBelongsToWindow(*this, event)) {
        QComboBox::wheelEvent(event);
    }
}

}  // namespace kelvora
