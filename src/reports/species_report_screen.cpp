#include "reports/species_report_screen.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "records/species.h"
#include "reports/csv_export.h"

#include <QGridLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {

SpeciesReportScreen::SpeciesReportScreen(const QString& caption, const Context& context, const Sql& years)
    : ReportScreen(caption, context, years),
      m_species(new BoundList(this)),
      m_search(new QPushButton(u"&Search"_s, this)) {
    m_species->setMinimumContentsLength(32);
    m_species->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_species->setSource(db().model(catalogueSpecies()), u"sp"_s, u"fishno"_s);
    searchOnEnterIn(m_species);
    watch(m_species);
    searchOn(m_search);
    // What a report puts below comes behind.
    setReadingOrder({yearList(), m_species, m_search, exportButton()});
}

QLayout* SpeciesReportScreen::choiceRow() {
    auto* row = new QGridLayout;
    row->setHorizontalSpacing(8);
    addField(row, 0, 0, u"Year"_s, yearList());
    row->setColumnMinimumWidth(2, 16);
    addField(row, 0, 3, u"Species"_s, m_species);
    row->addWidget(m_search, 0, 5);
    row->setColumnStretch(6, 1);
    row->addWidget(rowsLine(), 1, 0, 1, 8);
    row->addWidget(exportButton(), 0, 7);
    return row;
}

void SpeciesReportScreen::refillChoices() {
    m_species->refill(db().model(catalogueSpecies()), u"sp"_s, u"fishno"_s);
}

QString SpeciesReportScreen::listed() const {
    return u"%1, %2"_s.arg(yearList()->text(), m_species->text());
}

/// A year or a species that the lists do not offer is none.
void SpeciesReportScreen::search() {
    const std::optional<int> chosen = year();
    const QVariant fishno = m_species->key();
    if (!chosen || !fishno.isValid()) {
        return;
    }
    const bool found = showReport(*chosen, fishno.toInt());
    exportButton()->setEnabled(found);
    showsListed(found);
    if (!found) {
        dialogs().message(u"RESULT"_s, u"No data in this year"_s);
    }
}

QStringList SpeciesReportScreen::exportOf(const QString& title, const Grid& table) const {
    return QStringList{title, u"Species "_s + m_species->text(), exportDateLine(QDate::currentDate())} +
           csvTable(*table.model());
}

void showFound(Grid* grid, ResultSet found, GridColumns columns, GridColumns blank) {
    if (found.isEmpty()) {
        grid->showBlank(std::move(blank));
    } else {
        grid->show(std::make_unique<ResultModel>(std::move(found)), std::move(columns));
    }
}

}  // namespace kelvora
