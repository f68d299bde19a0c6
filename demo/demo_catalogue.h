#pragma once

#include "records/species.h"

#include <QStringList>

#include <vector>

namespace kelvora::demo {

/// The records of a comma-separated file behind its header.
std::vector<QStringList> recordsOf(const QString& path);

/// A sampling port, and the areas its vessels fish in.
struct Port {
    QString state, name;
    QStringList areas;
};

/// A way of fishing, and what one of its operations is like.
struct Fishery {
    QString gear, method;
    int bottomDepth, fishingDepth;  ///< m
    int hauls, days;                ///< a trip
};

/// What operations are recorded from, and the numbers under which the data file has it.
class Catalogue {
public:
    /// Stores states, ports, areas, gears with their methods, vessels and species.
    Catalogue(Connection& connection, const QString& sourceFolder);

    [[nodiscard]] int port(const QString& name) const;
    [[nodiscard]] int method(const QString& gear) const;
    [[nodiscard]] ChosenSpecies species(const QString& genus, const QString& name) const;

private:
    void storePlaces();
    void storeVessels(const QString& folder);
    void storeSpecies(const QString& sourceFolder);
    int number(const Sql& query, QStringView column) const;

    Connection& m_connection;
};

/// The ports whose landings are shown, in the order of the sources, and behind these the ports of the surveys.
const std::vector<Port>& ports();

/// The fisheries, one for each gear of the landed species.
const std::vector<Fishery>& fisheries();

/// Days of the demonstration are of this year.
inline constexpr int kYear = 2017;

}  // namespace kelvora::demo
