#pragma once

#include "controls/screen.h"
#include "data/connection.h"

#include <QList>
#include <QStringList>

#include <optional>

class QLabel;
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
    /// The lines of the export of what is shown, for the year in the list.
    virtual QStringList exported(int year) = 0;

    /// Fills the lists beside that of the years again.
    virtual void refillChoices() {}
    /// What the lists say: the year and the choice that a search would be about.
    [[nodiscard]] virtual QString listed() const = 0;

    void refillLists() final;
    /// To be called when rows of what the lists say are shown, or none.
    void showsListed(bool any = true);
    /// To be called when what the lists say has changed otherwise than by their texts.
    void compareRows();
    /// Calls what the rows are of whenever the lists say otherwise. A report places it above its table.
    [[nodiscard]] QLabel* rowsLine() const { return m_rowsLine; }
    /// A list that says what the rows are of, beside that of the years.
    void watch(const BoundList* list);

    Connection& connection() { return m_connection; }
    [[nodiscard]] BoundList* yearList() const { return m_years; }
    /// The year chosen in the list; nothing for an empty list and for a typed year that it does not offer.
    [[nodiscard]] std::optional<int> year() const;
    /// The same for a step that cannot do without: asks the sampler for a year if there is none.
    [[nodiscard]] std::optional<int> neededYear() const;

    /// Enter in a list runs the search, also while its rows are offered below it.
    void searchOnEnterIn(BoundList* list);
    /// Disabled until a report enables it.
    [[nodiscard]] QPushButton* exportButton() const { return m_export; }

    /// Lets Tab go through fields in the order in which they are read.
    static void setReadingOrder(const QWidgetList& fields);

    void keyPressEvent(QKeyEvent* event) override;

private:
    void saveExport();

    Connection m_connection;
    Sql m_yearsOffered;
    QString m_shown;  ///< what the lists said when the rows were shown; empty without rows
    BoundList* m_years;
    QList<QWidget*> m_searching;  ///< the lists that run the search themselves
    QPushButton* m_export;
    QLabel* m_rowsLine;
};

}  // namespace kelvora
