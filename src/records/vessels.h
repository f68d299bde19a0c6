#pragma once

#include "data/connection.h"

#include <QStringList>

#include <array>
#include <functional>

namespace kelvora {

/// A fishing vessel as it is typed or as a file has it; power, length and size are texts until they are stored.
struct Vessel {
    QString name, registerId, engineType, enginePower, length, state, size, gearName, netLength, netWidth, meshSize;
    int gear = 0;  ///< the key of its type of gear; 0 for none
};

/// A field of a vessel: where it is kept, and what it is called in an import file, in its preview and in the list of
/// the register. Widths are in pixels.
struct VesselField {
    QString Vessel::*text;
    Literal column;
    bool isNumber;
    QString header;
    QString previewCaption;
    int previewWidth;
    QString caption;
    int width;
};

/// In the order of the files and lists. The gear is written as its name there and stored as its key.
const std::array<VesselField, 11>& vesselFields();

/// The fields of a vessel in this order as a vessel.
Vessel vesselOf(const QStringList& fields);

/// The vessels whose gear is stored by their register ids, in the order of the fields.
Sql vesselRegister();
/// All vessels by name: vesselname, vesselid.
Sql vesselsByName();

/// Whether a vessel has this register id.
bool isRegisterIdStored(Connection& connection, const QString& registerId);
/// Whether a vessel is stored that this one is known by: one of its name, or of its register id if it has no name.
bool isVesselKnown(Connection& connection, const Vessel& vessel);
/// Whether a vessel is stored that this one repeats in every field. Its numbers must be numeric.
bool isVesselRepeated(Connection& connection, const Vessel& vessel);
bool isVesselUsed(Connection& connection, const QString& name);

/// Adds a vessel whose numbers are numeric, asks, and keeps it on Yes; returns the answer.
bool addvessel(Connection& connection, const Vessel& vessel, const std::function<bool()>& ask);
/// The same for one of which nothing but its register id is known.
bool addvessel(Connection& connection, const QString& registerId, const std::function<bool()>& ask);
/// Adds a vessel without a question.
void addvessel2(Connection& connection, const Vessel& vessel);
/// Deletes the vessels of a name, or without a name those of a register id; asks, and leaves them deleted on Yes.
/// Returns the answer.
bool deleteVessels(Connection& connection, const QString& name, const QString& registerId,
                   const std::function<bool()>& ask);

}  // namespace kelvora
