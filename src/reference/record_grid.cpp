#include "reference/record_grid.h"

#include "controls/guard.h"
#include "controls/record_navigator.h"

#include <QLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {

RecordGrid::RecordGrid(const QString& caption, GridColumns columns, const Sql& query, Connection& connection,
                       Dialogs& dialogs)
    : CaptionedGrid(caption),
      m_columns(std::move(columns)),
      m_query(query),
      m_connection(connection),
      m_dialogs(dialogs),
      m_navigator(addNavigator(caption)),
      m_delete(addButton(u"Delete"_s)) {
    m_delete->setEnabled(false);
}

void RecordGrid::leaveFrame() {
    setFlat(true);
    setTitle({});
    setContentsMargins({});
    layout()->setContentsMargins({});
}

void RecordGrid::refresh() {
    auto rows = m_connection.model(m_query);
    m_rows = rows.get();
    grid()->show(std::move(rows), m_columns);
    m_navigator->setRowCount(m_rows->rowCount());
}

void RecordGrid::nameRows(const std::function<QString()>& name) {
    connect(m_navigator, &RecordNavigator::arrived, this, [this, name](int row) {
        m_navigator->setCaption({});
        runGuarded(m_dialogs, [&] {
            if (row >= 0) {
                m_navigator->setCaption(name());
            }
            m_delete->setEnabled(row >= 0);
        });
    });
}

void RecordGrid::onDelete(const std::function<bool()>& remove, const std::function<void()>& afterwards) {
    connect(m_delete, &QPushButton::clicked, this, guarded(m_dialogs, [this, remove, afterwards] {
                if (!m_navigator->caption().isEmpty() && remove()) {
                    m_navigator->setCaption({});
                    refresh();
                    m_navigator->leave();
                    afterwards();
                }
            }));
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
