#include "demo/demo_year.h"

#include "data/numbers.h"
#include "data/store.h"
#include "demo/demo_trip.h"
#include "records/keys.h"
#include "records/operation.h"

using namespace Qt::StringLiterals;

namespace kelvora {

StoredOperation demo::recordTrip(Connection& connection, const Catalogue& catalogue, const Trip& trip) {
    const QString none = u"0"_s;
    const OperationEntry entry{.state = trip.port.state,
                               .port = trip.port.name,
                               .date = trip.date,
                               .vesselName = trip.vessel,
                               .registerId = trip.registerId,
                               .method = QString::number(catalogue.method(trip.fishery.gear)),
                               .area = trip.area,
                               .latitudeDec = trip.latitude,
                               .latitudeMin = none,
                               .longitudeDec = trip.longitude,
                               .longitudeMin = none,
                               .fishingTime = u"Day"_s,
                               .bottomDepth = QString::number(trip.fishery.bottomDepth),
                               .fishingDepth = QString::number(trip.fishery.fishingDepth),
                               .hauls = QString::number(trip.fishery.hauls),
                               .duration = QString::number(trip.fishery.days),
                               .totalCatch = plainText(trip.catchKg),
                               .recorder = trip.recorder,
                               .note = trip.note};
    if (const auto refusal = refusalOf(entry)) {
        throw DataError(u"%1 on %2: %3"_s.arg(trip.port.name, trip.date.toString(Qt::ISODate), refusal->message));
    }
    const int operation = nextOperation(connection);
    insertOperation(connection, entry, operation, catalogue.port(trip.port.name));
    return storedOperation(connection, operation).value();
}

void makeDemoYear(const QString& path, const QString& sourceFolder) {
    prepareStore(path);
    Connection connection(path);
    const demo::Catalogue catalogue(connection, sourceFolder);
    const QString data = sourceFolder + u"/demo/data"_s;
    demo::recordLandings(connection, catalogue, data);
    demo::recordSurveys(connection, catalogue, data);
}

}  // namespace kelvora
