#include "day_sampler.h"

#include "controls/record_navigator.h"
#include "data/dates.h"
#include "journeys/opened_screen.h"

#include <QCoreApplication>
#include <QMdiArea>

namespace kelvora::test::day {
namespace {

const QString kGeneral = u"General Information"_qs;
const QString kSearch = u"Search"_qs;
const QString kComposition = u"Species Composition"_qs;
const QString kLengths = u"Length Frequency"_qs;

TemporaryStore& filled(TemporaryStore& store) {
    store.addReferenceRows();
    store.execute("update fish set common_name = ''");
    return store;
}

}  // namespace

Sampler::Sampler(TemporaryStore& store, quint32 seed) : m_model(filled(store).wholeFile()), m_random(seed) {
    m_session.userName = u"Port Sampler"_qs;
    m_window = std::make_unique<MainWindow>(Context{store.path(), m_session, m_dialogs});
    m_window->show();
}

const std::vector<Sampler::Work>& Sampler::works() {
    static const std::vector<Work> all = {
        {"add a port", &Sampler::addPort, 2},
        {"delete a port", &Sampler::deletePort, 2},
        {"add an area", &Sampler::addArea, 1},
        {"add a species", &Sampler::addSpecies, 1},
        {"record an operation", &Sampler::recordOperation, 6},
        {"weigh a single species", &Sampler::weighSingleSpecies, 6},
        {"delete a single species", &Sampler::deleteSingleSpecies, 1},
        {"weigh a group", &Sampler::weighGroup, 6},
        {"measure lengths", &Sampler::measureLengths, 6},
        {"measure fish", &Sampler::measureFish, 6},
        {"delete an operation", &Sampler::deleteOperation, 1},
        {"delete a group", &Sampler::deleteGroup, 1},
        {"delete lengths", [](Sampler& s) { return s.deleteSample(u"length"_qs, u"Delete length sample"_qs); }, 1},
        {"delete fish", [](Sampler& s) { return s.deleteSample(u"gonad"_qs, u"Delete gonad sample"_qs); }, 1},
        {"correct a weight", &Sampler::correctWeight, 2},
        {"add a class", &Sampler::addClass, 2},
        {"add a fish", &Sampler::addFish, 2}};
    return all;
}

QString Sampler::doSomething() {
    std::vector<const Work*> shares;
    for (const Work& work : works()) {
        shares.insert(shares.end(), static_cast<std::size_t>(work.share), &work);
    }
    while (true) {
        const Work& chosen = *any(shares);
        m_expected.clear();
        m_dialogs.said.clear();
        // What cannot be done yet, as a deletion where there is nothing, is passed over.
        if (chosen.work(*this)) {
            if (m_dialogs.said != m_expected) {
                qFatal("%s: said %s, expected %s", chosen.name, qPrintable(m_dialogs.said.join(u'\n')),
                       qPrintable(m_expected.join(u'\n')));
            }
            return QString::fromLatin1(chosen.name);
        }
    }
}

ScreenDriver Sampler::open(const QString& action, const QString& title, const QString& tab) {
    m_window->findChild<QMdiArea*>()->closeAllSubWindows();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    const ScreenDriver hand = openedScreen(*m_window, action, title);
    if (!tab.isEmpty()) {
        hand.openTab(tab);
    }
    return hand;
}

void Sampler::find(const ScreenDriver& hand, const QString& operation, const QString& searchButton) {
    const QString vessel = m_model.row({u"operation"_qs, operation})[17];
    hand.enter({{u"Criterion"_qs, u"Vessel"_qs}, {u"Value"_qs, vessel}, {searchButton, {}}});
    for (const Row& other : m_model.rows({u"operation"_qs})) {
        if (other[1] == operation) {
            break;
        }
        if (other[17] == vessel) {
            hand.move(u"Result"_qs, u"Next"_qs);
        }
    }
}

std::optional<Sampler::Found> Sampler::openOperation(const QString& action, const QString& title, const QString& tab,
                                                     const QString& searchButton) {
    const std::vector<Row> operations = m_model.rows({u"operation"_qs});
    if (operations.empty()) {
        return {};
    }
    const Found found{open(action, title), any(operations)[1], {}};
    find(found.hand, found.operation, searchButton);
    found.hand.openTab(tab);
    return found;
}

std::optional<Sampler::Found> Sampler::openForSample(const QString& action, const QString& title, const QString& tab) {
    auto found = openOperation(action, title, tab, kSearch);
    if (!found || !m_model.has({u"group_composition"_qs, found->operation})) {
        return {};
    }
    found->species = any(m_model.rows({u"group_composition"_qs, found->operation}))[2];
    return found;
}

std::optional<Sampler::Found> Sampler::openSample(const QString& table) {
    const bool lengths = table == u"length";
    auto found = openOperation(kSearch, kSearch, lengths ? kLengths : u"Gonad Matuarity"_qs, u"SEARCH"_qs);
    if (!found || !m_model.has({table, found->operation})) {
        return {};
    }
    found->species = any(m_model.rows({table, found->operation}))[2];
    stepTo(found->hand, lengths ? u"Length record"_qs : u"Gonad record"_qs, m_model.speciesName(found->species));
    return found;
}

void Sampler::stepTo(const ScreenDriver& hand, const QString& navigator, const QString& name) {
    const ScreenDriver steps(hand.navigator(navigator));
    if (steps.enabled(u"First"_qs)) {
        steps.press(u"First"_qs);
    }
    // A group's name stands in front of its total weight, others at the end.
    const auto arrived = [&] {
        const QString caption = hand.navigator(navigator)->caption();
        return caption.endsWith(name) || caption.contains(u' ' + name + u" ["_qs);
    };
    while (!arrived()) {
        steps.press(u"Next"_qs);
    }
}

bool Sampler::addPort() {
    Row state = any(m_model.rows({u"state"_qs}));
    if (below(4) == 0) {
        state = {u"state"_qs, m_model.nextKey({u"state"_qs}), newName(u"State "_qs)};
        m_model.add(state);
    }
    const QString name = newName(u"Port "_qs);
    open(kGeneral, kGeneral)
        .within(u"New sampling port"_qs)
        .enter({{u"State/Province"_qs, state[2]}, {u"Sampling port"_qs, name}, {u"ADD"_qs, {}}});
    m_model.add({u"port"_qs, m_model.nextKey({u"port"_qs}), name, state[1]});
    return true;
}

bool Sampler::deletePort() {
    const Row port = any(m_model.rows({u"port"_qs}));
    const QString list = u"State/Province and Sampling Port"_qs;
    const ScreenDriver hand = open(kGeneral, kGeneral);
    stepTo(hand, list, port[2]);
    if (m_model.has({u"operation"_qs, {}, port[1]})) {
        expect(u"ERROR: Can not remove because sampling port used in Fishing Operation"_qs);
    } else {
        m_model.remove({u"port"_qs, port[1]});
        if (!m_model.has({u"port"_qs, {}, {}, port[3]})) {
            m_model.remove({u"state"_qs, port[3]});
            expect(u"Kelvora: 'delete from state where stateid = %1'"_qs.arg(port[3]));
            expect(u"Kelvora: Del state"_qs);
        }
    }
    hand.within(list).press(u"Delete"_qs);
    return true;
}

bool Sampler::addArea() {
    const QString name = newName(u"B"_qs);
    const QString description = u"bank '%1'"_qs.arg(name);
    open(kGeneral, kGeneral)
        .within(u"New fishing area"_qs)
        .enter({{u"Area Name"_qs, name}, {u"Description"_qs, description}, {u"Add"_qs, {}}});
    expect(u"RESULT: Insert fishing area Complete"_qs);
    m_model.add({u"area"_qs, name, description});
    return true;
}

bool Sampler::addSpecies() {
    const QString name = newName(u"species-"_qs);
    open(kGeneral, kGeneral, u"Target Species"_qs)
        .within(u"New species"_qs)
        .enter({{u"Family"_qs, u"Familia"_qs}, {u"Genus"_qs, u"Genus"_qs}, {u"Species"_qs, name}, {u"Add"_qs, {}}});
    m_model.add({u"fish"_qs, m_model.nextKey({u"fish"_qs}), u"Familia"_qs, u"Genus"_qs, name, u""_qs, u"null"_qs});
    return true;
}

bool Sampler::recordOperation() {
    const QString vessel = any(m_model.rows({u"vessel"_qs}))[1];
    const QString area = any(m_model.rows({u"area"_qs}))[1];
    const Row method = any(m_model.rows({u"method"_qs}));
    const Row port = any(m_model.rows({u"port"_qs}));
    const QDate date = QDate(2004, 1, 1).addDays(below(2 * 365));
    const QString total = decimal(50 * (1 + below(2'000)));
    open(u"Fishing Operation"_qs, u"Fishing Information"_qs)
        .enter({{u"Vessel Name"_qs, vessel},
                {u"Fishing Gear"_qs, m_model.row({u"gear"_qs, method[3]})[2]},
                {u"Fishing Method"_qs, method[2]},
                {u"Fishing Area"_qs, area},
                {u"Landing State/Province"_qs, m_model.row({u"state"_qs, port[3]})[2]},
                {u"Landing Port"_qs, port[2]},
                {u"Sampling Date"_qs, shortDate(date)},
                {u"Total Catch (kg/trip)"_qs, total},
                {u"SAVE"_qs, {}}});
    expect(u"Kelvora: Insert Complete"_qs);
    m_model.add(Row{u"operation"_qs, m_model.nextKey({u"operation"_qs}), port[1], u"Port Sampler"_qs,
                    date.toString(Qt::ISODate), method[1]} +
                u"0|0|0|0|0|0|Day|0|0"_qs.split(u'|') + Row{total, u""_qs, vessel, area});
    return true;
}

bool Sampler::weighSingleSpecies() {
    const auto found = openOperation(kComposition, kComposition, kComposition, kSearch);
    if (!found) {
        return false;
    }
    const QString species = any(m_model.rows({u"fish"_qs}))[1];
    const int weight = 25 * (1 + below(400));
    found->hand.within(u"Single species"_qs)
        .enter({{u"Species"_qs, m_model.speciesName(species)}, {u"Weight"_qs, decimal(weight)}, {u"Add"_qs, {}}});
    if (m_model.has({u"group_composition"_qs, found->operation, species, u"1"_qs})) {
        expect(u"Kelvora: This species is in database already! please try again"_qs);
    } else {
        m_model.addSingleSpecies(found->operation, species, weight);
    }
    return true;
}

bool Sampler::deleteSingleSpecies() {
    const auto found = openOperation(kComposition, kComposition, kComposition, kSearch);
    if (!found || !m_model.has({u"group_main"_qs, u"1"_qs, found->operation})) {
        return false;
    }
    const QString species = any(m_model.rows({u"group_composition"_qs, found->operation, {}, u"1"_qs}))[2];
    const ScreenDriver frame = found->hand.within(u"Single species"_qs);
    stepTo(frame, u"Single species record"_qs, m_model.speciesName(species));
    frame.press(u"X"_qs);
    m_model.removeSingleSpecies(found->operation, species);
    return true;
}

bool Sampler::weighGroup() {
    const auto found = openOperation(kComposition, kComposition, kComposition, kSearch);
    if (!found) {
        return false;
    }
    const QString name = any(QStringList{u"Trash"_qs, u"Small fish"_qs, u"Squid & co"_qs, u"O'Neill's"_qs});
    std::map<QString, int> weights;
    for (int i = 1 + below(3); i > 0; --i) {
        weights[any(m_model.rows({u"fish"_qs}))[1]] = 100 * (1 + below(20));
    }
    int total = 50 * below(2'000);
    Steps weighed;
    for (const auto& [species, weight] : weights) {
        total += weight;
        weighed += {{u"Species"_qs, m_model.speciesName(species)}, {u"Weight"_qs, decimal(weight)}, {u"ADD"_qs, {}}};
    }
    const Steps group = {{u"Group"_qs, name}, {u"Total weight"_qs, decimal(total)}};
    found->hand.within(u"Sampling group"_qs).enter(group + weighed + Steps{{u"SAVE"_qs, {}}});
    if (m_model.has({u"group_main"_qs, {}, found->operation, name})) {
        expect(u"ERROR!: Group repeat please change new group"_qs);
    } else {
        m_model.addGroup(found->operation, name, total, weights);
    }
    return true;
}

bool Sampler::measureLengths() {
    const auto found = openForSample(kLengths, kLengths, kLengths);
    if (!found) {
        return false;
    }
    Row& fish = m_model.row({u"fish"_qs, found->species});
    const QString weight = decimal(25 * (1 + below(100)));
    found->hand.enter({{u"Species"_qs, m_model.speciesName(found->species)}});
    if (fish[6] == u"null") {
        fish[6] = QString::number(1 + below(3));
        found->hand.type(u"Class Interval"_qs, fish[6]);
    }
    const int interval = fish[6].toInt();
    int lower = interval * (1 + below(20));
    found->hand.enter(
        {{u"Sampling weight"_qs, weight}, {u"Lower limit(cm)"_qs, QString::number(lower)}, {u"START INPUT>>"_qs, {}}});
    m_model.remove({u"length"_qs, found->operation, found->species});
    m_model.remove({u"length_detail"_qs, found->operation, found->species});
    m_model.add({u"length"_qs, found->operation, found->species, weight});
    for (int i = 1 + below(4); i > 0; --i, lower += interval) {
        const QString count = QString::number(below(50));
        found->hand.enter({{u"Frequency"_qs, count + u'\n'}});
        m_model.addClass(found->operation, found->species, lower, count);
    }
    found->hand.enter({{u"FINISH"_qs, {}}, {u"SAVE"_qs, {}}});
    return true;
}

QStringList Sampler::typeFish(const ScreenDriver& hand) {
    const QString length = QString::number(50 + below(300));
    const int bodyWeight = any(QList<int>{50, 100, 200});
    const int gonadWeight = below(20);
    const QString sex = any(QStringList{u"Male"_qs, u"Female"_qs, u"Juvenile"_qs});
    const Row stage = any(m_model.rows({u"stage"_qs}));
    hand.enter({{u"TL(mm)"_qs, length},
                {u"BL(mm)"_qs, length},
                {u"FL(mm)"_qs, length},
                {u"SL(mm)"_qs, length},
                {u"BW"_qs, QString::number(bodyWeight)},
                {u"GW"_qs, QString::number(gonadWeight)},
                {u"SEX"_qs, sex},
                {u"Stage"_qs, stage[1] + u'-' + stage[2]}});
    return {length,
            length,
            length,
            length,
            QString::number(bodyWeight),
            sex,
            stage[1],
            QString::number(gonadWeight),
            decimal(gonadWeight * 100 * 100 / bodyWeight)};
}

bool Sampler::measureFish() {
    const auto found = openForSample(u"Gonad Maturity"_qs, u"Gonad Matuarity Detail"_qs, u"Gonad Maturity Detail"_qs);
    if (!found) {
        return false;
    }
    const Row sample = {u"gonad"_qs, found->operation, found->species};
    if (!m_model.has(sample)) {
        m_model.add(sample + Row{u"0"_qs});
    }
    found->hand.enter({{u"Species"_qs, m_model.speciesName(found->species)}, {u"ADD SAMPLING >>"_qs, {}}});
    for (int i = 1 + below(4); i > 0; --i) {
        const QStringList measures = typeFish(found->hand);
        found->hand.press(u"NEXT>>"_qs);
        m_model.addFish(found->operation, found->species, measures);
        // Fish are weighed in grams, their sample in kilograms.
        QString& weight = m_model.row(sample)[3];
        weight = decimal(hundredths(weight) + measures[4].toInt() / 10);
    }
    found->hand.press(u"SAVE"_qs);
    return true;
}

bool Sampler::deleteOperation() {
    const auto found = openOperation(kSearch, kSearch, kComposition, u"SEARCH"_qs);
    if (!found) {
        return false;
    }
    found->hand.press(u"DELETE"_qs);
    m_model.remove({u"group_main"_qs, {}, found->operation});
    for (const char16_t* table :
         {u"operation", u"group_composition", u"length", u"length_detail", u"gonad", u"gonad_detail"}) {
        m_model.remove({QString::fromUtf16(table), found->operation});
    }
    return true;
}

bool Sampler::deleteGroup() {
    const auto found = openOperation(kSearch, kSearch, kComposition, u"SEARCH"_qs);
    if (!found || !m_model.has({u"group_main"_qs, {}, found->operation})) {
        return false;
    }
    const Row group = any(m_model.rows({u"group_main"_qs, {}, found->operation}));
    stepTo(found->hand, u"Group record"_qs, group[3]);
    found->hand.press(u"Delete group"_qs);
    m_model.remove(group);
    m_model.remove({u"group_composition"_qs, found->operation, {}, group[1]});
    return true;
}

bool Sampler::deleteSample(const QString& table, const QString& button) {
    const auto found = openSample(table);
    if (!found) {
        return false;
    }
    found->hand.press(button);
    m_model.remove({table, found->operation, found->species});
    m_model.remove({table + u"_detail"_qs, found->operation, found->species});
    return true;
}

bool Sampler::correctWeight() {
    const auto found = openSample(u"length"_qs);
    if (!found) {
        return false;
    }
    const QString weight = decimal(25 * (1 + below(100)));
    found->hand.enter({{u"Sample weight (kg.)"_qs, weight}, {u"Update"_qs, {}}});
    expect(u"RESULT: Update complete!"_qs);
    m_model.row({u"length"_qs, found->operation, found->species})[3] = weight;
    return true;
}

bool Sampler::addClass() {
    const auto found = openSample(u"length"_qs);
    if (!found) {
        return false;
    }
    const QString count = QString::number(below(50));
    found->hand.enter({{u"Frequency"_qs, count}, {u"ADD"_qs, {}}});
    const int lower = m_model.rows({u"length_detail"_qs, found->operation, found->species}).back()[4].toInt();
    m_model.addClass(found->operation, found->species, lower, count);
    return true;
}

bool Sampler::addFish() {
    const auto found = openSample(u"gonad"_qs);
    if (!found) {
        return false;
    }
    m_model.addFish(found->operation, found->species, typeFish(found->hand));
    found->hand.press(u"ADD"_qs);
    return true;
}

}  // namespace kelvora::test::day
