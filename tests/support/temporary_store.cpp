#include "support/temporary_store.h"

#include "data/store.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvora::test {
namespace {

/// In memory where there is such a folder: a test stores hundreds of fish, each for good on its own, and a disk takes
/// its time to promise that.
QString folderTemplate() {
    const QString memory = u"/dev/shm"_s;
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + u"/kelvora-test-XXXXXX"_s;
}

}  // namespace

QStringList rows(Connection& db, const Sql& sql) {
    QStringList lines;
    for (const auto& row : db.query(sql).rows) {
        QStringList values;
        for (const QVariant& value : row) {
            values.append(value.isValid() ? displayText(value) : u"null"_s);
        }
        lines.append(values.join(u'|'));
    }
    return lines;
}

QStringList wholeFile(Connection& db) {
    const auto rows = [&](Literal sql) { return test::rows(db, Sql(sql)); };
    QStringList all;
    all += rows("select 'state', * from state") + rows("select 'port', * from samplingport");
    all += rows("select 'gear', * from Fishing_gear") + rows("select 'method', * from Fishing_method");
    all += rows("select 'area', * from fishing_area") + rows("select 'stage', * from gonad_stage");
    all += rows("select 'vessel', * from vessel") + rows("select 'fish', * from fish");
    all += rows("select 'operation', * from fishoperation order by optid");
    all += rows("select 'gonad', * from gonad order by optid, spid");
    all += rows("select 'gonad_detail', * from gonad_detail order by optid, spid, samplingno");
    all += rows("select 'group_composition', * from group_composition order by optid, groupid, spid");
    all += rows("select 'group_main', * from group_main order by optid, groupid");
    all += rows("select 'length', * from length order by optid, spid");
    all += rows("select 'length_detail', * from length_detail order by optid, spid, lower1");
    return all;
}

QStringList changes(const QStringList& before, const QStringList& after) {
    QStringList gone = before;
    QStringList come;
    for (const QString& row : after) {
        if (!gone.removeOne(row)) {
            come.append(row);
        }
    }
    return gone.replaceInStrings(QRegularExpression(u"^"_s), u"- "_s) +
           come.replaceInStrings(QRegularExpression(u"^"_s), u"+ "_s);
}

TemporaryStore::TemporaryStore() : m_folder(folderTemplate()), m_path(m_folder.filePath(u"kelvora_db.sqlite"_s)) {
    prepareStore(m_path);
    m_db = std::make_unique<Connection>(m_path);
    session.login = u"Administrator"_s;
    session.password = u"kelvora"_s;
    session.userName = u"Port Sampler"_s;
}

void TemporaryStore::addReferenceRows() {
    execute("insert into state values (1, 'Alpha'), (2, 'Beta')");
    execute("insert into samplingport values (1, 'Abo', 1), (2, 'Bex', 1), (3, 'Cay', 2)");
    execute("insert into Fishing_gear values (1, 'Trawl'), (2, 'Gill net')");
    execute("insert into Fishing_method values (1, 'Otter board', 1), (2, 'Pair', 1), (3, 'Drift', 2)");
    execute("insert into fishing_area values ('A1', 'north bank'), ('A2', 'south bank')");
    execute(
        "insert into vessel values ('Sea Star', 'R-1', 'Alpha', 'In Board', 120, 30, 15, 1, '4', '20', '8'),"
        " ('Blue Fin', 'R-2', 'Beta', 'Out Board', 40, 5, 8, 2, '5', '100', '3')");
    execute(
        "insert into fish(fishno, family, genus, fishname, common_name) values"
        " (1, 'Scombridae', 'Rastrelliger', 'kanagurta', 'Indian mackerel'),"
        " (2, 'Mullidae', 'Upeneus', 'vittatus', 'Yellowstriped goatfish'),"
        " (3, 'Nemipteridae', 'Nemipterus', 'virgatus', 'Golden threadfin bream')");
}

void TemporaryStore::addOperation(int optid, int portid, const QString& date, int method, double catchKg,
                                  const QString& vessel, const QString& area) {
    m_db->execute(Sql("insert into fishoperation values (")
                  << optid << "," << portid << ",'Port Sampler'," << date << "," << method
                  << ",12,30,100,15,40,35,'Day',3,2," << catchKg << ",''," << vessel << "," << area << ")");
}

void TemporaryStore::addSamples(int optid) {
    const auto add = [&](Literal front, Literal behind) { m_db->execute(Sql(front) << optid << behind); };
    add("insert into group_main values (1,", ",'Single species',30)");
    add("insert into group_composition values (", ",1,1,30,30)");
    add("insert into group_main values (2,", ",'Trash',50)");
    add("insert into group_composition values (", ",3,2,5,50)");
    add("insert into length values (", ",1,2.5)");
    add("insert into length_detail values (", ",1,10,12,11,4)");
    add("insert into gonad values (", ",1,0.4)");
    add("insert into gonad_detail values (", ",1,1,100,90,95,85,200,'Male',2,10,5)");
}

void TemporaryStore::addSmallYear() {
    addReferenceRows();
    execute("insert into samplingport values (4, 'Dun', 2)");
    execute("insert into Fishing_method values (4, 'Longline', 2)");
    execute("insert into fishing_area values ('A3', 'nowhere')");
    execute("insert into vessel(vesselname, vesselid, gear) values ('Idle', 'R-9', 2)");
    execute("insert into fish(fishno, family, genus, fishname) values (4, 'Zeidae', 'Zeus', 'faber')");
    execute("update fish set classinterval = 2 where fishno = 1");
    addOperation(1, 1, u"2004-03-09"_s, 1, 120.5, u"Sea Star"_s, u"A1"_s);
    addOperation(2, 2, u"2004-04-01"_s, 3, 80, u"Blue Fin"_s, u"A2"_s);
    addOperation(3, 3, u"2004-05-01"_s, 2, 60, u"Sea Star"_s, u"A1"_s);
    addSamples(1);
    addSamples(2);
}

}  // namespace kelvora::test
