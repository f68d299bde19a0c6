#include "search/sample_tab.h"

#include "controls/screen.h"
#include "data/connection.h"

#include <QPushButton>

namespace kelvora {

SampleTab::SampleTab(Connection& connection, Dialogs& dialogs) : m_connection(connection), m_dialogs(dialogs) {}

void SampleTab::load(const std::optional<StoredOperation>& operation) {
    m_operation = operation;
    reload();
}

QPushButton* SampleTab::deleteButton(const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(caption) + 32);
    // The arrows beside it stay where they are while it is hidden.
    QSizePolicy kept = button->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    button->setSizePolicy(kept);
    return button;
}

void SampleTab::onClick(QAbstractButton* button, const std::function<void()>& handler) {
    connect(button, &QAbstractButton::clicked, this, guarded(m_dialogs, handler));
}

bool SampleTab::isStored(const Sql& sample) {
    if (storedOperation(m_connection, m_operation.value().number) != m_operation ||
        m_connection.query(sample).isEmpty()) {
        Q_EMIT outdated();
        return false;
    }
    return true;
}

}  // namespace kelvora
