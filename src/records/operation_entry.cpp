#include "records/operation_entry.h"

#include "data/numbers.h"

namespace kelvora {
namespace {

double value(const QString& text) {
    return toNumber(text).value();
}

}  // namespace

Sql insertStatement(const OperationEntry& entry, int optid, int portKey) {
    return Sql("insert into fishoperation values(")
           << optid << "," << portKey << "," << entry.recorder << "," << entry.date << "," << entry.method.value()
           << "," << value(entry.latitudeDec) << "," << value(entry.latitudeMin) << "," << value(entry.longitudeDec)
           << "," << value(entry.longitudeMin) << "," << value(entry.bottomDepth) << "," << value(entry.fishingDepth)
           << "," << entry.fishingTime << "," << value(entry.hauls) << "," << value(entry.duration) << ","
           << value(entry.totalCatch) << "," << entry.note << "," << entry.vesselName << "," << entry.chosenArea << ")";
}

}  // namespace kelvora
