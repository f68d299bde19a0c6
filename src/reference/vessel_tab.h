#pragma once

#include "reference/reference_panel.h"

class QGridLayout;
class QLineEdit;

namespace kelvora {

class BoundList;
class FixedList;
class RecordGrid;

/// The "Fishing Vessel" tab: the vessel register.
class VesselTab : public ReferencePanel {
    Q_OBJECT

public:
    VesselTab(Connection& connection, Dialogs& dialogs);

    void RefreshVesselGrid();
    void RefreshVesselGearList();

    /// Executes the insert of a vessel and asks whether to keep it.
    void addvessel(const Sql& statement);
    /// Executes the insert of a vessel and keeps it without a question.
    void addvessel2(const Sql& statement);
    /// Stores a gear that a vessel file names, under the number of gears + 1, or behind the largest number if that one
    /// is taken.
    void AddGearCounted(const QString& name);

Q_SIGNALS:
    /// A gear was added: other lists of gears lack it.
    void gearAdded();

private:
    void placeFields(QGridLayout* form);
    void add();
    [[nodiscard]] bool isRefused();
    [[nodiscard]] Sql insertStatement() const;
    void ClearVesselFields();
    void deleteVessel(const QString& name, const QString& registerId);

    QLineEdit* m_name;
    QLineEdit* m_enginePower;
    QLineEdit* m_state;
    QLineEdit* m_registerId;
    BoundList* m_gear;
    QLineEdit* m_netWidth;
    QLineEdit* m_size;
    QLineEdit* m_netLength;
    QLineEdit* m_meshSize;
    FixedList* m_engineType;
    QLineEdit* m_length;
    RecordGrid* m_register;
};

}  // namespace kelvora
