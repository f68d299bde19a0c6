#pragma once

#include "controls/screen.h"
#include "data/connection.h"
#include "support/planned_dialogs.h"

#include <QStringList>
#include <QTemporaryDir>

namespace kelvora::test {

/// The rows of a table, each as its values joined by "|"; a null reads "null".
QStringList rows(const ResultSet& table);
inline QStringList rows(Connection& db, const Sql& sql) {
    return rows(db.query(sql));
}
/// The rows of all tables but the accounts, each beginning with what it is: what a change left alone is compared.
QStringList wholeFile(Connection& db);
/// The rows that are not in a file any more ("- …") and those that came ("+ …").
QStringList changes(const QStringList& before, const QStringList& after);

/// What a file holds; empty if it cannot be read.
QByteArray bytesOf(const QString& path);

/// A data file of a test's own with its tables and first account, a session signed in as "Port Sampler", planned boxes,
/// and a connection to look at the file and to fill it. All goes with the object.
class TemporaryStore {
public:
    TemporaryStore();

    [[nodiscard]] QString path() const { return m_path; }
    /// A path inside the test's folder.
    [[nodiscard]] QString file(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] Context context() { return {m_path, session, dialogs}; }
    Connection& db() { return *m_db; }

    QStringList rows(const Sql& sql) { return test::rows(*m_db, sql); }
    QStringList rows(Literal sql) { return rows(Sql(sql)); }
    QStringList wholeFile() { return test::wholeFile(*m_db); }
    void execute(Literal sql) { m_db->execute(Sql(sql)); }
    void execute(const std::vector<Literal>& statements) {
        for (const Literal& sql : statements) {
            execute(sql);
        }
    }

    /// Two of everything that operations refer to: files/reference_rows.sql.
    void addReferenceRows() { add(u"reference_rows.sql"_s); }
    /// Over these, three operations of 2004 with their samples: files/small_year.sql.
    void addSmallYear() {
        addReferenceRows();
        add(u"small_year.sql"_s);
    }

    Session session{u"Administrator"_s, u"kelvora"_s, u"Port Sampler"_s};
    PlannedDialogs dialogs;

private:
    void add(const QString& name);

    QTemporaryDir m_folder;
    QString m_path;
    std::unique_ptr<Connection> m_db;
};

}  // namespace kelvora::test
