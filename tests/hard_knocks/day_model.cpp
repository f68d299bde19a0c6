#include "day_model.h"

#include <set>

namespace kelvora::test::day {
namespace {

/// Collects rows of values joined by "|".
struct Rows {
    template <typename... Values>
    void add(const Values&... values) {
        all.append(QStringList{values...}.join(u'|'));
    }
    QStringList all;
};

void addSamples(Rows& rows, const QString& number, const Operation& operation) {
    for (const auto& [id, group] : operation.groups) {
        rows.add(u"group_main"_qs, text(id), number, group.name, decimal(group.total));
        for (const auto& [species, weights] : group.species) {
            rows.add(u"group_composition"_qs, number, text(species), text(id), decimal(weights.first),
                     decimal(weights.second));
        }
    }
    for (const auto& [species, sample] : operation.lengths) {
        rows.add(u"length"_qs, number, text(species), decimal(sample.weight));
        for (const LengthClass& c : sample.classes) {
            rows.add(u"length_detail"_qs, number, text(species), text(c.lower), text(c.upper),
                     decimal((c.lower + c.upper) * kHundred / 2), text(c.frequency));
        }
    }
    for (const auto& [species, grams] : operation.fishWeights) {
        constexpr int gramsToHundredths = 10;
        rows.add(u"gonad"_qs, number, text(species), decimal(grams / gramsToHundredths));
    }
    for (const auto& [species, all] : operation.fish) {
        int no = 0;
        for (const Fish& fish : all) {
            const QString length = text(fish.length);
            rows.add(u"gonad_detail"_qs, number, text(species), text(++no), length, length, length, length,
                     text(fish.bodyWeight), fish.sex, text(fish.stage), text(fish.gonadWeight),
                     decimal(fish.gonadWeight * kHundred * kHundred / fish.bodyWeight));
        }
    }
}

}  // namespace

QString decimal(long long hundredths) {
    QString shown = fixedDecimal(hundredths);
    while (shown.endsWith(u'0')) {
        shown.chop(1);
    }
    return shown.endsWith(u'.') ? shown.chopped(1) : shown;
}

QString fixedDecimal(long long hundredths) {
    return u"%1.%2"_qs.arg(hundredths / kHundred).arg(hundredths % kHundred, 2, 10, QChar(u'0'));
}

long long rounded(long long dividend, long long divisor) {
    return (2 * dividend + divisor) / (2 * divisor);
}

std::vector<int> Operation::caught() const {
    std::set<int> all;
    for (const auto& [id, group] : groups) {
        for (const auto& [species, weights] : group.species) {
            all.insert(species);
        }
    }
    return {all.begin(), all.end()};
}

void Model::addGroup(int operation, const QString& name, int total, const std::map<int, int>& weights) {
    Operation& to = operations[operation];
    int sample = 0;
    for (const auto& [species_, weight] : weights) {
        sample += weight;
    }
    const long long factor = rounded(static_cast<long long>(total) * kHundred, sample);
    Group& group = to.groups[nextKey(to.groups, 2)];
    group.name = name;
    group.total = total;
    for (const auto& [fish, weight] : weights) {
        group.species[fish] = {weight, static_cast<int>(weight / kHundred * factor)};
    }
}

void Model::addSingleSpecies(int operation, int fish, int weight) {
    Group& single = operations[operation].groups[1];
    single.name = u"Single species"_qs;
    single.species[fish] = {weight, weight};
    single.total += weight;
}

void Model::removeSingleSpecies(int operation, int fish) {
    Operation& from = operations[operation];
    Group& single = from.groups[1];
    single.total -= single.species[fish].first;
    single.species.erase(fish);
    if (single.species.empty()) {
        from.groups.erase(1);
    }
}

bool Model::isUsed(int port) const {
    return std::any_of(operations.begin(), operations.end(),
                       [port](const auto& one) { return one.second.port == port; });
}

void Model::removePort(int port) {
    ports.erase(port);
    std::erase_if(states, [this](const auto& state) {
        return std::none_of(ports.begin(), ports.end(),
                            [&](const auto& one) { return one.second.state == state.first; });
    });
}

QStringList Model::rows() const {
    Rows rows;
    for (const auto& [id, name] : states) {
        rows.add(u"state"_qs, text(id), name);
    }
    for (const auto& [id, port] : ports) {
        rows.add(u"port"_qs, text(id), port.name, text(port.state));
    }
    for (const auto& [id, name] : gears) {
        rows.add(u"gear"_qs, text(id), name);
    }
    for (const auto& [id, method] : methods) {
        rows.add(u"method"_qs, text(id), method.first, text(method.second));
    }
    for (const auto& [name, description] : areas) {
        rows.add(u"area"_qs, name, description);
    }
    for (const auto& [id, fish] : species) {
        rows.add(u"fish"_qs, text(id), fish.family, fish.genus, fish.name, QString(),
                 fish.interval > 0 ? text(fish.interval) : u"null"_qs);
    }
    for (const auto& [id, operation] : operations) {
        rows.add(u"operation"_qs, text(id), text(operation.port), u"Port Sampler"_qs,
                 operation.date.toString(Qt::ISODate), text(operation.method), u"0|0|0|0|0|0|Day|0|0"_qs,
                 decimal(operation.total), QString(), operation.vessel, operation.area);
        addSamples(rows, text(id), operation);
    }
    rows.all.sort();
    return rows.all;
}

QStringList Model::catchByState(int year) const {
    std::map<QString, std::pair<int, long long>> groups;
    long long all = 0;
    for (const auto& [id, operation] : operations) {
        if (operation.date.year() == year) {
            auto& [count, sum] = groups[states.at(ports.at(operation.port).state)];
            ++count;
            sum += operation.total;
            all += operation.total;
        }
    }
    Rows rows;
    for (const auto& [state, group] : groups) {
        rows.add(state, text(group.first), decimal(group.second),
                 fixedDecimal(rounded(group.second * kHundred * kHundred, all)));
    }
    return rows.all;
}

QStringList Model::composition(int operation) const {
    std::map<QString, long long> sums;
    long long all = 0;
    for (const auto& [id, group] : operations.at(operation).groups) {
        for (const auto& [fish, weights] : group.species) {
            sums[species.at(fish).shown()] += weights.second;
            all += weights.second;
        }
    }
    Rows rows;
    for (const auto& [name, sum] : sums) {
        rows.add(name, fixedDecimal(sum), fixedDecimal(rounded(sum * kHundred * kHundred, all)));
    }
    return rows.all;
}

}  // namespace kelvora::test::day
