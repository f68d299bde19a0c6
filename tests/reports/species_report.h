#pragma once

#include "data/dates.h"
#include "data/transaction.h"
#include "support/screen_driver.h"
#include "worked_year.h"

#include <algorithm>

namespace kelvora::test {

/// The lines of a file behind its header, each as its fields.
inline std::vector<QStringList> linesOf(const char* name) {
    QFile file(QStringLiteral(KELVORA_TEST_FILES "/") + QString::fromLatin1(name));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("no file %s", name);
    }
    file.readLine();
    std::vector<QStringList> lines;
    while (!file.atEnd()) {
        lines.push_back(QString::fromUtf8(file.readLine()).trimmed().split(u','));
    }
    return lines;
}

/// A report about one species, opened over a store that a test has filled.
template <typename ReportScreenClass>
class SpeciesReport {
public:
    explicit SpeciesReport(TemporaryStore& store) : m_store(store), m_screen(store.context()) {}

    void search(const QString& year, const QString& species) {
        ui().choose(QStringLiteral("Year"), year);
        ui().choose(QStringLiteral("Species"), species);
        ui().press(QStringLiteral("Search"));
    }
    [[nodiscard]] QByteArray exported() {
        const QString path = m_store.file(QStringLiteral("report.csv"));
        m_store.dialogs.expectSaveFile(path);
        ui().press(QStringLiteral("EXPORT"));
        return contents(path);
    }
    [[nodiscard]] bool canExport() { return ui().enabled(QStringLiteral("EXPORT")); }
    [[nodiscard]] ScreenDriver ui() { return ScreenDriver(&m_screen); }
    ReportScreenClass& screen() { return m_screen; }

private:
    TemporaryStore& m_store;
    ReportScreenClass m_screen;
};

inline QStringList texts(const char* joined) {
    return QString::fromLatin1(joined).split(u';');
}

inline QByteArray exportDay() {
    return "EXPORT Date : " + shortDate(QDate::currentDate()).toLocal8Bit() + "\r\n";
}

}  // namespace kelvora::test
