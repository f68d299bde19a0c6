#pragma once

#include "controls/screen.h"
#include "data/connection.h"
#include "reports/csv_export.h"

#include <QList>

#include <optional>

class QPushButton;

namespace kelvora {

class BoundList;

/// The frame of a yearly report: its connection, the list of the years it has records of, the search that Enter runs
/// too, and the export. A report places these in its layout and says what a search and an export are.
class ReportScreen : public Screen {
    Q_OBJECT

protected:
    /// The query gives the years in its column gyear.
    ReportScreen(const QString& caption, const Context& context, const Sql& years);

    virtual void search() = 0;
    /// The export of what is shown, for the year in the list.
    virtual CsvText exported(int year) = 0;

    Connection& db() { return m_db; }
    [[nodiscard]] BoundList* yearList() const { return m_years; }
    /// The year chosen in the list; nothing for an empty list and for a typed year that it does not offer.
    [[nodiscard]] std::optional<int> year() const;
    /// The same for a step that cannot do without: asks the sampler for a year if there is none.
    [[nodiscard]] std::optional<int> neededYear() const;

    /// Runs the search whenever a button is pressed.
    void searchOn(QAbstractButton* button);
    /// Enter in a list runs the search, also while its rows are offered below it.
    void searchOnEnterIn(BoundList* list);
    /// Disabled until a report enables it.
    [[nodiscard]] QPushButton* exportButton() const { return m_export; }

    /// Lets Tab go through fields in the order in which they are read.
    static void setReadingOrder(const QWidgetList& fields);

    void keyPressEvent(QKeyEvent* event) override;

private:
    void saveExport();

    Connection m_db;
    BoundList* m_years;
    QList<QWidget*> m_searching;  ///< the lists that run the search themselves
    QPushButton* m_export;
};

}  // namespace kelvora
