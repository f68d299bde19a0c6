#pragma once

#include "reference/reference_panel.h"

class QHBoxLayout;
class QLineEdit;

namespace kelvora {

class BoundList;
class RecordGrid;

/// The "General" tab: states/provinces and the sampling ports in them, gears and their methods, areas.
class GeneralTab : public ReferencePanel {
    Q_OBJECT

public:
    /// Throws DataError if a list cannot be read.
    GeneralTab(Connection& connection, Dialogs& dialogs);

    void RefreshStateList();
    void RefreshMethodGearList();

Q_SIGNALS:
    /// A gear was added: other lists of gears lack it.
    void gearAdded();

private:
    /// Two fields, and the button that adds what they say.
    struct Entry {
        QString frame, firstCaption;
        QWidget* first;
        QString secondCaption;
        QLineEdit* second;
        QString button;
        std::function<void()> add;
    };
    [[nodiscard]] QWidget* newEntry(const Entry& entry);

    void addPortColumn(QHBoxLayout* columns);
    void addPort();
    void AddSamplingPort(const QString& name, int state);
    [[nodiscard]] bool removePort(int port);
    void purgeStates();

    void addMethodColumn(QHBoxLayout* columns);
    void addGearAndMethod();
    void addGear(const QString& name);
    void addMethod(const QString& name, int gear);
    [[nodiscard]] bool removeMethod(int method);

    void addAreaColumn(QHBoxLayout* columns);
    void addArea();
    [[nodiscard]] bool removeArea(const QString& name);
    void clearArea();

    BoundList* m_state;
    QLineEdit* m_port;
    RecordGrid* m_ports = nullptr;
    int m_selectedPort = 0;  ///< 0 if there is none

    BoundList* m_gear;
    QLineEdit* m_method;
    RecordGrid* m_methods = nullptr;

    QLineEdit* m_areaName;
    QLineEdit* m_description;
    RecordGrid* m_areas = nullptr;
};

}  // namespace kelvora
