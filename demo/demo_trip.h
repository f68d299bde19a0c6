#pragma once

#include "demo/demo_catalogue.h"
#include "records/operation_store.h"

#include <QDate>

namespace kelvora::demo {

using namespace Qt::StringLiterals;

/// A fishing trip that was sampled when it was landed.
struct Trip {
    Port port;
    QString area;
    QString vessel, registerId;
    Fishery fishery;
    QDate date;
    double catchKg = 0;
    QString recorder;
    QString note;
    QString latitude = u"0"_s;  ///< whole degrees; 0 at both where no position was recorded
    QString longitude = u"0"_s;
};

/// Records a trip as the entry screen does, after the checks that the screen makes; returns its number.
StoredOperation recordTrip(Connection& connection, const Catalogue& catalogue, const Trip& trip);

/// The trips of the four ports in every month, with the composition of their catches.
void recordLandings(Connection& connection, const Catalogue& catalogue, const QString& dataFolder);

/// The surveys that measured hake, goatfish and whitefish.
void recordSurveys(Connection& connection, const Catalogue& catalogue, const QString& dataFolder);

}  // namespace kelvora::demo
