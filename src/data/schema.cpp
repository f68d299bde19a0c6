#include "data/schema.h"

namespace kelvora {

const std::vector<Table>& tables() {
// clang-format off
#define TEXT " TEXT COLLATE NOCASE"
#define ID " INTEGER"
#define NUMBER " REAL"
    // Dates are ISO text, whose order is the order of the days.
#define DATE " TEXT"
    static const std::vector<Table> all = {
        {"kelvora_user", {"login" TEXT " PRIMARY KEY", "passwd" TEXT, "uname" TEXT}, ""},
        {"state", {"stateid" ID " PRIMARY KEY", "statename" TEXT}, ""},
        {"samplingport", {"samplingid" ID " PRIMARY KEY", "samplingname" TEXT, "stateid" ID}, ""},
        // A vessel may be entered twice, or by its register id alone: no column is a key.
        {"vessel", {"vesselname" TEXT, "vesselid" TEXT, "flagstate" TEXT, "enginetype" TEXT, "enginepower" NUMBER,
                    "vesselsize" NUMBER, "vessellength" NUMBER, "gear" ID, "meshsize" TEXT, "netlength" TEXT,
                    "netwidth" TEXT}, ""},
        {"Fishing_gear", {"gearid" ID " PRIMARY KEY", "guname" TEXT}, ""},
        {"Fishing_method", {"methodid" ID " PRIMARY KEY", "methodname" TEXT, "gearid" ID}, ""},
        {"fishing_area", {"aname" TEXT " PRIMARY KEY", "describ" TEXT}, ""},
        {"fish", {"fishno" ID " PRIMARY KEY", "family" TEXT, "genus" TEXT, "fishname" TEXT, "common_name" TEXT,
                  "classinterval" NUMBER}, ""},
        {"fishoperation", {"optid" ID " PRIMARY KEY", "portid" ID, "interviewer" TEXT, "optdate" DATE,
                           "fishing_method" ID, "lat_dec" NUMBER, "lat_min" NUMBER, "lon_dec" NUMBER, "lon_min" NUMBER,
                           "bdepth" NUMBER, "fdepth" NUMBER, "fishingtime" TEXT, "nohaul" NUMBER, "dulation" NUMBER,
                           "estotal" NUMBER, "note" TEXT, "vesselid" TEXT, "areaid" TEXT}, ""},
        {"group_main", {"groupid" ID, "optid" ID, "groupname" TEXT, "totalsampling" NUMBER}, "optid, groupid"},
        {"group_composition", {"optid" ID, "spid" ID, "groupid" ID, "totalweight" NUMBER, "estotal" NUMBER},
         "optid, groupid, spid"},
        {"length", {"optid" ID, "spid" ID, "weight" NUMBER}, "optid, spid"},
        {"length_detail", {"optid" ID, "spid" ID, "lower1" NUMBER, "upper1" NUMBER, "midlength1" NUMBER,
                           "frequency1" NUMBER}, ""},
        {"gonad", {"optid" ID, "spid" ID, "samplingw" NUMBER}, "optid, spid"},
        {"gonad_detail", {"optid" ID, "spid" ID, "samplingno" ID, "tl" NUMBER, "bl" NUMBER, "fl" NUMBER, "sl" NUMBER,
                          "bw" NUMBER, "sex" TEXT, "stage" ID, "gw" NUMBER, "gsi" NUMBER}, "optid, spid, samplingno"},
        {"gonad_stage", {"stageid" ID " PRIMARY KEY", "stagename" TEXT}, ""},
    };
#undef TEXT
#undef ID
#undef NUMBER
#undef DATE
    // clang-format on
    return all;
}

std::vector<std::string> schemaStatements() {
    std::vector<std::string> statements;
    for (const Table& table : tables()) {
        std::string columns;
        for (const char* column : table.columns) {
            columns += (columns.empty() ? "" : ", ") + std::string(column);
        }
        if (*table.key != '\0') {
            columns += ", PRIMARY KEY (" + std::string(table.key) + ")";
        }
        statements.push_back("CREATE TABLE " + std::string(table.name) + " (" + columns + ")");
    }
    // The date index answers the yearly reports from the index alone; the others serve the finder and the deletes.
    statements.insert(
        statements.end(),
        {"CREATE INDEX operation_by_date ON fishoperation(optdate, portid, fishing_method, areaid, vesselid, estotal)",
         "CREATE INDEX operation_by_port ON fishoperation(portid)",
         "CREATE INDEX operation_by_method ON fishoperation(fishing_method)",
         "CREATE INDEX operation_by_area ON fishoperation(areaid)",
         "CREATE INDEX operation_by_vessel ON fishoperation(vesselid)",
         // A report of one port, method or area in a year. Those above stay: by them a finder's operations come in the
         // order of their numbers.
         "CREATE INDEX operation_by_port_and_date ON fishoperation(portid, optdate)",
         "CREATE INDEX operation_by_method_and_date ON fishoperation(fishing_method, optdate)",
         "CREATE INDEX operation_by_area_and_date ON fishoperation(areaid, optdate)",
         "CREATE INDEX vessel_by_name ON vessel(vesselname, vesselid)",
         // An import looks for every species of its file.
         "CREATE INDEX species_by_epithet ON fish(fishname)",
         "CREATE INDEX composition_by_species ON group_composition(optid, spid, estotal)",
         "CREATE INDEX length_class_by_sample ON length_detail(optid, spid)",
         "INSERT INTO gonad_stage VALUES (1, 'Immature'), (2, 'Maturing'), (3, 'Ripe'), (4, 'Spawning'), (5, 'Spent')",
         "INSERT INTO kelvora_user VALUES ('Administrator', 'kelvora', 'Administrator')",
         "PRAGMA application_id = " + std::to_string(kApplicationId),
         "PRAGMA user_version = " + std::to_string(kSchemaVersion)});
    return statements;
}

}  // namespace kelvora
