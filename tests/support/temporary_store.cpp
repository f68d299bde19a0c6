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

QStringList rows(const ResultSet& table) {
    QStringList lines;
    for (const auto& row : table.rows) {
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
    return rows("select 'state', * from state") + rows("select 'port', * from samplingport") +
           rows("select 'gear', * from Fishing_gear") + rows("select 'method', * from Fishing_method") +
           rows("select 'area', * from fishing_area") + rows("select 'stage', * from gonad_stage") +
           rows("select 'vessel', * from vessel") + rows("select 'fish', * from fish") +
           rows("select 'operation', * from fishoperation") + rows("select 'gonad', * from gonad") +
           rows("select 'gonad_detail', * from gonad_detail") +
           rows("select 'group_composition', * from group_composition") +
           rows("select 'group_main', * from group_main") + rows("select 'length', * from length") +
           rows("select 'length_detail', * from length_detail");
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
}

void TemporaryStore::addReferenceRows() {
    execute({"insert into state values (1, 'Alpha'), (2, 'Beta')",
             "insert into samplingport values (1, 'Abo', 1), (2, 'Bex', 1), (3, 'Cay', 2)",
             "insert into Fishing_gear values (1, 'Trawl'), (2, 'Gill net')",
             "insert into Fishing_method values (1, 'Otter board', 1), (2, 'Pair', 1), (3, 'Drift', 2)",
             "insert into fishing_area values ('A1', 'north bank'), ('A2', 'south bank')",
             "insert into vessel values ('Sea Star', 'R-1', 'Alpha', 'In Board', 120, 30, 15, 1, '4', '20', '8'),"
             " ('Blue Fin', 'R-2', 'Beta', 'Out Board', 40, 5, 8, 2, '5', '100', '3')",
             "insert into fish(fishno, family, genus, fishname, common_name) values"
             " (1, 'Scombridae', 'Rastrelliger', 'kanagurta', 'Indian mackerel'),"
             " (2, 'Mullidae', 'Upeneus', 'vittatus', 'Yellowstriped goatfish'),"
             " (3, 'Nemipteridae', 'Nemipterus', 'virgatus', 'Golden threadfin bream')"});
}

void TemporaryStore::addSmallYear() {
    addReferenceRows();
    execute({"insert into samplingport values (4, 'Dun', 2)", "insert into Fishing_method values (4, 'Longline', 2)",
             "insert into fishing_area values ('A3', 'nowhere')",
             "insert into vessel(vesselname, vesselid, gear) values ('Idle', 'R-9', 2)",
             "insert into fish(fishno, family, genus, fishname) values (4, 'Zeidae', 'Zeus', 'faber')",
             "update fish set classinterval = 2 where fishno = 1",
             "insert into fishoperation with day(number, port, day, method, kg, vessel, area) as (values"
             " (1, 1, '2004-03-09', 1, 120.5, 'Sea Star', 'A1'), (2, 2, '2004-04-01', 3, 80, 'Blue Fin', 'A2'),"
             " (3, 3, '2004-05-01', 2, 60, 'Sea Star', 'A1')) select number, port, 'Port Sampler', day, method, 12, 30,"
             " 100, 15, 40, 35, 'Day', 3, 2, kg, '', vessel, area from day",
             "insert into group_main values (1, 1, 'Single species', 30), (2, 1, 'Trash', 50),"
             " (1, 2, 'Single species', 30), (2, 2, 'Trash', 50)",
             "insert into group_composition values (1, 1, 1, 30, 30), (1, 3, 2, 5, 50), (2, 1, 1, 30, 30),"
             " (2, 3, 2, 5, 50)",
             "insert into length values (1, 1, 2.5), (2, 1, 2.5)",
             "insert into length_detail values (1, 1, 10, 12, 11, 4), (2, 1, 10, 12, 11, 4)",
             "insert into gonad values (1, 1, 0.4), (2, 1, 0.4)",
             "insert into gonad_detail values (1, 1, 1, 100, 90, 95, 85, 200, 'Male', 2, 10, 5),"
             " (2, 1, 1, 100, 90, 95, 85, 200, 'Male', 2, 10, 5)"});
}

}  // namespace kelvora::test
