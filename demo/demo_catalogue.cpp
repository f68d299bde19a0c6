#include "demo/demo_catalogue.h"

#include "data/csv_reader.h"
#include "data/transaction.h"
#include "records/keys.h"
#include "records/vessels.h"

using namespace Qt::StringLiterals;

namespace kelvora::demo {
namespace {

struct Area {
    QString name, description;
};

const std::vector<Area>& areas() {
    static const std::vector<Area> all = {
        {u"VIIe"_s, u"Western English Channel"_s},
        {u"VIIf"_s, u"Bristol Channel"_s},
        {u"VIIg"_s, u"Celtic Sea North"_s},
        {u"VIIa"_s, u"Irish Sea"_s},
        {u"IVa"_s, u"Northern North Sea"_s},
        {u"GSA 10"_s, u"Southern and Central Tyrrhenian Sea"_s},
        {u"MNB"_s, u"Manila Bay"_s},
        {u"LDR"_s, u"Lower Duncan River"_s},
    };
    return all;
}

/// Vessels of the surveys, which are in no register of fishing vessels: the fields of an import file.
const std::vector<QStringList>& surveyVessels() {
    const auto vessel = [](const QString& row) { return row.split(u','); };
    static const std::vector<QStringList> all = {
        vessel(u"SURVEY TRAWLER,S-10,In Board,450,24,Campania,105,Trawl,35,20,4"_s),
        vessel(u"BAY SURVEY,S-20,In Board,120,14,Luzon,22,Trawl,25,15,3"_s),
        vessel(u"RIVER SURVEY,S-30,Out Board,60,6,British Columbia,1.5,Electrofisher,0,0,0"_s),
    };
    return all;
}

}  // namespace

const std::vector<Port>& ports() {
    static const std::vector<Port> all = {
        {u"England"_s, u"Looe"_s, {u"VIIe"_s}},
        {u"Wales"_s, u"Milford Haven"_s, {u"VIIf"_s, u"VIIg"_s}},
        {u"Northern Ireland"_s, u"Kilkeel"_s, {u"VIIa"_s}},
        {u"Scotland"_s, u"Lerwick"_s, {u"IVa"_s}},
        {u"Campania"_s, u"Salerno"_s, {u"GSA 10"_s}},
        {u"Luzon"_s, u"Manila Bay"_s, {u"MNB"_s}},
        {u"British Columbia"_s, u"Lower Duncan River"_s, {u"LDR"_s}},
    };
    return all;
}

const std::vector<Fishery>& fisheries() {
    static const std::vector<Fishery> all = {
        {u"Pot"_s, u"Parlour pots"_s, 35, 35, 12, 1},     {u"Trawl"_s, u"Bottom otter trawl"_s, 70, 70, 4, 2},
        {u"Net"_s, u"Set gill net"_s, 55, 50, 6, 1},      {u"Line"_s, u"Handline"_s, 40, 20, 8, 1},
        {u"Dredge"_s, u"Scallop dredge"_s, 45, 45, 9, 2}, {u"Electrofisher"_s, u"From a boat"_s, 2, 1, 3, 1},
    };
    return all;
}

std::vector<QStringList> recordsOf(const QString& path) {
    std::vector<QStringList> records;
    for (const CsvRecord& record : readCsv(CsvReader(path))) {
        records.push_back(record.fields);
    }
    records.erase(records.begin());
    return records;
}

Catalogue::Catalogue(Connection& connection, const QString& sourceFolder) : m_connection(connection) {
    Transaction transaction(connection);
    storePlaces();
    storeVessels(sourceFolder + u"/demo/data"_s);
    storeSpecies(sourceFolder);
    transaction.commit();
}

int Catalogue::number(const Sql& query, QStringView column) const {
    const ResultSet found = m_connection.query(query);
    if (found.isEmpty()) {
        throw DataError(
            u"The demonstration names what it has not stored: %1"_s.arg(QString::fromStdString(query.prepared())));
    }
    return found.integer(0, column).value();
}

int Catalogue::port(const QString& name) const {
    return number(Sql("select samplingid from samplingport where samplingname = ") << name, u"samplingid");
}

int Catalogue::method(const QString& gear) const {
    return number(Sql("select methodid from Fishing_method inner join Fishing_gear on Fishing_method.gearid ="
                      " Fishing_gear.gearid where guname = ")
                      << gear,
                  u"methodid");
}

ChosenSpecies Catalogue::species(const QString& genus, const QString& name) const {
    const Sql query = Sql("select fishno from fish where genus = ") << genus << " and fishname = " << name;
    return {number(query, u"fishno"), genus + u' ' + name};
}

void Catalogue::storePlaces() {
    for (const Port& port : ports()) {
        const int state = nextState(m_connection);
        m_connection.execute(Sql("insert into state values(") << state << "," << port.state << ")");
        m_connection.execute(Sql("insert into samplingport values(")
                             << nextSamplingPort(m_connection) << "," << port.name << "," << state << ")");
    }
    for (const Area& area : areas()) {
        m_connection.execute(Sql("insert into fishing_area values(") << area.name << "," << area.description << ")");
    }
    for (const Fishery& fishery : fisheries()) {
        const int gear = nextGear(m_connection);
        m_connection.execute(Sql("insert into Fishing_gear values(") << gear << "," << fishery.gear << ")");
        m_connection.execute(Sql("insert into Fishing_method values(")
                             << nextMethod(m_connection) << "," << fishery.method << "," << gear << ")");
    }
}

void Catalogue::storeVessels(const QString& folder) {
    std::vector<QStringList> vessels = recordsOf(folder + u"/vessels.csv"_s);
    vessels.insert(vessels.end(), surveyVessels().begin(), surveyVessels().end());
    for (const QStringList& fields : vessels) {
        Vessel vessel = vesselOf(fields);
        vessel.gear = number(Sql("select gearid from Fishing_gear where guname = ") << vessel.gearName, u"gearid");
        addvessel2(m_connection, vessel);
    }
}

void Catalogue::storeSpecies(const QString& sourceFolder) {
    std::vector<QStringList> all = recordsOf(sourceFolder + u"/tests/files/species_import_world_fishes.csv"_s);
    for (const QStringList& landed : recordsOf(sourceFolder + u"/demo/data/landed_species.csv"_s)) {
        all.push_back(landed.mid(1, 4));
    }
    all.push_back({u"Mullidae"_s, u"Upeneus"_s, u"vittatus"_s, u"yellowstriped goatfish"_s});
    for (const QStringList& fish : all) {
        const ResultSet known = m_connection.query(Sql("select fishno from fish where genus = ")
                                                   << fish[1] << " and fishname = " << fish[2]);
        if (known.isEmpty()) {
            m_connection.execute(Sql("insert into fish(fishno,family,genus,fishname,common_name) values(")
                                 << nextSpecies(m_connection) << "," << fish[0] << "," << fish[1] << "," << fish[2]
                                 << "," << fish[3] << ")");
        }
    }
}

}  // namespace kelvora::demo
