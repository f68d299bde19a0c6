#include "reference/species_tab.h"

#include "controls/dialogs.h"
#include "controls/fields.h"
#include "records/species.h"
#include "records/species_import.h"
#include "reference/import_preview.h"
#include "reference/record_grid.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {

SpeciesTab::SpeciesTab(Connection& connection, Dialogs& dialogs)
    : ReferencePanel(connection, dialogs),
      m_family(new QLineEdit),
      m_genus(new QLineEdit),
      m_species(new QLineEdit),
      m_commonName(new QLineEdit),
      m_catalogue(new RecordGrid(
          {.caption = u"Target Species"_s,
           .columns = {{u"No."_s, 20, Qt::AlignLeft, true},
                       {u"Family"_s, 93},
                       {u"Genus"_s, 100},
                       {u"Specie"_s, 100},
                       {u"Common name"_s, 133}},
           .query = speciesAsEntered(),
           .name = [this] { return m_catalogue->text(u"genus") + u' ' + m_catalogue->text(u"fishname"); },
           .remove = [this] { return remove(m_catalogue->key(u"fishno")); }},
          connection, dialogs)) {
    auto* layout = new QHBoxLayout(this);
    auto* catalogue = new QVBoxLayout;
    layout->addLayout(catalogue, 1);

    auto* entry = new QGroupBox(u"New species"_s);
    catalogue->addWidget(entry);
    auto* form = new QGridLayout(entry);
    addField(form, 0, 0, u"Family"_s, m_family);
    addField(form, 0, 2, u"Genus"_s, m_genus);
    addField(form, 1, 0, u"Species"_s, m_species);
    addField(form, 1, 2, u"Common name"_s, m_commonName);
    auto* addButton = new QPushButton(u"&Add"_s);
    form->addWidget(addButton, 1, 4);
    form->setColumnStretch(1, 1);
    form->setColumnStretch(3, 1);

    catalogue->addWidget(m_catalogue, 1);

    layout->addWidget(newImport(), 1);

    onClick(addButton, [this] { add(); });
    connect(m_commonName, &QLineEdit::returnPressed, addButton, &QPushButton::click);
    m_catalogue->refresh();
}

ImportPreview* SpeciesTab::newImport() {
    return new ImportPreview(
        {.layout = speciesLayout(),
         .captions = {u"IMPORT"_s, u"Species file"_s, u"Species import"_s, u"SAVE"_s, u"DELETE"_s, u"CLEAR"_s},
         .store = [this](const auto& records, const auto& count) { return storeSpecies(connection(), records, count); },
         .stored = [this] { m_catalogue->refresh(); },
         .isOfSpecies = true},
        connection(), dialogs());
}

void SpeciesTab::add() {
    const SpeciesEntry species = {typed(m_family), typed(m_genus), typed(m_species), typed(m_commonName)};
    if (species.family.isEmpty() || species.genus.isEmpty() || species.epithet.isEmpty()) {
        dialogs().message(u"Please in put Family ,Genus And speices"_s);
        return;
    }
    if (!AddSpecies(connection(), species)) {
        dialogs().message(u"ERROR"_s, u"Species repeat please try again"_s);
        return;
    }
    for (QLineEdit* field : {m_family, m_genus, m_species, m_commonName}) {
        field->clear();
    }
    focusOn(m_family);
    m_catalogue->refresh();
    m_catalogue->grid()->scrollToBottom();
}

bool SpeciesTab::remove(int species) {
    if (isSpeciesUsed(connection(), species)) {
        dialogs().message(u"can't delete this species because this species used another table!"_s);
        return false;
    }
    return deleteSpecies(connection(), species,
                         asking(Dialogs::Question::Deleting, u"Are you sure to delete this species"_s, u"CONFIRM"_s));
}

}  // namespace kelvora
