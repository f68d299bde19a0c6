#include "reference/reference_panel.h"

#include "controls/screen.h"

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

std::function<bool()> ReferencePanel::asking(Dialogs::Question kind, const QString& question,
                                             const QString& title) const {
    return [this, kind, question, title] { return m_dialogs.confirm(title, question, kind); };
}

}  // namespace kelvora
