#include "data/numbers.h"
#include "demo/demo_trip.h"
#include "records/composition_store.h"

#include <algorithm>
#include <cmath>
#include <map>

using namespace Qt::StringLiterals;

namespace kelvora::demo {
namespace {

constexpr double kLargestCatch = 400;       // kg of one trip
constexpr double kSortedPart = 0.25;        // of a mixed group
constexpr double kSingleSpeciesPart = 0.2;  // of the catch, from which on a species is weighed whole

struct Weighed {
    ChosenSpecies species;
    double kg = 0;
};

/// What was landed at a port by one gear in a month.
struct Landing {
    double kg = 0;
    std::vector<Weighed> species;
};

/// By month, port and gear: the order in which the trips are recorded.
using Landings = std::map<std::tuple<int, int, int>, Landing>;

template <typename Row>
int placeOf(const std::vector<Row>& rows, const QString& name, QString Row::*member) {
    const auto found = std::ranges::find(rows, name, member);
    return static_cast<int>(found - rows.begin());
}

Landings readLandings(const Catalogue& catalogue, const QString& folder) {
    std::map<QString, QStringList> shownAs;
    for (const QStringList& species : recordsOf(folder + u"/landed_species.csv"_s)) {
        shownAs[species[0]] = species;
    }
    Landings landings;
    for (const QStringList& record : recordsOf(folder + u"/landings.csv"_s)) {
        const auto species = shownAs.find(record[2]);
        if (species == shownAs.end()) {
            continue;
        }
        constexpr double kilogramsPerTonne = 1000;
        const QStringList& as = species->second;
        Landing& landing = landings[{record[0].toInt(), placeOf(ports(), record[1], &Port::name),
                                     placeOf(fisheries(), as[5], &Fishery::gear)}];
        const double kg = toNumber(record[3]).value() * kilogramsPerTonne;
        landing.kg += kg;
        landing.species.push_back({catalogue.species(as[2], as[3]), kg});
    }
    return landings;
}

double rounded(double kg, double step) {
    return readable(std::round(kg / step) * step);
}

/// What one of so many equal trips brought of each species, the heaviest first; nothing of less than 100 g.
std::vector<Weighed> oneTripOf(const Landing& landing) {
    const double trips = std::max(1.0, std::ceil(landing.kg / kLargestCatch));
    std::vector<Weighed> species;
    for (const Weighed& landed : landing.species) {
        const double kg = rounded(landed.kg / trips, 0.1);
        if (kg > 0) {
            species.push_back({landed.species, kg});
        }
    }
    std::ranges::stable_sort(species, std::greater{}, &Weighed::kg);
    return species;
}

void recordComposition(Connection& connection, const StoredOperation& operation, const std::vector<Weighed>& species,
                       double catchKg) {
    std::vector<Weighed> mixed;
    for (const Weighed& one : species) {
        if (one.kg >= kSingleSpeciesPart * catchKg) {
            storeSingleSpecies(connection, operation, one.species, one.kg);
        } else {
            mixed.push_back(one);
        }
    }
    if (mixed.size() == 1) {
        storeSingleSpecies(connection, operation, mixed.front().species, mixed.front().kg);
    } else if (!mixed.empty()) {
        SamplingGroup group;
        group.name = u"Mixed catch"_s;
        for (const Weighed& one : mixed) {
            const double sampled = std::max(0.01, rounded(one.kg * kSortedPart, 0.01));
            group.species.push_back({one.species, sampled});
            group.total = readable(group.total + one.kg);
        }
        storeGroup(connection, operation, group);
    }
}

/// A day of a month that is no Sunday, another one for every port and gear.
QDate samplingDay(int month, int port, int gear) {
    const QDate day(kYear, month, 3 + (port * 7 + gear * 5 + month * 3) % 24);
    return day.dayOfWeek() == Qt::Sunday ? day.addDays(1) : day;
}

/// The vessels of the register, ten a port in the order of the ports, their gears in turn.
QStringList vesselOf(const std::vector<QStringList>& register_, int port, int gear, int month) {
    constexpr int vesselsPerPort = 10;
    constexpr int gearsInTurn = 5;
    const int place = port * vesselsPerPort + gear + month % 2 * gearsInTurn;
    return register_.at(static_cast<std::size_t>(place));
}

}  // namespace

void recordLandings(Connection& connection, const Catalogue& catalogue, const QString& dataFolder) {
    static const QStringList recorders = {u"R. Hughes"_s, u"M. Tregenza"_s};
    const std::vector<QStringList> vessels = recordsOf(dataFolder + u"/vessels.csv"_s);
    for (const auto& [key, landing] : readLandings(catalogue, dataFolder)) {
        const auto [month, port, gear] = key;
        const std::vector<Weighed> species = oneTripOf(landing);
        double catchKg = 0;
        for (const Weighed& one : species) {
            catchKg = readable(catchKg + one.kg);
        }
        if (catchKg < 1) {
            continue;
        }
        const QStringList vessel = vesselOf(vessels, port, gear, month);
        const Port& place = ports().at(static_cast<std::size_t>(port));
        Trip trip{.port = place,
                  .area = place.areas[month % place.areas.size()],
                  .vessel = vessel[0],
                  .registerId = vessel[1],
                  .fishery = fisheries().at(static_cast<std::size_t>(gear)),
                  .date = samplingDay(month, port, gear),
                  .catchKg = catchKg,
                  .recorder = recorders[port % 2],
                  .note = u"Sampled at the auction"_s};
        recordComposition(connection, recordTrip(connection, catalogue, trip), species, catchKg);
    }
}

}  // namespace kelvora::demo
