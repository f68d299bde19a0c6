#include "search/search_screen.h"

#include "controls/dialogs.h"
#include "controls/record_navigator.h"
#include "operations/search_fields.h"
#include "search/composition_tab.h"
#include "search/gonad_tab.h"
#include "search/length_tab.h"
#include "search/operation_frame.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvora {

SearchScreen::SearchScreen(const Context& context)
    : Screen(u"Search"_s, context),
      m_connection(context.databasePath, context.waiting()),
      m_fields(new SearchFields(m_connection, dialogs())),
      m_searchButton(new QPushButton(u"SEARCH"_s)),
      m_delete(new QPushButton(u"&DELETE"_s)),
      m_navigator(new RecordNavigator(u"Result"_s)),
      m_frame(new OperationFrame) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 10, 12, 10);
    layout->setSpacing(8);
    layout->addWidget(searchPanel());
    layout->addWidget(m_frame);
    layout->addWidget(sampleTabs(), 1);

    onClick(m_searchButton, [this] { onSearch(); });
    connect(m_fields, &SearchFields::entered, m_searchButton, &QPushButton::click);
    onClick(m_delete, [this] { onDelete(); });
    connect(m_navigator, &RecordNavigator::arrived, this, &SearchScreen::onArrived);

    m_fields->chooseFirstCriterion();
    clearOperation();
}

void SearchScreen::refillLists() {
    if (m_connection.changedElsewhere()) {
        m_fields->refill();
    }
}

QWidget* SearchScreen::searchPanel() {
    auto* panel = new QWidget;
    // "DELETE" stands apart from what is pressed all day, and its place stays free while it is hidden.
    QSizePolicy kept = m_delete->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    m_delete->setSizePolicy(kept);

    auto* line = new QHBoxLayout(panel);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_fields, 3);
    line->addWidget(m_searchButton);
    line->addSpacing(16);
    line->addWidget(m_navigator, 2);
    line->addSpacing(16);
    line->addWidget(m_delete);
    return panel;
}

QTabWidget* SearchScreen::sampleTabs() {
    auto* tabs = new QTabWidget;
    tabs->addTab(m_tabs.emplace_back(new CompositionTab(m_connection, dialogs())), u"&Species Composition"_s);
    tabs->addTab(m_tabs.emplace_back(new LengthTab(m_connection, dialogs())), u" Length Frequency"_s);
    tabs->addTab(m_tabs.emplace_back(new GonadTab(m_connection, dialogs())), u"Gonad Matuarity"_s);
    for (SampleTab* tab : m_tabs) {
        connect(tab, &SampleTab::outdated, this, [this] { guard([this] { onOutdated(); }); });
    }
    return tabs;
}

void SearchScreen::onSearch() {
    if (const auto search = m_fields->search()) {
        m_search = *search;
        runSearch();
    }
}

void SearchScreen::runSearch() {
    m_found = operationsFound(m_connection, m_search);
    m_navigator->setRowCount(static_cast<int>(m_found.size()));
}

void SearchScreen::onArrived(int row) {
    if (row < 0) {
        m_navigator->setCaption(u"[No Record]"_s);
        clearOperation();
        return;
    }
    m_navigator->setCaption(u"RESULT: [%1 / %2]"_s.arg(row + 1).arg(m_found.size()));
    refresh(m_found.at(static_cast<std::size_t>(row)));
}

void SearchScreen::refresh(int operation) {
    if (!guard([&] { showOperation(operation); })) {
        // Rather no operation than one whose samples are those of another.
        clearOperation();
    }
}

void SearchScreen::showOperation(int operation) {
    const ResultSet details = operationDetails(m_connection, operation);
    if (details.isEmpty()) {
        reportGone(operation);
        return;
    }
    m_operation = storedOperation(m_connection, operation);
    m_frame->fill(details);
    m_frame->setEnabled(true);
    m_delete->show();
    for (SampleTab* tab : m_tabs) {
        tab->load(m_operation);
    }
}

void SearchScreen::clearOperation() {
    m_operation.reset();
    m_frame->clear();
    m_frame->setEnabled(false);
    m_delete->hide();
    for (SampleTab* tab : m_tabs) {
        tab->load(std::nullopt);
    }
}

/// The operation was deleted, or one of the names that it is found by, while it was in the result.
void SearchScreen::reportGone(int operation) {
    dialogs().message(
        u"Operation No. %1 is not found any more: it, or a name it refers to, was changed "
        "or deleted elsewhere. The search is made again."_s.arg(operation));
    runSearch();
}

void SearchScreen::onOutdated() {
    const int operation = m_operation.value().number;
    if (!operationDetails(m_connection, operation).isEmpty()) {
        dialogs().message(
            u"This sample is not stored any more: it was deleted elsewhere. The samples of "
            "the operation are shown as they are now."_s);
    }
    refresh(operation);
}

void SearchScreen::onDelete() {
    if (!dialogs().confirm(u"CONFIRM"_s, u"Are you sure to delete all data in this operation?"_s,
                           Dialogs::Question::Deleting)) {
        return;
    }
    const int number = m_operation.value().number;
    try {
        deleteOperation(m_connection, *m_operation);
    } catch (const OriginLost&) {
        reportGone(number);
        return;
    }
    if (context().session.lastSavedOperation == number) {
        context().session.lastSavedOperation = 0;
    }
    runSearch();
}

}  // namespace kelvora
