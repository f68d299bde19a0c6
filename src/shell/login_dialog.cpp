#include "shell/login_dialog.h"

#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/screen.h"
#include "data/store.h"
#include "records/accounts.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {

LoginDialog::LoginDialog(const Context& context)
    : m_context(context),
      m_login(new QLineEdit(u"Administrator"_s, this)),
      m_password(new QLineEdit(this)),
      m_line(new QLabel(this)) {
    setWindowTitle(u"LOGIN"_s);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);

    constexpr int pictureSize = 112;
    auto* picture = new QLabel(this);
    picture->setPixmap(QIcon(u":/icons/kelvora.svg"_s).pixmap(QSize(pictureSize, pictureSize)));
    picture->setAccessibleName(u"Kelvora"_s);

    showStars(m_password);
    auto* fields = new QGridLayout;
    fields->setVerticalSpacing(10);
    fields->setHorizontalSpacing(12);
    addField(fields, 0, 0, u"LOGIN"_s, m_login);
    addField(fields, 1, 0, u"PASSWORD"_s, m_password);

    auto* logIn = new QPushButton(u"&Log in"_s, this);
    auto* cancel = new QPushButton(u"&Cancel"_s, this);
    logIn->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(logIn);
    buttons->addWidget(cancel);

    auto* entry = new QVBoxLayout;
    entry->addStretch();
    entry->addLayout(fields);
    entry->addWidget(m_line);
    entry->addSpacing(8);
    entry->addLayout(buttons);
    entry->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 20);
    layout->setSpacing(28);
    layout->addWidget(picture);
    layout->addLayout(entry);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    constexpr int fieldWidth = 220;
    m_login->setMinimumWidth(fieldWidth);

    m_line->setWordWrap(true);
    m_line->setTextFormat(Qt::PlainText);
    m_line->setTextInteractionFlags(Qt::TextSelectableByMouse);
    openStore();

    connect(logIn, &QPushButton::clicked, this, guarded(m_context.dialogs, [this] { signIn(); }));
    connect(cancel, &QPushButton::clicked, this, &LoginDialog::reject);
}

void LoginDialog::reject() {
    m_password->clear();
    focusOn(m_password);
}

void LoginDialog::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        focusOn(m_password);
    }
}

void LoginDialog::closeEvent(QCloseEvent* event) {
    event->accept();
    Q_EMIT closed();
}

void LoginDialog::openStore() {
    const StoreState state = prepareStore(m_context.databasePath, m_context.waiting());
    m_line->setText(state.line);
    m_line->setVisible(!state.line.isEmpty());
    if (state.usable) {
        m_connection.emplace(m_context.databasePath, m_context.waiting());
    }
}

void LoginDialog::signIn() {
    if (m_login->text().isEmpty() || m_password->text().isEmpty()) {
        m_context.dialogs.message(u"Please input Login and password"_s);
        return;
    }
    if (!m_connection) {
        openStore();
    }
    if (!m_connection) {
        throw DataError(m_line->text());
    }
    const std::optional<Account> account = accountOf(*m_connection, m_login->text(), m_password->text());
    if (!account) {
        m_context.dialogs.message(u"Your Password not correct please Try again "_s);
        m_password->clear();
        return;
    }
    m_context.session.login = account->login;
    m_context.session.password = account->password;
    m_context.session.userName = account->userName;
    Q_EMIT signedIn();
}

}  // namespace kelvora
