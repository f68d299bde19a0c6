#pragma once

#include "desk.h"

#include <QRandomGenerator>

#include <map>

struct sqlite3;

namespace kelvora::test {

/// A sampler who does one thing after another at the real screens, open side by side, chosen by chance, and writes into
/// a model what the data file must hold after it. The model is a copy of the file, kept without any part of the
/// program.
class Day {
public:
    Day(const QString& path, quint32 seed);
    ~Day();
    Day(const Day&) = delete;
    Day& operator=(const Day&) = delete;

    /// Does something and returns what it was. What the screens show and say is checked against the model.
    QString doSomething();
    /// The rows of the model, and those it had on the way: some things are stored in parts, each for good.
    QStringList file() { return contents().last(); }
    const QList<QStringList>& contents() const { return m_contents; }

private:
    /// Cells by their columns, without nulls.
    using Row = std::map<QString, QString>;
    std::vector<Row> sql(const QString& statements);
    void store();
    [[nodiscard]] int below(int limit) { return m_random.bounded(limit); }
    void checkLists(const ScreenDriver& hand, int place);
    /// Opens a screen, closed before now and then.
    ScreenDriver open(int place, const QString& tab);
    /// Opens a screen with an operation on it, found by one thing or another that it is known by.
    ScreenDriver openOn(const QString& operation, int place, const QString& tab);

    QRandomGenerator m_random;
    int m_names;
    sqlite3* m_model = nullptr;
    Desk m_desk;
    Connection m_reading;
    QList<QStringList> m_contents;
};

}  // namespace kelvora::test
