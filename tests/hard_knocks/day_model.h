#pragma once

#include <QDate>
#include <QStringList>

#include <map>
#include <vector>

namespace kelvora::test::day {

constexpr int kHundred = 100;

inline QString text(int number) {
    return QString::number(number);
}

/// What a data file must hold after what a sampler did, kept without any part of the program. Weights and measures are
/// whole hundredths, so that nothing here rounds but what the program is to round.
struct Fish {
    int length = 0, bodyWeight = 0, gonadWeight = 0, stage = 1;
    QString sex;
};
struct LengthClass {
    int lower = 0, upper = 0, frequency = 0;
};
struct Lengths {
    int weight = 0;
    std::vector<LengthClass> classes;
};
struct Group {
    QString name;
    int total = 0;
    std::map<int, std::pair<int, int>> species;  ///< weight and estimate
};
struct Operation {
    int port = 0, method = 0, total = 0;
    QDate date;
    QString vessel, area;
    std::map<int, Group> groups;
    std::map<int, Lengths> lengths;
    std::map<int, std::vector<Fish>> fish;
    std::map<int, int> fishWeights;  ///< of the samples, grams

    [[nodiscard]] std::vector<int> caught() const;
};
struct Port {
    QString name;
    int state = 0;
};
struct Species {
    QString family, genus, name;
    int interval = 0;  ///< 0 if none

    [[nodiscard]] QString shown() const { return genus + u' ' + name; }
};

struct Model {
    std::map<int, QString> states, gears;
    std::map<int, Port> ports;
    std::map<int, std::pair<QString, int>> methods;  ///< name and gear
    std::map<QString, QString> areas;
    std::map<int, Species> species;
    std::map<int, Operation> operations;

    /// A group after its raising, as it is stored.
    void addGroup(int operation, const QString& name, int total, const std::map<int, int>& weights);
    void addSingleSpecies(int operation, int species, int weight);
    void removeSingleSpecies(int operation, int species);
    /// The port, and states that have none left.
    void removePort(int port);
    [[nodiscard]] bool isUsed(int port) const;

    /// The rows of the file, each as TemporaryStore::wholeFile() gives it; vessels and stages left out.
    [[nodiscard]] QStringList rows() const;
    /// The rows of the yearly report by state: "Alpha|2|200.5|76.97".
    [[nodiscard]] QStringList catchByState(int year) const;
    /// An operation's composition as the screens show it.
    [[nodiscard]] QStringList composition(int operation) const;
};

/// The shortest decimal text of hundredths: 1250 gives "12.5".
QString decimal(long long hundredths);
/// With two decimals: "12.50".
QString fixedDecimal(long long hundredths);
/// The quotient of two whole numbers, rounded half up.
long long rounded(long long dividend, long long divisor);

template <typename Map>
int nextKey(const Map& map, int first = 1) {
    return map.empty() ? first : std::max(map.rbegin()->first + 1, first);
}

}  // namespace kelvora::test::day
