#include "reference/record_grid.h"

#include "controls/record_navigator.h"
#include "controls/screen.h"

#include <QLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {

RecordGrid::RecordGrid(const QString& caption, GridColumns columns)
    : CaptionedGrid(caption),
      m_columns(std::move(columns)),
      m_navigator(addNavigator(caption)),
      m_delete(addButton(u"Delete"_s)) {
    m_delete->setEnabled(false);
}

void RecordGrid::leaveFrame() {
    setTitle({});
    setContentsMargins({});
    layout()->setContentsMargins({});
}

void RecordGrid::paintEvent(QPaintEvent* event) {
    if (!title().isEmpty()) {
        CaptionedGrid::paintEvent(event);
    }
}

void RecordGrid::refresh(Connection& connection, const Sql& query) {
    auto rows = connection.model(query);
    const int count = rows->rowCount();
    grid()->show(std::move(rows), m_columns);
    m_navigator->setRowCount(count);
}

QString RecordGrid::caption() const {
    return m_navigator->caption();
}

void RecordGrid::setCaption(const QString& caption) {
    m_navigator->setCaption(caption);
}

void RecordGrid::leaveRow() {
    m_navigator->leave();
}

QString RecordGrid::current(int column) const {
    return grid()->text(m_navigator->row(), column);
}

void RecordGrid::onArrival(Dialogs& dialogs, const std::function<void(bool onRow)>& handler) {
    connect(m_navigator, &RecordNavigator::arrived, this, [this, &dialogs, handler](int row) {
        setCaption({});
        runGuarded(dialogs, [&] { handler(row >= 0); });
    });
}

}  // namespace kelvora
