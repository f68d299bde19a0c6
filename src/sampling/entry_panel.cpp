#include "sampling/entry_panel.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/guard.h"
#include "data/numbers.h"
#include "operations/finder_panel.h"
#include "records/length_sample.h"

#include <QAbstractButton>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace kelvora {

EntryPanel::EntryPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs)
    : m_finder(finder), m_connection(connection), m_dialogs(dialogs) {}

void EntryPanel::onClick(QAbstractButton* button, const std::function<void()>& handler) {
    connect(button, &QAbstractButton::clicked, this, guarded(m_dialogs, handler));
}

bool EntryPanel::isRefused(const std::optional<Refusal>& refusal, std::span<QWidget* const> fields) const {
    if (refusal) {
        refuse(m_dialogs, refusal->title, refusal->message, fields[static_cast<std::size_t>(refusal->field)]);
    }
    return refusal.has_value();
}

void fillSpecies(BoundList& list, Connection& connection) {
    list.refill(connection.model(catalogueSpecies()), u"sp"_s, u"fishno"_s);
}

void fillCaughtSpecies(BoundList& list, Connection& connection, int operation) {
    list.setSource(connection.model(caughtSpecies(operation)), u"Species"_s, u"spid"_s);
}

void refillCaughtSpecies(BoundList& list, Connection& connection, const FinderPanel& finder) {
    if (const auto& operation = finder.operation()) {
        list.refill(connection.model(caughtSpecies(operation->number)), u"Species"_s, u"spid"_s);
    }
}

std::optional<ChosenSpecies> chosenSpecies(const BoundList& list) {
    const QVariant key = list.key();
    if (!key.isValid()) {
        return std::nullopt;
    }
    return ChosenSpecies{key.toInt(), list.row() < 0 ? list.text() : list.itemText(list.row())};
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
