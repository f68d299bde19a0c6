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

}  // namespace kelvora
