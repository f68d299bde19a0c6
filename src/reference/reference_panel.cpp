#include "reference/reference_panel.h"

#include "controls/dialogs.h"
#include "controls/screen.h"
#include "data/transaction.h"

#include <QAbstractButton>
#include <QLineEdit>

namespace kelvora {

void ReferencePanel::onClick(QAbstractButton* button, const std::function<void()>& handler) {
    connect(button, &QAbstractButton::clicked, this, guarded(m_dialogs, handler));
}

QString ReferencePanel::typed(const QString& text) {
    return text.trimmed().isEmpty() ? QString() : text;
}

QString ReferencePanel::typed(const QLineEdit* field) {
    return typed(field->text());
}

bool ReferencePanel::finds(const Sql& query) const {
    return !m_connection.query(query).isEmpty();
}

bool ReferencePanel::confirmAfterExecute(const Sql& statement, Dialogs::Question kind, const QString& question,
                                         const QString& title) const {
    return executeThenAsk(m_connection, statement, [&] { return m_dialogs.confirm(title, question, kind); });
}

}  // namespace kelvora
