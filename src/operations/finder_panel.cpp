#include "operations/finder_panel.h"

#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/record_navigator.h"
#include "controls/screen.h"
#include "data/connection.h"
#include "operations/search_fields.h"

#include <QGroupBox>
#include <QHBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

QGridLayout* detailForm(QWidget* parent) {
    auto* form = new QGridLayout(parent);
    form->setColumnStretch(1, 1);
    form->setColumnStretch(3, 1);
    form->setColumnMinimumWidth(0, 180);
    form->setColumnMinimumWidth(2, 180);
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(8);
    return form;
}

}  // namespace

FinderPanel::FinderPanel(const QString& numberCaption, Connection& connection, Context context, QWidget* parent)
    : QWidget(parent),
      m_connection(connection),
      m_context(std::move(context)),
      m_numberCaption(numberCaption),
      m_search(new QGroupBox(u"Search"_s, this)),
      m_fields(new SearchFields(connection, m_context.dialogs)),
      m_navigator(new RecordNavigator(u"Result"_s)),
      m_number(new ValueLabel) {
    auto* button = new SearchButton;
    auto* searchLine = new QHBoxLayout(m_search);
    searchLine->addWidget(m_fields, 1);
    searchLine->addWidget(button);

    auto* operationLine = new QGridLayout;
    operationLine->setHorizontalSpacing(12);
    operationLine->setColumnStretch(0, 1);
    operationLine->setColumnStretch(2, 1);
    operationLine->addWidget(m_navigator, 0, 0);
    addField(operationLine, 0, 1, numberCaption, m_number);
    QFont strong = m_number->font();
    strong.setBold(true);
    m_number->setFont(strong);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_search);
    layout->addLayout(operationLine);
    addDetails(layout);
    layout->addStretch(1);

    Dialogs& dialogs = m_context.dialogs;
    connect(m_fields, &SearchFields::criterionChosen, this, &FinderPanel::clear);
    connect(m_fields, &SearchFields::valueChosen, this, &FinderPanel::clear);
    connect(m_fields, &SearchFields::valueTyped, this, &FinderPanel::onValueTyped);
    connect(button, &SearchButton::clicked, this, guarded(dialogs, [this] { onSearch(); }));
    connect(m_fields, &SearchFields::entered, this, guarded(dialogs, [this] { onSearch(); }));
    connect(m_navigator, &RecordNavigator::arrived, this, &FinderPanel::onArrived);
}

void FinderPanel::addDetails(QVBoxLayout* layout) {
    auto* location = new QGroupBox(u"Sampling Location"_s);
    auto* operation = new QGroupBox(u"Operation"_s);
    layout->addWidget(location);
    layout->addWidget(operation);
    QGridLayout* locationForm = detailForm(location);
    QGridLayout* form = detailForm(operation);
    using enum OperationField::FinderColumn;
    int places = 0;
    int left = 0;
    int right = 0;
    for (const OperationField& field : operationFields()) {
        const QStringView caption = field.captions.finder;
        if (field.finderColumn == Location) {
            m_details.add(locationForm, 0, 2 * places++, caption, field.shown);
        } else if (field.finderColumn == Left) {
            m_details.add(form, left++, 0, caption, field.shown, field.minutes);
        } else if (field.finderColumn == Right) {
            m_details.add(form, right++, 2, caption, field.shown);
        }
    }
    m_details.addNote(form, form->rowCount(), 3);
}

void FinderPanel::open(bool selectFirstCriterion) {
    if (selectFirstCriterion) {
        m_fields->chooseFirstCriterion();
    }
    int& saved = m_context.session.lastSavedOperation;
    if (saved != 0 && runGuarded(m_context.dialogs, [&] { setOperation(saved); }) && !m_current) {
        saved = 0;
    }
    m_search->setEnabled(!m_current);
}

void FinderPanel::refillLists() {
    m_fields->refill();
}

bool FinderPanel::isLocked() const {
    return !m_search->isEnabled();
}

void FinderPanel::clear() {
    m_details.clear();
    m_navigator->setCaption({});
    setCurrent(std::nullopt);
    Q_EMIT cleared();
}

void FinderPanel::onValueTyped() {
    // What is typed is another value from the first letter on: an operation found by the former one must not stay
    // current under it.
    if (m_current || !m_navigator->caption().isEmpty()) {
        clear();
    }
}

void FinderPanel::onSearch() {
    const auto search = m_fields->search();
    if (!search) {
        return;
    }
    m_found = operationsFound(m_connection, *search);
    m_navigator->setRowCount(static_cast<int>(m_found.size()));
    if (m_found.empty()) {
        clear();
        m_navigator->setCaption(u"[No Record]"_s);
    }
}

void FinderPanel::onArrived(int row) {
    if (row < 0) {
        return;
    }
    const bool shown = runGuarded(m_context.dialogs, [&] {
        setOperation(m_found.at(static_cast<std::size_t>(row)));
        m_navigator->setCaption(u"Result %1 Of %2"_s.arg(row + 1).arg(m_found.size()));
    });
    if (!shown) {
        // Rather no operation than one whose details are those of another.
        clear();
    }
}

void FinderPanel::setOperation(int number) {
    std::optional<StoredOperation> stored = storedOperation(m_connection, number);
    if (!stored) {
        clear();
        m_context.dialogs.message(
            u"Fishing operation no. %1 is not stored any more: it was deleted elsewhere. No operation is chosen now."_s
                .arg(number));
        return;
    }
    const ResultSet details = operationDetails(m_connection, number);
    if (details.isEmpty()) {
        m_details.clear();
        setCurrent(std::move(stored), unregisteredNames(m_connection, number));
    } else {
        m_details.fill(details);
        setCurrent(std::move(stored));
    }
    Q_EMIT loaded();
}

void FinderPanel::setCurrent(std::optional<StoredOperation> operation, QStringList unregistered) {
    m_current = std::move(operation);
    m_unregistered = std::move(unregistered);
    m_number->setText(m_current ? QString::number(m_current->number) : QString());
    Q_EMIT operationChanged();
}

}  // namespace kelvora
