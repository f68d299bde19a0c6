#include "shell/change_password_screen.h"

#include "controls/dialogs.h"
#include "controls/fields.h"
#include "records/accounts.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

QLineEdit* passwordField(const QString& text) {
    auto* field = new QLineEdit(text);
    showStars(field);
    return field;
}

}  // namespace

ChangePasswordScreen::ChangePasswordScreen(const Context& context)
    : Screen(u"CHANGE PASSWORD"_s, context),
      m_connection(context.databasePath),
      m_userName(new QLineEdit(context.session.userName)),
      m_login(new QLineEdit(context.session.login)),
      m_password(passwordField(context.session.password)),
      m_repeated(passwordField(context.session.password)) {
    // The login name is the key of the account: with another one the change would go to somebody else, or nowhere.
    makeReadOnly(m_login);
    constexpr int fieldWidth = 280;  // pixels
    for (QLineEdit* field : {m_userName, m_login, m_password, m_repeated}) {
        field->setFixedWidth(fieldWidth);
    }

    auto* form = new QGridLayout;
    form->setHorizontalSpacing(14);
    form->setVerticalSpacing(10);
    addField(form, 0, 0, u"Username"_s, m_userName);
    addField(form, 1, 0, u"Login name"_s, m_login);
    addField(form, 2, 0, u"Password"_s, m_password);
    addField(form, 3, 0, u"Re-password"_s, m_repeated);
    auto* change = new QPushButton(u"C&HANGE PASSWORD"_s);
    form->addWidget(change, 4, 1, Qt::AlignRight);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    // The fields stand beside their captions, at the top left of a screen however large.
    layout->addLayout(form, 0, 0);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(1, 1);

    onClick(change, [this] { changePassword(); });
    for (QLineEdit* field : {m_userName, m_password, m_repeated}) {
        connect(field, &QLineEdit::returnPressed, change, &QPushButton::click);
    }
}

void ChangePasswordScreen::changePassword() {
    if (m_password->text().isEmpty()) {
        return;
    }
    if (m_password->text() != m_repeated->text()) {
        dialogs().message(u"ERROR"_s, u"Password not match please retry again"_s);
        return;
    }
    if (!changeAccount(m_connection, {m_login->text(), m_password->text(), m_userName->text()})) {
        dialogs().message(u"ERROR"_s,
                          u"There is no account '%1' any more: it was renamed or deleted elsewhere. The "
                          "password was not changed."_s.arg(m_login->text()));
        return;
    }
    dialogs().message(u"Complete"_s);
    context().session.userName = m_userName->text();
    context().session.password = m_password->text();
    Q_EMIT finished();
}

}  // namespace kelvora
