#include "reference/record_grid.h"

#include "controls/record_navigator.h"
#include "controls/screen.h"

#include <QLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {

RecordGrid::RecordGrid(RecordKind kind, Connection& connection, Dialogs& dialogs)
    : CaptionedGrid(kind.caption),
      m_kind(std::move(kind)),
      m_connection(connection),
      m_dialogs(dialogs),
      m_navigator(addNavigator(m_kind.caption)),
      m_delete(addButton(u"Delete"_s)) {
    m_delete->setEnabled(false);
    connect(m_navigator, &RecordNavigator::arrived, this, &RecordGrid::arrive);
    connect(m_delete, &QPushButton::clicked, this, guarded(m_dialogs, [this] { remove(); }));
}

void RecordGrid::leaveFrame() {
    setFlat(true);
    setTitle({});
    setContentsMargins({});
    layout()->setContentsMargins({});
}

void RecordGrid::refresh() {
    auto rows = m_connection.model(m_kind.query);
    m_rows = rows.get();
    grid()->show(std::move(rows), m_kind.columns);
    m_navigator->setRowCount(m_rows->rowCount());
}

void RecordGrid::arrive(int row) {
    m_navigator->setCaption({});
    runGuarded(m_dialogs, [&] {
        if (row >= 0) {
            m_navigator->setCaption(m_kind.name());
        }
        m_delete->setEnabled(row >= 0);
    });
}

void RecordGrid::remove() {
    if (m_navigator->caption().isEmpty() || !m_kind.remove()) {
        return;
    }
    m_navigator->setCaption({});
    refresh();
    m_navigator->leave();
    m_kind.removed();
}

QString RecordGrid::text(QStringView column) const {
    const int row = m_navigator->row();
    return row < 0 ? QString() : m_rows->result().text(row, column);
}

int RecordGrid::key(QStringView column) const {
    const int row = m_navigator->row();
    return row < 0 ? 0 : m_rows->result().integer(row, column).value_or(0);
}

}  // namespace kelvora
