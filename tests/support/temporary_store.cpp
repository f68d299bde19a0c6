#include "support/temporary_store.h"

#include "data/store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <SQLiteCpp/Database.h>

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

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TemporaryStore::TemporaryStore() : m_folder(folderTemplate()), m_path(m_folder.filePath(u"kelvora_db.sqlite"_s)) {
    prepareStore(m_path);
    m_db = std::make_unique<Connection>(m_path);
}

/// Runs the statements of a data file of the tests.
void TemporaryStore::add(const QString& name) {
    SQLite::Database(m_path.toStdString(), SQLite::OPEN_READWRITE)
        .exec(bytesOf(u"" KELVORA_TEST_FILES "/"_s + name).toStdString());
}

}  // namespace kelvora::test
