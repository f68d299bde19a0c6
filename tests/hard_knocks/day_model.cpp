#include "day_model.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvora::test::day {
namespace {

const QString kSingle = u"1"_s;

bool isLike(const Row& row, const Row& like) {
    return std::equal(like.begin(), like.end(), row.begin(),
                      [](const QString& wanted, const QString& cell) { return wanted.isNull() || wanted == cell; });
}

/// With two decimals: "12.50".
QString fixed(long long hundredths) {
    return u"%1.%2"_s.arg(hundredths / 100).arg(hundredths % 100, 2, 10, QChar(u'0'));
}

/// The quotient of two whole numbers, rounded half up.
long long rounded(long long dividend, long long divisor) {
    if (divisor <= 0) {
        qFatal("a part of nothing");
    }
    return (2 * dividend + divisor) / (2 * divisor);
}

}  // namespace

QString decimal(long long hundredths) {
    constexpr int digits = 15;
    return QString::number(static_cast<double>(hundredths) / 100, 'g', digits);
}

long long hundredths(const QString& decimal) {
    return std::llround(decimal.toDouble() * 100);
}

Model::Model(const QStringList& file) {
    for (const QString& row : file) {
        add(row.split(u'|'));
    }
}

std::vector<Row> Model::rows(const Row& like) const {
    std::vector<Row> found;
    std::ranges::copy_if(m_rows, std::back_inserter(found), [&](const Row& row) { return isLike(row, like); });
    return found;
}

Row& Model::row(const Row& like) {
    return *std::ranges::find_if(m_rows, [&](const Row& row) { return isLike(row, like); });
}

void Model::remove(const Row& like) {
    std::erase_if(m_rows, [&](const Row& row) { return isLike(row, like); });
}

QString Model::nextKey(const Row& like, int first) const {
    int next = first;
    for (const Row& row : rows(like)) {
        next = std::max(next, row[1].toInt() + 1);
    }
    return QString::number(next);
}

QString Model::speciesName(const QString& species) const {
    const Row fish = rows({u"fish"_s, species}).front();
    return fish[3] + u' ' + fish[4];
}

void Model::addGroup(const QString& operation, const QString& name, int total, const std::map<QString, int>& weights) {
    int sample = 0;
    for (const auto& [species, weight] : weights) {
        sample += weight;
    }
    const long long factor = rounded(static_cast<long long>(total) * 100, sample);
    const QString group = nextKey({u"group_main"_s, {}, operation}, 2);
    add({u"group_main"_s, group, operation, name, decimal(total)});
    for (const auto& [species, weight] : weights) {
        add({u"group_composition"_s, operation, species, group, decimal(weight), decimal(weight / 100 * factor)});
    }
}

void Model::addSingleSpecies(const QString& operation, const QString& species, int weight) {
    const Row group = {u"group_main"_s, kSingle, operation};
    if (!has(group)) {
        add(group + Row{u"Single species"_s, u"0"_s});
    }
    QString& total = row(group)[4];
    total = decimal(hundredths(total) + weight);
    add({u"group_composition"_s, operation, species, kSingle, decimal(weight), decimal(weight)});
}

void Model::removeSingleSpecies(const QString& operation, const QString& species) {
    const Row group = {u"group_main"_s, kSingle, operation};
    const Row weighed = {u"group_composition"_s, operation, species, kSingle};
    QString& total = row(group)[4];
    total = decimal(hundredths(total) - hundredths(row(weighed)[4]));
    remove(weighed);
    if (!has({u"group_composition"_s, operation, {}, kSingle})) {
        remove(group);
    }
}

void Model::addClass(const QString& operation, const QString& species, int lower, const QString& frequency) {
    const int upper = lower + row({u"fish"_s, species})[6].toInt();
    add({u"length_detail"_s, operation, species, QString::number(lower), QString::number(upper),
         decimal((lower + upper) * 100 / 2), frequency});
}

void Model::addFish(const QString& operation, const QString& species, const QStringList& measures) {
    const auto number = rows({u"gonad_detail"_s, operation, species}).size() + 1;
    add(Row{u"gonad_detail"_s, operation, species, QString::number(number)} + measures);
}

QStringList Model::file() const {
    QStringList lines;
    for (const Row& row : m_rows) {
        lines.append(row.join(u'|'));
    }
    lines.sort();
    return lines;
}

QStringList Model::catchByState(int year) const {
    std::map<QString, std::pair<int, long long>> groups;
    long long all = 0;
    for (const Row& operation : rows({u"operation"_s})) {
        if (operation[4].startsWith(QString::number(year))) {
            const Row port = rows({u"port"_s, operation[2]}).front();
            auto& [count, sum] = groups[rows({u"state"_s, port[3]}).front()[2]];
            ++count;
            sum += hundredths(operation[15]);
            all += hundredths(operation[15]);
        }
    }
    QStringList lines;
    for (const auto& [state, group] : groups) {
        lines.append(Row{state, QString::number(group.first), decimal(group.second),
                         fixed(rounded(group.second * 100 * 100, all))}
                         .join(u'|'));
    }
    return lines;
}

QStringList Model::composition(const QString& operation) const {
    std::map<QString, long long> sums;
    long long all = 0;
    for (const Row& weighed : rows({u"group_composition"_s, operation})) {
        sums[speciesName(weighed[2])] += hundredths(weighed[5]);
        all += hundredths(weighed[5]);
    }
    QStringList lines;
    for (const auto& [name, sum] : sums) {
        lines.append(Row{name, fixed(sum), fixed(rounded(sum * 100 * 100, all))}.join(u'|'));
    }
    return lines;
}

}  // namespace kelvora::test::day
