#include "day_sampler.h"

#include <array>

// The samples of an operation: how the sampler of the long day takes and corrects them.
namespace kelvora::test::day {
bool Sampler::weighSingleSpecies() {
    int operation = 0;
    const ScreenDriver frame =
        openSampling(operation, u"Species Composition"_qs, u"Species Composition"_qs, u"Species Composition"_qs)
            .within(u"Single species"_qs);
    if (operation == 0) {
        return false;
    }
    const auto fish = any(m_model.species);
    const int weight = 25 * (1 + below(400));
    frame.choose(u"Species"_qs, fish->second.shown());
    frame.type(u"Weight"_qs, decimal(weight));
    frame.press(u"Add"_qs);
    const auto& groups = m_model.operations[operation].groups;
    if (groups.contains(1) && groups.at(1).species.contains(fish->first)) {
        expect(u"Kelvora: This species is in database already! please try again"_qs);
    } else {
        m_model.addSingleSpecies(operation, fish->first, weight);
    }
    return true;
}

bool Sampler::deleteSingleSpecies() {
    int operation = 0;
    const ScreenDriver frame =
        openSampling(operation, u"Species Composition"_qs, u"Species Composition"_qs, u"Species Composition"_qs)
            .within(u"Single species"_qs);
    if (operation == 0 || !m_model.operations[operation].groups.contains(1)) {
        return false;
    }
    const int fish = any(m_model.operations[operation].groups[1].species)->first;
    const QString name = m_model.species[fish].shown();
    stepTo(frame, u"Single species record"_qs, name);
    frame.press(u"X"_qs);
    m_model.removeSingleSpecies(operation, fish);
    return true;
}

bool Sampler::weighGroup() {
    int operation = 0;
    const ScreenDriver frame =
        openSampling(operation, u"Species Composition"_qs, u"Species Composition"_qs, u"Species Composition"_qs)
            .within(u"Sampling group"_qs);
    if (operation == 0) {
        return false;
    }
    static const std::array<QString, 4> names = {u"Trash"_qs, u"Small fish"_qs, u"Squid & co"_qs, u"O'Neill's"_qs};
    const QString name = names.at(static_cast<std::size_t>(below(4)));
    std::map<int, int> weights;
    int sample = 0;
    for (int i = 1 + below(3); i > 0; --i) {
        const int fish = any(m_model.species)->first;
        if (!weights.contains(fish)) {
            weights[fish] = kHundred * (1 + below(20));
            sample += weights[fish];
        }
    }
    const int total = sample + 50 * below(2'000);
    frame.type(u"Group"_qs, name);
    frame.type(u"Total weight"_qs, decimal(total));
    for (const auto& [fish, weight] : weights) {
        frame.choose(u"Species"_qs, m_model.species[fish].shown());
        frame.type(u"Weight"_qs, decimal(weight));
        frame.press(u"ADD"_qs);
    }
    frame.press(u"SAVE"_qs);
    for (const auto& [id, group] : m_model.operations[operation].groups) {
        if (group.name == name) {
            expect(u"ERROR!: Group repeat please change new group"_qs);
            return true;
        }
    }
    m_model.addGroup(operation, name, total, weights);
    return true;
}

bool Sampler::measureLengths() {
    int operation = 0;
    const ScreenDriver hand =
        openSampling(operation, u"Length Frequency"_qs, u"Length Frequency"_qs, u"Length Frequency"_qs);
    if (operation == 0 || m_model.operations[operation].caught().empty()) {
        return false;
    }
    const std::vector<int> caught = m_model.operations[operation].caught();
    const int fish = caught[static_cast<std::size_t>(below(static_cast<int>(caught.size())))];
    Species& species = m_model.species[fish];
    Lengths sample{25 * (1 + below(100)), {}};
    hand.choose(u"Species"_qs, species.shown());
    if (species.interval == 0) {
        species.interval = 1 + below(3);
        hand.type(u"Class Interval"_qs, text(species.interval));
    }
    int lower = species.interval * (1 + below(20));
    hand.type(u"Sampling weight"_qs, decimal(sample.weight));
    hand.type(u"Lower limit(cm)"_qs, text(lower));
    hand.press(u"START INPUT>>"_qs);
    for (int i = 1 + below(4); i > 0; --i) {
        sample.classes.push_back({lower, lower + species.interval, below(50)});
        lower += species.interval;
        hand.type(u"Frequency"_qs, text(sample.classes.back().frequency));
        hand.key(u"Frequency"_qs, Qt::Key_Return);
    }
    hand.press(u"FINISH"_qs);
    hand.press(u"SAVE"_qs);
    m_model.operations[operation].lengths[fish] = sample;
    return true;
}

Fish Sampler::typeFish(const ScreenDriver& hand) {
    static const std::array<int, 3> weights = {50, 100, 200};
    static const std::array<QString, 3> sexes = {u"Male"_qs, u"Female"_qs, u"Juvenile"_qs};
    static const std::array<QString, 5> stages = {u"1-Immature"_qs, u"2-Maturing"_qs, u"3-Ripe"_qs, u"4-Spawning"_qs,
                                                  u"5-Spent"_qs};
    const auto drawn = [this](const auto& from) {
        return from.at(static_cast<std::size_t>(below(static_cast<int>(from.size()))));
    };
    Fish fish{50 + below(300), drawn(weights), below(20), 1 + below(5), drawn(sexes)};
    for (const QString& field : {u"TL(mm)"_qs, u"BL(mm)"_qs, u"FL(mm)"_qs, u"SL(mm)"_qs}) {
        hand.type(field, text(fish.length));
    }
    hand.type(u"BW"_qs, text(fish.bodyWeight));
    hand.type(u"GW"_qs, text(fish.gonadWeight));
    hand.choose(u"SEX"_qs, fish.sex);
    hand.choose(u"Stage"_qs, stages.at(static_cast<std::size_t>(fish.stage) - 1));
    return fish;
}

bool Sampler::measureFish() {
    int operation = 0;
    const ScreenDriver hand =
        openSampling(operation, u"Gonad Maturity"_qs, u"Gonad Matuarity Detail"_qs, u"Gonad Maturity Detail"_qs);
    if (operation == 0 || m_model.operations[operation].caught().empty()) {
        return false;
    }
    Operation& to = m_model.operations[operation];
    const std::vector<int> caught = to.caught();
    const int species = caught[static_cast<std::size_t>(below(static_cast<int>(caught.size())))];
    hand.choose(u"Species"_qs, m_model.species[species].shown());
    hand.press(u"ADD SAMPLING >>"_qs);
    for (int i = 1 + below(4); i > 0; --i) {
        const Fish fish = typeFish(hand);
        hand.press(u"NEXT>>"_qs);
        to.fish[species].push_back(fish);
        to.fishWeights[species] += fish.bodyWeight;
    }
    hand.press(u"SAVE"_qs);
    return true;
}

bool Sampler::deleteOperation() {
    int operation = 0;
    const ScreenDriver hand = openSearch(operation, u"Species Composition"_qs);
    if (operation == 0) {
        return false;
    }
    hand.press(u"DELETE"_qs);
    m_model.operations.erase(operation);
    return true;
}

bool Sampler::deleteGroup() {
    int operation = 0;
    const ScreenDriver hand = openSearch(operation, u"Species Composition"_qs);
    if (operation == 0 || m_model.operations[operation].groups.empty()) {
        return false;
    }
    auto& groups = m_model.operations[operation].groups;
    const auto group = any(groups);
    stepTo(hand, u"Group record"_qs, group->second.name);
    hand.press(u"Delete group"_qs);
    groups.erase(group->first);
    return true;
}

bool Sampler::deleteLengths() {
    int operation = 0;
    const ScreenDriver hand = openSearch(operation, u"Length Frequency"_qs);
    if (operation == 0 || m_model.operations[operation].lengths.empty()) {
        return false;
    }
    auto& lengths = m_model.operations[operation].lengths;
    const int fish = any(lengths)->first;
    stepTo(hand, u"Length record"_qs, m_model.species[fish].shown());
    hand.press(u"Delete length sample"_qs);
    lengths.erase(fish);
    return true;
}

bool Sampler::deleteFish() {
    int operation = 0;
    const ScreenDriver hand = openSearch(operation, u"Gonad Matuarity"_qs);
    if (operation == 0 || m_model.operations[operation].fish.empty()) {
        return false;
    }
    Operation& from = m_model.operations[operation];
    const int species = any(from.fish)->first;
    stepTo(hand, u"Gonad record"_qs, m_model.species[species].shown());
    hand.press(u"Delete gonad sample"_qs);
    from.fish.erase(species);
    from.fishWeights.erase(species);
    return true;
}

bool Sampler::correctWeight() {
    int operation = 0;
    const ScreenDriver hand = openSearch(operation, u"Length Frequency"_qs);
    if (operation == 0 || m_model.operations[operation].lengths.empty()) {
        return false;
    }
    auto& lengths = m_model.operations[operation].lengths;
    const int fish = any(lengths)->first;
    stepTo(hand, u"Length record"_qs, m_model.species[fish].shown());
    lengths[fish].weight = 25 * (1 + below(100));
    hand.type(u"Sample weight (kg.)"_qs, decimal(lengths[fish].weight));
    hand.press(u"Update"_qs);
    expect(u"RESULT: Update complete!"_qs);
    return true;
}

bool Sampler::addClass() {
    int operation = 0;
    const ScreenDriver hand = openSearch(operation, u"Length Frequency"_qs);
    if (operation == 0 || m_model.operations[operation].lengths.empty()) {
        return false;
    }
    auto& lengths = m_model.operations[operation].lengths;
    const int fish = any(lengths)->first;
    stepTo(hand, u"Length record"_qs, m_model.species[fish].shown());
    const int lower = lengths[fish].classes.back().upper;
    lengths[fish].classes.push_back({lower, lower + m_model.species[fish].interval, below(50)});
    hand.type(u"Frequency"_qs, text(lengths[fish].classes.back().frequency));
    hand.press(u"ADD"_qs);
    return true;
}

bool Sampler::addFish() {
    int operation = 0;
    const ScreenDriver hand = openSearch(operation, u"Gonad Matuarity"_qs);
    if (operation == 0 || m_model.operations[operation].fish.empty()) {
        return false;
    }
    const auto sample = any(m_model.operations[operation].fish);
    stepTo(hand, u"Gonad record"_qs, m_model.species[sample->first].shown());
    m_model.operations[operation].fish[sample->first].push_back(typeFish(hand));
    hand.press(u"ADD"_qs);
    return true;
}

}  // namespace kelvora::test::day
