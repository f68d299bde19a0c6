#include "data/numbers.h"
#include "demo/demo_trip.h"
#include "records/composition_store.h"
#include "records/gonad_fish.h"
#include "records/gonad_store.h"
#include "records/length_store.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace kelvora::demo {
namespace {

/// A survey that always lands at one port with one vessel and gear.
Trip surveyTrip(std::size_t port, const QString& vessel, const QString& registerId, const QString& gear) {
    const auto fishery = std::ranges::find(fisheries(), gear, &Fishery::gear);
    Trip trip;
    trip.port = ports().at(port);
    trip.area = trip.port.areas.front();
    trip.vessel = vessel;
    trip.registerId = registerId;
    trip.fishery = *fishery;
    trip.recorder = u"R. Hughes"_s;
    trip.note = u"Survey: every fish was measured"_s;
    return trip;
}

/// What the counted fish weigh in kg, by the cube of their length.
double weightOf(const std::vector<CountedClass>& classes) {
    constexpr double gramsPerCubicCentimetre = 0.007;
    double grams = 0;
    for (const CountedClass& c : classes) {
        grams += c.frequency * gramsPerCubicCentimetre * std::pow(c.limits.middle(), 3);
    }
    return leadingNumber(twoDecimals(grams / 1000));
}

/// Records a trip that landed one species, and the lengths of its fish.
void recordLengths(Connection& connection, const Catalogue& catalogue, Trip trip, const ChosenSpecies& species,
                   const std::vector<CountedClass>& classes) {
    const LengthClass& first = classes.front().limits;
    trip.catchKg = weightOf(classes);
    const StoredOperation operation = recordTrip(connection, catalogue, trip);
    storeSingleSpecies(connection, operation, species, trip.catchKg);
    storeLengthSample(connection, {.operation = operation,
                                   .species = species,
                                   .weight = trip.catchKg,
                                   .interval = readable(first.upper - first.lower),
                                   .classes = classes});
}

/// The classes of a tally: period, lower, upper, middle, frequency.
std::map<QString, std::vector<CountedClass>> talliesOf(const QString& path) {
    std::map<QString, std::vector<CountedClass>> tallies;
    for (const QStringList& r : recordsOf(path)) {
        tallies[r[0]].push_back(
            {.limits = {toNumber(r[1]).value(), toNumber(r[2]).value()}, .frequency = toNumber(r[4]).value()});
    }
    return tallies;
}

void recordHake(Connection& connection, const Catalogue& catalogue, const QString& folder) {
    const ChosenSpecies hake = catalogue.species(u"Merluccius"_s, u"merluccius"_s);
    std::map<int, std::vector<CountedClass>> byMonth;
    for (const auto& [period, classes] : talliesOf(folder + u"/hake.csv"_s)) {
        byMonth[period.section(u'-', 1, 1).toInt()] = classes;
    }
    for (const auto& [month, classes] : byMonth) {
        constexpr int midMonth = 14;
        Trip trip = surveyTrip(4, u"SURVEY TRAWLER"_s, u"S-10"_s, u"Trawl"_s);
        trip.date = QDate(kYear, month, midMonth);
        recordLengths(connection, catalogue, trip, hake, classes);
    }
}

void recordGoatfish(Connection& connection, const Catalogue& catalogue, const QString& folder) {
    Trip trip = surveyTrip(5, u"BAY SURVEY"_s, u"S-20"_s, u"Trawl"_s);
    trip.date = QDate(kYear, 6, 8);
    trip.latitude = u"14"_s;
    trip.longitude = u"120"_s;
    recordLengths(connection, catalogue, trip, catalogue.species(u"Upeneus"_s, u"vittatus"_s),
                  talliesOf(folder + u"/goatfish.csv"_s).begin()->second);
}

/// One day's whitefish, as a file of fish has them.
std::map<QDate, std::vector<GonadFish>> whitefishByDay(const QString& path) {
    std::map<QDate, std::vector<GonadFish>> byDay;
    for (const QStringList& r : recordsOf(path)) {
        byDay[QDate::fromString(r[0], Qt::ISODate)].push_back(
            {r[1], r[2], r[3], r[4], r[5], importedSex(r[6]), r[7], r[8]});
    }
    return byDay;
}

/// The fork lengths (mm) counted in classes of 2 cm, from the shortest fish to the longest.
std::vector<CountedClass> lengthsOf(const std::vector<GonadFish>& fish) {
    constexpr double interval = 2;
    std::map<double, CountedClass> counted;
    for (const GonadFish& one : fish) {
        const double cm = toNumber(one.fl).value() / 10;
        if (const auto limits = cm > 0 ? classHolding(cm, interval) : std::nullopt) {
            CountedClass& c = counted.try_emplace(limits->lower, CountedClass{*limits}).first->second;
            ++c.frequency;
        }
    }
    std::vector<CountedClass> classes;
    for (const auto& [lower, c] : counted) {
        while (!classes.empty() && classes.back().limits.upper < lower) {
            classes.push_back({nextClass(classes.back().limits.upper, interval)});
        }
        classes.push_back(c);
    }
    return classes;
}

void recordWhitefish(Connection& connection, const Catalogue& catalogue, const QString& folder) {
    const ChosenSpecies whitefish = catalogue.species(u"Prosopium"_s, u"williamsonii"_s);
    for (const auto& [day, fish] : whitefishByDay(folder + u"/whitefish.csv"_s)) {
        Trip trip = surveyTrip(6, u"RIVER SURVEY"_s, u"S-30"_s, u"Electrofisher"_s);
        trip.date = QDate(kYear, day.month(), day.day());
        trip.catchKg = leadingNumber(samplingWeightText(bodyWeightSum(fish)));
        const StoredOperation operation = recordTrip(connection, catalogue, trip);
        storeSingleSpecies(connection, operation, whitefish, trip.catchKg);
        StoredPart stored;
        storeGonadSample(connection,
                         {.operation = operation, .species = whitefish, .samplingWeight = trip.catchKg, .fish = fish},
                         stored, [] {});
        storeLengthSample(connection, {.operation = operation,
                                       .species = whitefish,
                                       .weight = trip.catchKg,
                                       .interval = 2,
                                       .classes = lengthsOf(fish)});
    }
}

}  // namespace

void recordSurveys(Connection& connection, const Catalogue& catalogue, const QString& dataFolder) {
    recordHake(connection, catalogue, dataFolder);
    recordGoatfish(connection, catalogue, dataFolder);
    recordWhitefish(connection, catalogue, dataFolder);
}

}  // namespace kelvora::demo
