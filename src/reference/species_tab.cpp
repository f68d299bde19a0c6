#include "reference/species_tab.h"

#include "controls/dialogs.h"
#include "controls/fields.h"
#include "data/names.h"
#include "records/keys.h"
#include "reference/record_grid.h"
#include "reference/species_import_panel.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include <array>

using namespace Qt::StringLiterals;

namespace kelvora {

SpeciesTab::SpeciesTab(Connection& connection, Dialogs& dialogs)
    : ReferencePanel(connection, dialogs),
      m_family(new QLineEdit),
      m_genus(new QLineEdit),
      m_species(new QLineEdit),
      m_commonName(new QLineEdit),
      m_catalogue(new RecordGrid(u"Target Species"_s, {{u"No."_s, 20, Qt::AlignLeft, true},
                                                       {u"Family"_s, 93},
                                                       {u"Genus"_s, 100},
                                                       {u"Specie"_s, 100},
                                                       {u"Common name"_s, 133}})) {
    auto* layout = new QHBoxLayout(this);
    auto* catalogue = new QVBoxLayout;
    layout->addLayout(catalogue, 1);

    auto* entry = new QGroupBox(u"New species"_s);
    catalogue->addWidget(entry);
    auto* form = new QGridLayout(entry);
    addField(form, 0, 0, u" Family"_s, m_family);
    addField(form, 0, 2, u" Genus"_s, m_genus);
    addField(form, 1, 0, u" Species"_s, m_species);
    addField(form, 1, 2, u" Common name"_s, m_commonName);
    auto* addButton = new QPushButton(u"&Add"_s);
    form->addWidget(addButton, 1, 4);
    form->setColumnStretch(1, 1);
    form->setColumnStretch(3, 1);

    catalogue->addWidget(m_catalogue, 1);

    layout->addWidget(new SpeciesImportPanel(*this, connection, dialogs), 1);

    onClick(addButton, [this] { add(); });
    connect(m_commonName, &QLineEdit::returnPressed, addButton, &QPushButton::click);
    m_catalogue->onArrival(dialogs, [this](bool onRow) {
        m_catalogue->deleteButton()->setEnabled(onRow);
        m_selectedSpecies = m_catalogue->current(0).toInt();
        m_catalogue->setCaption(onRow ? m_catalogue->current(2) + u' ' + m_catalogue->current(3) : QString());
    });
    onClick(m_catalogue->deleteButton(), [this] { deleteSpecies(); });
}

void SpeciesTab::RefreshSpeciesGrid() {
    m_catalogue->refresh(connection(),
                         Sql("SELECT fish.fishno,fish.family, fish.genus, fish.fishname, fish.common_name FROM fish"
                             " where fishno <> 0 order by fish.fishno"));
}

bool SpeciesTab::isStored(const QString& family, const QString& genus, const QString& species) const {
    return !rowsNamed(connection(), Sql("select family, genus, fishname from fish where "),
                      {{"family", family}, {"genus", genus}, {"fishname", species}})
                .isEmpty();
}

void SpeciesTab::add() {
    const QString family = typed(m_family);
    const QString genus = typed(m_genus);
    const QString species = typed(m_species);
    if (family.isEmpty() || genus.isEmpty() || species.isEmpty()) {
        dialogs().message(u"Please in put Family ,Genus And speices"_s);
        return;
    }
    if (isStored(family, genus, species)) {
        dialogs().message(u"ERROR"_s, u"Species repeat please try again"_s);
        return;
    }
    AddSpecies(species, genus, family, typed(m_commonName));
    for (QLineEdit* field : {m_family, m_genus, m_species, m_commonName}) {
        field->clear();
    }
    focusOn(m_family);
    RefreshSpeciesGrid();
    m_catalogue->grid()->scrollToBottom();
}

bool SpeciesTab::AddSpecies(const QString& species, const QString& genus, const QString& family,
                            const QString& commonName) {
    if (isStored(family, genus, species)) {
        return false;
    }
    const int number = nextSpecies(connection());
    connection().execute(Sql("insert into fish(fishno,fishname,genus,family,common_name) values(")
                         << number << "," << species << "," << genus << "," << family << "," << commonName << ")");
    return true;
}

void SpeciesTab::deleteSpecies() {
    if (m_catalogue->caption().isEmpty()) {
        return;
    }
    const std::array uses = {Sql("select * from group_composition where spid = "),
                             Sql("select * from length where spid = "), Sql("select * from gonad where spid = ")};
    for (const Sql& use : uses) {
        if (finds(use << m_selectedSpecies)) {
            dialogs().message(u"can't delete this species because this species used another table!"_s);
            return;
        }
    }
    if (confirmAfterExecute(Sql("delete from fish where fishno = ") << m_selectedSpecies, Dialogs::Question::Deleting,
                            u"Are you sure to delete this species"_s, u"CONFIRM"_s)) {
        m_catalogue->setCaption({});
        RefreshSpeciesGrid();
        m_catalogue->leaveRow();
    }
}

}  // namespace kelvora
