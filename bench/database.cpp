#include "database.h"

#include "data/store.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <set>
#include <stdexcept>
#include <vector>

using namespace Qt::StringLiterals;

namespace kelvora::bench {
namespace {

/// Counts up whenever other rows are generated, so that a file of before is not taken for one of now.
constexpr int kVersion = 3;

std::string numbered(const char* name, int number, int digits) {
    return u"%1 %2"_s.arg(QString::fromLatin1(name)).arg(number, digits, 10, QLatin1Char('0')).toStdString();
}

/// Fills one data file. Numbers come from the generator alone: a distribution of the library differs between compilers.
class Generator {
public:
    Generator(SQLite::Database& database, const Size& size) : m_db(database), m_size(size) {}

    void run() {
        addReferences();
        for (int number = 1; number <= m_size.operations; ++number) {
            addOperation(number);
        }
    }

private:
    struct Weighed {
        int species;
        double weight;
    };

    template <typename... Values>
    void insert(SQLite::Statement& statement, const Values&... values) {
        SQLite::bind(statement, values...);
        statement.exec();
        statement.reset();
    }
    SQLite::Statement into(const char* table, int columns) {
        std::string marks = "?";
        for (int i = 1; i < columns; ++i) {
            marks += ",?";
        }
        return {m_db, std::string("INSERT INTO ") + table + " VALUES (" + marks + ")"};
    }

    double unit() { return static_cast<double>(m_random() >> 11U) * 0x1.0p-53; }
    int between(int low, int high) { return low + static_cast<int>(unit() * (high - low + 1)); }
    double decimal(double low, double high) { return std::round((low + unit() * (high - low)) * 100) / 100; }
    /// One of so many, the low numbers more often: a port has its regular boats, and a catch its common species.
    int skewed(int count, double skew) { return 1 + static_cast<int>(count * std::pow(unit(), skew)); }

    void addReferences();
    void addOperation(int number);
    void addFishingData(int number, double total);
    std::vector<Weighed> addGroup(int number, int group, int species);
    void addLengths(int number, const Weighed& sampled);
    void addFish(int number, const Weighed& sampled);

    SQLite::Database& m_db;
    const Size& m_size;
    std::mt19937_64 m_random{20251231};  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same rows on every machine
    SQLite::Statement m_operation = into("fishoperation", 18);
    SQLite::Statement m_group = into("group_main", 4);
    SQLite::Statement m_composition = into("group_composition", 5);
    SQLite::Statement m_length = into("length", 3);
    SQLite::Statement m_class = into("length_detail", 6);
    SQLite::Statement m_gonad = into("gonad", 3);
    SQLite::Statement m_fish = into("gonad_detail", 12);
};

void Generator::addReferences() {
    SQLite::Statement state = into("state", 2), port = into("samplingport", 3), gear = into("Fishing_gear", 2);
    SQLite::Statement method = into("Fishing_method", 3), area = into("fishing_area", 2), fish = into("fish", 6);
    SQLite::Statement vessel = into("vessel", 11);
    for (int i = 1; i <= kStates; ++i) {
        insert(state, i, numbered("State", i, 2));
    }
    for (int i = 1; i <= kPorts; ++i) {
        insert(port, i, numbered("Port", i, 3), 1 + (i - 1) * kStates / kPorts);
    }
    for (int i = 1; i <= kGears; ++i) {
        insert(gear, i, numbered("Gear", i, 2));
    }
    for (int i = 1; i <= kMethods; ++i) {
        insert(method, i, numbered("Method", i, 2), 1 + (i - 1) * kGears / kMethods);
    }
    for (int i = 1; i <= kAreas; ++i) {
        insert(area, numbered("Area", i, 2), numbered("Bank", i, 2));
    }
    for (int i = 1; i <= kSpecies; ++i) {
        const std::string genus = numbered("Genus", i / 5, 3), name = numbered("species", i, 3);
        insert(fish, i, numbered("Family", i / 20, 2), genus, name, numbered("Fish", i, 3), i % 2 == 0 ? 0.5 : 1.0);
    }
    for (int i = 1; i <= kVessels; ++i) {
        insert(vessel, vesselName(i).toStdString(), numbered("R", i, 4), numbered("State", 1 + i % kStates, 2),
               i % 4 == 0 ? "Out Board" : "In Board", decimal(20, 400), decimal(2, 60), decimal(5, 30), 1 + i % kGears,
               "4", "120", "8");
    }
}

void Generator::addOperation(int number) {
    std::vector<Weighed> caught;
    double total = 0;
    for (int group = 1; group <= 3; ++group) {
        for (const Weighed& one : addGroup(number, group, group == 1 ? between(4, 8) : between(5, 9))) {
            total += one.weight;
            const bool known = std::ranges::any_of(caught, [&](const Weighed& w) { return w.species == one.species; });
            if (!known) {
                caught.push_back(one);
            }
        }
    }
    addFishingData(number, std::round(total * 100) / 100);
    for (std::size_t i = 0; i < std::min<std::size_t>(caught.size(), unit() < 0.4 ? 4 : 3); ++i) {
        addLengths(number, caught[i]);
    }
    for (std::size_t i = 0; i < std::min<std::size_t>(caught.size(), 2); ++i) {
        addFish(number, caught[i]);
    }
}

void Generator::addFishingData(int number, double total) {
    const QDate first(kLastYear - m_size.years + 1, 1, 1);
    const qint64 days = first.daysTo(QDate(kLastYear + 1, 1, 1));
    const QDate day = first.addDays((number - 1) * days / m_size.operations);
    static const std::array<const char*, 3> times = {"Day", "Night", "Day and Night"};
    const int vessel = number % 97 == 0 ? kVessels + 1 : skewed(kVessels, 1.5);
    const int area = number % 101 == 0 ? kAreas + 1 : skewed(kAreas, 1.5);
    const int method = number % 103 == 0 ? kMethods + 1 : skewed(kMethods, 1.5);
    const int port = number % 107 == 0 ? kPorts + 1 : skewed(kPorts, 1.8);
    insert(m_operation, number, port, "Port Sampler", day.toString(Qt::ISODate).toStdString(), method, between(5, 13),
           between(0, 59), between(95, 110), between(0, 59), between(10, 90), between(5, 60),
           times.at(static_cast<std::size_t>(between(0, 2))), between(1, 12), between(1, 9), total, "",
           vesselName(vessel).toStdString(), numbered("Area", area, 2));
}

/// Group 1 holds the single species, whose weight is the whole catch; the others are raised from a sorted sample.
std::vector<Generator::Weighed> Generator::addGroup(int number, int group, int species) {
    std::set<int> drawn;
    std::vector<Weighed> caught;
    double sample = 0;
    for (int i = 0; i < species; ++i) {
        if (const int one = skewed(kSpecies, 2); drawn.insert(one).second) {
            caught.push_back({one, decimal(0.2, 40)});
            sample += caught.back().weight;
        }
    }
    const double factor = group == 1 ? 1 : between(2, 12);
    insert(m_group, group, number, group == 1 ? "Single species" : numbered("Group", group, 1),
           std::round(sample * factor * 100) / 100);
    for (Weighed& one : caught) {
        insert(m_composition, number, one.species, group, one.weight, one.weight * factor);
        one.weight *= factor;
    }
    return caught;
}

void Generator::addLengths(int number, const Weighed& sampled) {
    const double interval = sampled.species % 2 == 0 ? 0.5 : 1.0;
    insert(m_length, number, sampled.species, decimal(0.5, 8));
    double lower = 8 + sampled.species % 20 + between(0, 4) * interval;
    for (int left = between(14, 20); left > 0; --left, lower += interval) {
        insert(m_class, number, sampled.species, lower, lower + interval, lower + interval / 2, between(0, 25));
    }
}

void Generator::addFish(int number, const Weighed& sampled) {
    static const std::array<const char*, 4> sexes = {"Female", "Male", "None", "Juvenile"};
    const int count = between(17, 23);
    insert(m_gonad, number, sampled.species, decimal(1, 6));
    for (int i = 1; i <= count; ++i) {
        const int length = between(80, 400);
        const double body = decimal(20, 600);
        const double gonad = decimal(0.1, 20);
        const int sex = std::min(between(0, 8) / 3 + between(0, 1), 3);
        insert(m_fish, number, sampled.species, i, length, length - 20, length - 10, length - 25, body,
               sexes.at(static_cast<std::size_t>(sex)), between(1, 5), gonad, gonad * 100 / body);
    }
}

}  // namespace

Size sizeCalled(const QString& name) {
    for (const Size& size : {Size{u"small"_s, 100, 1}, Size{u"season"_s, 3000, 1}, Size{u"ceiling"_s, 32767, 10}}) {
        if (size.name == name) {
            return size;
        }
    }
    throw std::invalid_argument("no data file \"" + name.toStdString() + "\": small, season or ceiling");
}

QString databaseOf(const Size& size, const QString& folder) {
    QString path = QDir(folder).filePath(u"%1-v%2.sqlite"_s.arg(size.name).arg(kVersion));
    if (QFile::exists(path)) {
        return path;
    }
    const QString unfinished = path + u".part"_s;
    QFile::remove(unfinished);
    prepareStore(unfinished);
    {
        SQLite::Database database(unfinished.toStdString(), SQLite::OPEN_READWRITE);
        database.exec("PRAGMA synchronous=OFF; PRAGMA cache_size=-400000");
        SQLite::Transaction transaction(database);
        Generator(database, size).run();
        transaction.commit();
    }
    if (!QFile::rename(unfinished, path)) {
        throw std::runtime_error("the data file cannot be kept");
    }
    return path;
}

QString vesselName(int number) {
    return QString::fromStdString(numbered("Vessel", number, 4));
}

QString speciesName(int number) {
    return QString::fromStdString(numbered("Genus", number / 5, 3) + " " + numbered("species", number, 3));
}

}  // namespace kelvora::bench
