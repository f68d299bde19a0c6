#include "search/sample_tab.h"

#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/record_navigator.h"
#include "controls/screen.h"

#include <QPushButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvora {

void SampleTab::load(const std::optional<StoredOperation>& operation) {
    m_operation = operation;
    reload();
}

void SampleTab::onClick(QAbstractButton* button, const std::function<void()>& handler) {
    connect(button, &QAbstractButton::clicked, this, guarded(m_dialogs, handler));
}

bool SampleTab::mayChange(bool sampleIsStored) {
    if (sampleIsStored && storedOperation(m_connection, m_operation.value().number) == m_operation) {
        return true;
    }
    Q_EMIT outdated();
    return false;
}

SpeciesSampleTab::SpeciesSampleTab(Connection& connection, Dialogs& dialogs, Kind kind)
    : SampleTab(connection, dialogs),
      m_navigator(new RecordNavigator(kind.navigator)),
      m_delete(keyButton(kind.deleteButton)),
      m_kind(std::move(kind)) {
    // The arrows beside it stay where they are while it is hidden.
    QSizePolicy kept = m_delete->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    m_delete->setSizePolicy(kept);
    connect(m_navigator, &RecordNavigator::arrived, this, &SpeciesSampleTab::onArrived);
    onClick(m_delete, [this] { onDelete(); });
}

void SpeciesSampleTab::reload() {
    m_species.clear();
    if (operation()) {
        m_species = m_kind.species(connection(), operation()->number);
    }
    m_navigator->setRowCount(static_cast<int>(m_species.size()));
}

void SpeciesSampleTab::onArrived(int row) {
    const bool shown = row >= 0 && runGuarded(dialogs(), [&] {
                           m_navigator->setCaption(m_kind.position.arg(row + 1).arg(m_species.size()) + species().name);
                           showSample(storedWeight());
                       });
    if (!shown) {
        m_navigator->setCaption({});
        showNone();
    }
    setUsable(shown);
}

void SpeciesSampleTab::onDelete() {
    const bool sure = dialogs().confirm(m_kind.deleteTitle, u"Are you sure to delete?"_s, Dialogs::Question::Deleting);
    if (sure && mayChangeSample()) {
        m_kind.remove(connection(), *operation(), species());
        reload();
    }
}

const ChosenSpecies& SpeciesSampleTab::species() const {
    return m_species.at(static_cast<std::size_t>(m_navigator->row()));
}

QString SpeciesSampleTab::storedWeight() const {
    return displayText(m_kind.weight(connection(), operation().value().number, species().number).value_or(QVariant()));
}

bool SpeciesSampleTab::mayChangeSample() {
    return mayChange(m_kind.weight(connection(), operation().value().number, species().number).has_value());
}

}  // namespace kelvora
