#pragma once

#include "records/operation.h"

#include <QWidget>

#include <map>
#include <optional>
#include <vector>

class QButtonGroup;
class QGridLayout;
class QLineEdit;
class QPlainTextEdit;

namespace kelvora {

class BoundList;
class Connection;
class DateField;
class Dialogs;

/// The fields of the entry screen in three columns, in the order in which the sampler is asked for them, and the lists
/// that fill each other. It reads the data file and never writes to it.
class OperationForm : public QWidget {
    Q_OBJECT

public:
    /// The connection and the dialogs must outlive the form. Throws DataError if a list cannot be read.
    OperationForm(Connection& connection, Dialogs& dialogs, const QString& recorder);

    /// Everything as for a new operation, the keyboard in the vessel's name. Leaves the number as it is.
    void clear(const QString& recorder);

    /// Fills lists again; each keeps what it shows.
    void fillLists();
    void fillVessels();
    /// The states, and the ports of the chosen one; none while the state's text is that of none.
    void fillPlaces();
    void fillPorts();
    /// The lists of which a row must be chosen, so that rows added or deleted on another screen count.
    void fillAreasAndMethods();

    [[nodiscard]] OperationEntry entry() const;
    /// Keys of the rows that the texts of the two lists stand for; nothing if there is none.
    [[nodiscard]] std::optional<int> chosenState() const;
    [[nodiscard]] std::optional<int> chosenPort() const;

    /// Shows the operation number; nothing while none could be given.
    void showNumber(std::optional<int> number);

    /// Takes the sampler back to the field of a refusal.
    void putRight(const OperationRefusal& refusal);
    /// The same where the date is none: says how a date is written.
    void refuseDate();

private:
    void add(QGridLayout* form, int row, int column, const OperationField& field);
    void connectLists();
    void onState();
    void fillMethods();

    Connection& m_connection;
    Dialogs& m_dialogs;

    QLineEdit* m_number;
    BoundList* m_vesselNames;
    BoundList* m_registerIds;
    BoundList* m_gears;
    BoundList* m_methods;
    BoundList* m_areas;

    BoundList* m_states;
    BoundList* m_ports;
    std::optional<int> m_stateOfPorts;  ///< whose ports are offered
    DateField* m_date;
    QButtonGroup* m_fishingTime;
    QLineEdit* m_recorder;
    QPlainTextEdit* m_note;
    std::vector<QLineEdit*> m_numbers;        ///< "0" in a new operation
    std::map<QStringView, QWidget*> m_boxes;  ///< by what their fields are shown from, the options and the note aside
};

}  // namespace kelvora
