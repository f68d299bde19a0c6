#include "sampling/entry_panel.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/screen.h"
#include "data/numbers.h"
#include "operations/finder_panel.h"
#include "records/length_sample.h"

#include <QAbstractButton>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace kelvora {

EntryPanel::EntryPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs, Offers offers)
    : m_finder(finder), m_connection(connection), m_dialogs(dialogs), m_species(new BoundList), m_offers(offers) {}

void EntryPanel::refillLists() {
    if (m_offers == Offers::Catalogue) {
        m_species->refill(m_connection.model(catalogueSpecies()), u"sp"_s, u"fishno"_s);
    } else if (const auto& operation = m_finder.operation()) {
        m_species->refill(m_connection.model(caughtSpecies(operation->number)), u"Species"_s, u"spid"_s);
    }
}

void EntryPanel::offerCatch() {
    m_species->setSource(m_connection.model(caughtSpecies(m_finder.operation().value().number)), u"Species"_s,
                         u"spid"_s);
}

std::optional<ChosenSpecies> EntryPanel::chosenSpecies() const {
    const QVariant key = m_species->key();
    if (!key.isValid()) {
        return std::nullopt;
    }
    return ChosenSpecies{key.toInt(), m_species->row() < 0 ? m_species->text() : m_species->itemText(m_species->row())};
}

void EntryPanel::onClick(QAbstractButton* button, const std::function<void()>& handler) {
    connect(button, &QAbstractButton::clicked, this, guarded(m_dialogs, handler));
}

bool EntryPanel::isRefused(const std::optional<Refusal>& refusal) const {
    if (refusal) {
        refuse(m_dialogs, refusal->title, refusal->message, m_fields.at(static_cast<std::size_t>(refusal->field)));
    }
    return refusal.has_value();
}

std::optional<double> typedFrequency(Dialogs& dialogs, QLineEdit* box) {
    const QString typed = box->text();
    if (const auto refusal = frequencyRefusal(typed)) {
        dialogs.message(refusal->title, refusal->message);
        box->clear();
        focusOn(box);
        return std::nullopt;
    }
    return leadingNumber(typed);
}

}  // namespace kelvora
