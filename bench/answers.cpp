#include "answers.h"

namespace kelvora::bench {
namespace {

const std::string kOperationTables =
    " FROM fishoperation o JOIN samplingport p ON p.samplingid = o.portid JOIN state s ON s.stateid = p.stateid JOIN "
    "Fishing_method m ON m.methodid = o.fishing_method JOIN Fishing_gear g ON g.gearid = m.gearid JOIN fishing_area a "
    "ON a.aname = o.areaid JOIN vessel v ON v.vesselname = o.vesselid WHERE ";
const std::string kDetails =
    "SELECT o.*, a.aname, g.guname, m.methodname, p.samplingname, s.statename, v.vesselname" + kOperationTables;
/// The species are summed by their number first, and named and rounded then.
const std::string kWeighed = "SELECT genus || ' ' || fishname AS n, printf('%.2f', t), printf('%.2f', t * 100 / 5e6) ";

}  // namespace

Statements operator+(Statements left, const Statements& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Statements choices(const std::vector<std::string>& tables) {
    Statements all;
    for (const std::string& table : tables) {
        all.push_back("SELECT * FROM " + table);
    }
    return all;
}

Statements years(const std::string& table) {
    const std::string held =
        table == "fishoperation" ? "" : " AND EXISTS (SELECT 1 FROM " + table + " d WHERE d.optid = o.optid)";
    const std::string next = "(SELECT substr(optdate, 1, 4) FROM fishoperation o WHERE optdate ";
    return {"WITH RECURSIVE y(v) AS (SELECT " + next + "> ''" + held + " ORDER BY optdate LIMIT 1) UNION ALL SELECT " +
            next + ">= (v + 1) || ''" + held +
            " ORDER BY optdate LIMIT 1) FROM y WHERE v IS NOT NULL) "
            "SELECT CAST(v AS INTEGER) FROM y WHERE v IS NOT NULL"};
}

Statements foundBy(const std::string& condition) {
    return {"SELECT o.optid" + kOperationTables + condition + " ORDER BY o.optid",
            kDetails + "o.optid = (SELECT min(o.optid)" + kOperationTables + condition + ")"};
}

Statements details(int operation) {
    return {kDetails + "o.optid = " + std::to_string(operation)};
}

Statements samples(int operation) {
    const std::string of = " WHERE optid = " + std::to_string(operation);
    return details(operation) +
           Statements{kWeighed + "FROM (SELECT spid, sum(estotal) AS t FROM group_composition" + of +
                          " GROUP BY spid) JOIN fish ON fishno = spid ORDER BY n",
                      "SELECT groupname, groupid, totalsampling FROM group_main" + of + " ORDER BY groupid",
                      "SELECT genus || ' ' || fishname AS n, totalweight, estotal FROM group_composition JOIN fish ON "
                      "fishno = spid" +
                          of + " AND groupid = 1 ORDER BY n",
                      "SELECT genus, fishname, fishno, weight FROM length JOIN fish ON fishno = spid" + of,
                      "SELECT * FROM length_detail" + of + " AND spid = (SELECT min(spid) FROM length" + of +
                          ") ORDER BY lower1",
                      "SELECT genus, fishname, fishno, samplingw FROM gonad JOIN fish ON fishno = spid" + of,
                      "SELECT * FROM gonad_detail" + of + " AND spid = (SELECT min(spid) FROM gonad" + of + ")"};
}

std::string catches(const std::string& name, const std::string& joined) {
    return "SELECT " + name +
           " AS n, count(*), sum(estotal), printf('%.2f', sum(estotal) * 100 / 5e6) FROM fishoperation o" + joined +
           kOfTheYear + " GROUP BY n";
}

std::string compositionChoices(const std::string& name, const std::string& joined) {
    return "SELECT DISTINCT " + name + " FROM fishoperation o" + joined + kOfTheYear +
           " AND EXISTS (SELECT 1 FROM group_composition c WHERE c.optid = o.optid) ORDER BY 1";
}

std::string composition(const std::string& joined, const std::string& condition) {
    return kWeighed + "FROM (SELECT spid, sum(c.estotal) AS t FROM fishoperation o" + joined +
           " JOIN group_composition c ON c.optid = o.optid" + kOfTheYear + " AND " + condition +
           " GROUP BY spid) JOIN fish ON fishno = spid ORDER BY n";
}

std::string lengths(int species) {
    return "SELECT lower1, upper1, midlength1, substr(optdate, 6, 2) AS m, sum(frequency1) FROM fishoperation o JOIN "
           "length_detail d ON d.optid = o.optid" +
           kOfTheYear + " AND spid = " + std::to_string(species) + " GROUP BY lower1, upper1, midlength1, m";
}

std::string gonads(int species) {
    return "SELECT substr(optdate, 6, 2) AS m, sex, stage, count(*) FROM fishoperation o JOIN gonad_detail d ON "
           "d.optid = "
           "o.optid" +
           kOfTheYear + " AND spid = " + std::to_string(species) + " GROUP BY m, sex, stage";
}

Statements saved(const Statements& inserts) {
    return Statements{"BEGIN IMMEDIATE"} + inserts + Statements{"COMMIT"};
}

}  // namespace kelvora::bench
