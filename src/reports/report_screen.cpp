#include "reports/report_screen.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/screen.h"
#include "data/store_files.h"
#include "reports/csv_export.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {

ReportScreen::ReportScreen(const QString& caption, const Context& context, const Sql& years)
    : Screen(caption, context),
      m_connection(context.databasePath),
      m_yearsOffered(years),
      m_years(new BoundList(this)),
      m_export(new QPushButton(u"&EXPORT"_s, this)),
      m_rowsLine(new QLabel(this)) {
    m_years->setMinimumContentsLength(8);
    m_years->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_years->setSource(m_connection.model(years), u"gyear"_s, u"gyear"_s);
    searchOnEnterIn(m_years);
    watch(m_years);
    m_rowsLine->setTextFormat(Qt::PlainText);
    m_rowsLine->setMinimumHeight(m_rowsLine->fontMetrics().height());

    m_export->setEnabled(false);
    onClick(m_export, [this] { saveExport(); });
}

void ReportScreen::refillLists() {
    if (m_connection.changedElsewhere()) {
        m_years->refill(m_connection.model(m_yearsOffered), u"gyear"_s, u"gyear"_s);
        refillChoices();
    }
}

void ReportScreen::watch(const BoundList* list) {
    connect(list->lineEdit(), &QLineEdit::textChanged, this, &ReportScreen::compareRows);
}

void ReportScreen::showsListed(bool any) {
    m_shown = any ? listed() : QString();
    compareRows();
}

void ReportScreen::compareRows() {
    const bool same = m_shown.isEmpty() || m_shown == listed();
    m_rowsLine->setText(same ? QString() : u"The rows below are of %1"_s.arg(m_shown));
}

std::optional<int> ReportScreen::year() const {
    const QVariant key = m_years->key();
    return key.isValid() ? std::optional(key.toInt()) : std::nullopt;
}

std::optional<int> ReportScreen::neededYear() const {
    const std::optional<int> chosen = year();
    if (!chosen) {
        dialogs().message(u"Please choose a year from the list"_s);
        focusOn(m_years);
    }
    return chosen;
}

void ReportScreen::searchOnEnterIn(BoundList* list) {
    // While rows are offered below the list, Enter in it does not reach the screen.
    connect(list, &BoundList::entered, this, guarded(dialogs(), [this] { search(); }));
    m_searching.append(list);
}

void ReportScreen::setReadingOrder(const QWidgetList& fields) {
    for (qsizetype i = 1; i < fields.size(); ++i) {
        setTabOrder(fields[i - 1], fields[i]);
    }
}

void ReportScreen::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) {
        Screen::keyPressEvent(event);
    } else if (!m_searching.contains(focusWidget())) {
        guard([this] { search(); });
    }
}

void ReportScreen::saveExport() {
    const std::optional<int> chosen = neededYear();
    if (!chosen) {
        return;
    }
    if (const std::optional<QString> path = dialogs().saveCsvFile()) {
        saveCsv(withCsvEnding(*path), exported(*chosen), context().databasePath);
    }
}

}  // namespace kelvora
