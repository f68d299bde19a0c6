#pragma once

#include <QString>

namespace kelvora::bench {

/// How many operations a generated data file holds, and over how many years, the last of which is kLastYear. Every
/// operation has about 20 species weighed, 58 length classes and 40 fish measured; the reference lists are those of a
/// large office whatever the number of operations. Some operations name a vessel, area, method or port that is not
/// stored.
struct Size {
    QString name;
    int operations;
    int years;
};

inline constexpr int kLastYear = 2025;
inline constexpr int kStates = 20, kPorts = 120, kVessels = 2000, kAreas = 60, kGears = 15, kMethods = 60,
                     kSpecies = 600;

/// small, season or ceiling; throws std::invalid_argument for another name.
Size sizeCalled(const QString& name);

/// The file of a size in a folder, made first if it is missing. The same rows on every machine.
QString databaseOf(const Size& size, const QString& folder);

/// The names of generated rows by their number, counted from 1. Low numbers are met often, high ones rarely.
QString vesselName(int number);
QString speciesName(int number);

}  // namespace kelvora::bench
