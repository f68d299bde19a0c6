#include "reference/species_import_panel.h"

#include "controls/captioned_grid.h"
#include "controls/text_table.h"
#include "records/species_import.h"
#include "reference/species_tab.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {

SpeciesImportPanel::SpeciesImportPanel(SpeciesTab& tab, Connection& connection, Dialogs& dialogs)
    : ImportPreview(speciesLayout(),
                    {u"IMPORT"_s, u"Species file"_s, u"Species import"_s, u"SAVE"_s, u"DELETE"_s, u"CLEAR"_s},
                    connection, dialogs),
      m_tab(tab) {
    clearButton()->setEnabled(false);
    // Rows that were looked at stay blue.
    connect(grid(), &Grid::rowChosen, this, [this](int row) {
        const bool dark = palette().color(QPalette::Base).lightness() < 128;
        table()->setRowColours(row, QColor(), dark ? QColor(0x8a, 0xb4, 0xf8) : QColor(Qt::blue));
    });
}

void SpeciesImportPanel::store(const CsvRecord& record, ImportOutcome& outcome) {
    const QStringList& fields = record.fields;
    const bool stored = m_tab.AddSpecies(fields[2], fields[1], fields[0], fields[3]);
    ++(stored ? outcome.stored : outcome.known);
}

void SpeciesImportPanel::refreshStored() {
    m_tab.RefreshSpeciesGrid();
}

bool SpeciesImportPanel::mayRemove(const CsvRecord& record) const {
    return !record.fields.first().isEmpty();
}

void SpeciesImportPanel::loaded() {
    clearButton()->setEnabled(true);
}

}  // namespace kelvora
