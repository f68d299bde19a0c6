#include "operations/search_fields.h"

#include "controls/bound_list.h"
#include "controls/fields.h"
#include "controls/screen.h"
#include "data/connection.h"

#include <QHBoxLayout>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

QStringList criterionCaptions() {
    QStringList captions;
    for (const SearchCriterion& criterion : searchCriteria()) {
        captions.append(criterion.caption.toString());
    }
    return captions;
}

}  // namespace

SearchFields::SearchFields(Connection& connection, Dialogs& dialogs)
    : m_connection(connection),
      m_dialogs(dialogs),
      m_criterion(new FixedList(criterionCaptions(), this)),
      m_value(new BoundList(this)) {
    nameList(m_criterion, u"Criterion"_s);
    m_criterion->setMinimumWidth(200);
    nameList(m_value, u"Value"_s);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_criterion);
    layout->addWidget(m_value, 1);

    connect(m_criterion, &QComboBox::activated, this, guarded(m_dialogs, [this] { onCriterionChosen(); }));
    connect(m_value, &BoundList::chosen, this, guarded(m_dialogs, [this] { Q_EMIT valueChosen(); }));
    connect(m_value->lineEdit(), &QLineEdit::textEdited, this, guarded(m_dialogs, [this] { Q_EMIT valueTyped(); }));
    connect(m_value, &BoundList::entered, this, guarded(m_dialogs, [this] { Q_EMIT entered(); }));
}

void SearchFields::chooseFirstCriterion() {
    m_criterion->setCurrentIndex(0);
    runGuarded(m_dialogs, [this] { onCriterionChosen(); });
}

void SearchFields::refill() {
    if (m_criterion->currentIndex() >= 0) {
        const SearchCriterion& criterion = searchCriteria()[static_cast<std::size_t>(m_criterion->currentIndex())];
        m_value->refill(m_connection.model(criterion.values()), criterion.shown.toString(), criterion.key.toString());
    }
}

std::optional<OperationSearch> SearchFields::search() const {
    const int chosen = m_criterion->currentIndex();
    if (chosen < 0 || m_value->text().isEmpty()) {
        return std::nullopt;
    }
    const bool byText = searchCriteria()[static_cast<std::size_t>(chosen)].by == SearchCriterion::By::ShownName;
    return OperationSearch{chosen, byText ? QVariant(m_value->text()) : m_value->key()};
}

void SearchFields::onCriterionChosen() {
    Q_EMIT criterionChosen();
    m_value->clearSource();
    refill();
}

}  // namespace kelvora
