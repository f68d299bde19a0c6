#pragma once

#include <QStringList>

#include <map>
#include <vector>

namespace kelvora::test::day {

/// The cells of a row of the file, its table in front.
using Row = QStringList;

/// What a data file must hold after what a sampler did, kept without any part of the program. Weights and measures are
/// calculated in whole hundredths, so that nothing here rounds but what the program is to round.
class Model {
public:
    explicit Model(const QStringList& file);

    /// The rows that begin with these cells; a null one stands for any.
    [[nodiscard]] std::vector<Row> rows(const Row& like) const;
    /// The first of them, to be changed.
    Row& row(const Row& like);
    [[nodiscard]] bool has(const Row& like) const { return !rows(like).empty(); }
    void add(const Row& row) { m_rows.push_back(row); }
    void remove(const Row& like);
    /// The number behind the last of these rows.
    [[nodiscard]] QString nextKey(const Row& like, int first = 1) const;

    [[nodiscard]] QString speciesName(const QString& species) const;
    /// A group after its raising, as it is stored; weights by species.
    void addGroup(const QString& operation, const QString& name, int total, const std::map<QString, int>& weights);
    void addSingleSpecies(const QString& operation, const QString& species, int weight);
    void removeSingleSpecies(const QString& operation, const QString& species);
    void addClass(const QString& operation, const QString& species, int lower, const QString& frequency);
    void addFish(const QString& operation, const QString& species, const QStringList& measures);

    /// All rows as TemporaryStore::wholeFile() gives them, sorted.
    [[nodiscard]] QStringList file() const;
    /// The rows of the yearly report by state: "Alpha|2|200.5|76.97".
    [[nodiscard]] QStringList catchByState(int year) const;
    /// An operation's composition as the screens show it.
    [[nodiscard]] QStringList composition(const QString& operation) const;

private:
    std::vector<Row> m_rows;
};

/// The shortest text of hundredths, 12.5 of 1250, and back.
QString decimal(long long hundredths);
long long hundredths(const QString& decimal);

}  // namespace kelvora::test::day
