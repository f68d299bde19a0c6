#include "day_sampler.h"

#include "controls/record_navigator.h"
#include "data/dates.h"
#include "journeys/opened_screen.h"

#include <QCoreApplication>
#include <QMdiArea>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora::test::day {
namespace {

const QString kGeneral = u"General Information"_s;
const QString kComposition = u"Species Composition"_s;
const QString kLengths = u"Length Frequency"_s;

TemporaryStore& filled(TemporaryStore& store) {
    store.addReferenceRows();
    store.execute("update fish set common_name = ''");
    return store;
}

}  // namespace

Sampler::Sampler(TemporaryStore& store, quint32 seed) : m_model(filled(store).wholeFile()), m_random(seed) {
    m_session.userName = u"Port Sampler"_s;
    m_window = std::make_unique<MainWindow>(Context{store.path(), m_session, m_dialogs});
    m_window->show();
}

const std::vector<Sampler::Work>& Sampler::works() {
    static const std::vector<Work> all = {
        {"add a port", {u"state"_s}, &Sampler::addPort, 2},
        {"delete a port", {u"port"_s}, &Sampler::deletePort, 2},
        {"add a species", {u"fish"_s}, &Sampler::addSpecies, 1},
        {"delete a species", {u"fish"_s}, &Sampler::deleteSpecies, 1},
        {"add a vessel", {u"gear"_s}, &Sampler::addVessel, 1},
        {"delete a vessel", {u"vessel"_s}, &Sampler::deleteVessel, 1},
        {"record an operation", {u"port"_s}, &Sampler::recordOperation, 6},
        {"delete an operation", {u"operation"_s}, &Sampler::deleteOperation, 3},
        {"weigh for what the screen stands on", {u"operation"_s}, &Sampler::weighAsItStands, 4},
        {"weigh a single species", {u"operation"_s}, &Sampler::weighSingleSpecies, 6},
        {"delete a single species", {u"group_composition"_s, {}, {}, u"1"_s}, &Sampler::deleteSingleSpecies, 2},
        {"weigh a group", {u"operation"_s}, &Sampler::weighGroup, 6},
        {"delete a group", {u"group_main"_s}, &Sampler::deleteGroup, 2},
        {"measure lengths", {u"group_composition"_s}, &Sampler::measureLengths, 6},
        {"measure fish", {u"group_composition"_s}, &Sampler::measureFish, 6},
        {"correct a weight", {u"length"_s}, &Sampler::correctWeight, 2},
        {"add a class", {u"length"_s}, &Sampler::addClass, 2},
        {"add a fish", {u"gonad"_s}, &Sampler::addFish, 2},
        {"delete lengths", {u"length"_s}, &Sampler::deleteSample, 2},
        {"delete fish", {u"gonad"_s}, &Sampler::deleteSample, 2},
    };
    return all;
}

QString Sampler::doSomething() {
    std::vector<const Work*> possible;
    for (const Work& work : works()) {
        const bool can = m_model.has(work.like);
        possible.insert(possible.end(), can ? static_cast<std::size_t>(work.share) : 0, &work);
    }
    const Work& chosen = *any(possible);
    m_expected.clear();
    m_dialogs.said.clear();
    (this->*chosen.work)(any(m_model.rows(chosen.like)));
    if (m_dialogs.said != m_expected) {
        qFatal("%s: said %s, expected %s", chosen.name, qPrintable(m_dialogs.said.join(u'\n')),
               qPrintable(m_expected.join(u'\n')));
    }
    return QString::fromLatin1(chosen.name);
}

ScreenDriver Sampler::open(const QString& action, const QString& title, const QString& tab) {
    auto* area = m_window->findChild<QMdiArea*>();
    const auto window = [&] {
        const QList<QMdiSubWindow*> open = area->subWindowList();
        const auto found = std::ranges::find(open, title, &QMdiSubWindow::windowTitle);
        return found == open.end() ? nullptr : *found;
    };
    const bool keep = title == kComposition && !m_composition.isEmpty() && !m_model.has(m_composition);
    if (window() != nullptr && !keep && below(10) == 0) {
        window()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    if (window() == nullptr) {
        openedScreen(*m_window, action, title);
    }
    area->setActiveSubWindow(window());
    QCoreApplication::processEvents();
    const ScreenDriver hand(window()->widget());
    if (!tab.isEmpty()) {
        hand.openTab(tab);
    }
    return hand;
}

ScreenDriver Sampler::openOn(const QString& operation, const QString& action, const QString& title,
                             const QString& tab) {
    const ScreenDriver hand = open(action, title);
    const QString vessel = m_model.row({u"operation"_s, operation})[17];
    hand.choose(u"Criterion"_s, u"Vessel"_s);
    hand.choose(u"Value"_s, vessel);
    hand.press(title == u"Search" ? u"SEARCH"_s : u"Search"_s);
    for (const Row& other : m_model.rows({u"operation"_s})) {
        if (other[1] == operation) {
            break;
        }
        if (other[17] == vessel) {
            hand.move(u"Result"_s, u"Next"_s);
        }
    }
    hand.openTab(tab);
    return hand;
}

ScreenDriver Sampler::openComposition(const QString& operation, const QString& frame) {
    m_composition = m_model.row({u"operation"_s, operation});
    return openOn(operation, kComposition, kComposition, kComposition).within(frame);
}

ScreenDriver Sampler::openSample(const Row& sample) {
    const bool lengths = sample[0] == u"length";
    const ScreenDriver hand = openSearch(sample[1], lengths ? kLengths : u"Gonad Matuarity"_s);
    stepTo(hand, lengths ? u"Length record"_s : u"Gonad record"_s, m_model.speciesName(sample[2]));
    return hand;
}

void Sampler::stepTo(const ScreenDriver& hand, const QString& navigator, const QString& name) {
    const ScreenDriver steps(hand.navigator(navigator));
    if (steps.enabled(u"First"_s)) {
        steps.press(u"First"_s);
    }
    // A group's name stands in front of its total weight, others at the end.
    const auto arrived = [&] {
        const QString caption = hand.navigator(navigator)->caption();
        return caption.endsWith(name) || caption.contains(u' ' + name + u" ["_s);
    };
    while (!arrived()) {
        steps.press(u"Next"_s);
    }
}

void Sampler::addPort(const Row& stored) {
    Row state = stored;
    if (below(4) == 0) {
        state = {u"state"_s, m_model.nextKey({u"state"_s}), newName(u"State "_s)};
        m_model.add(state);
    }
    const QString name = newName(u"Port "_s);
    open(kGeneral, kGeneral)
        .within(u"New sampling port"_s)
        .enter(u"State/Province = %1; Sampling port = %2; ADD"_s.arg(state[2], name));
    m_model.add({u"port"_s, m_model.nextKey({u"port"_s}), name, state[1]});
}

void Sampler::deletePort(const Row& port) {
    const QString list = u"State/Province and Sampling Port"_s;
    const ScreenDriver hand = open(kGeneral, kGeneral);
    stepTo(hand, list, port[2]);
    if (m_model.has({u"operation"_s, {}, port[1]})) {
        expect(u"ERROR: Can not remove because sampling port used in Fishing Operation"_s);
    } else {
        m_model.remove({u"port"_s, port[1]});
        if (!m_model.has({u"port"_s, {}, {}, port[3]})) {
            m_model.remove({u"state"_s, port[3]});
            expect(u"Kelvora: 'delete from state where stateid = %1'"_s.arg(port[3]));
            expect(u"Kelvora: Del state"_s);
        }
    }
    hand.within(list).press(u"Delete"_s);
}

void Sampler::addSpecies(const Row& /*unused*/) {
    const QString name = newName(u"species-"_s);
    open(kGeneral, kGeneral, u"Target Species"_s)
        .within(u"New species"_s)
        .enter(u"Family = Familia; Genus = Genus; Species = %1; Add"_s.arg(name));
    m_model.add({u"fish"_s, m_model.nextKey({u"fish"_s}), u"Familia"_s, u"Genus"_s, name, u""_s, u"null"_s});
}

void Sampler::deleteSpecies(const Row& species) {
    const QString list = u"Target Species"_s;
    if (m_model.rows({u"fish"_s}).size() < 3) {
        return;
    }
    const ScreenDriver hand = open(kGeneral, kGeneral, list);
    stepTo(hand, list, m_model.speciesName(species[1]));
    if (m_model.has({u"group_composition"_s, {}, species[1]}) || m_model.has({u"length"_s, {}, species[1]}) ||
        m_model.has({u"gonad"_s, {}, species[1]})) {
        expect(u"Kelvora: can't delete this species because this species used another table!"_s);
    } else {
        m_model.remove(species);
    }
    hand.within(list).press(u"Delete"_s);
}

void Sampler::addVessel(const Row& gear) {
    const QString name = newName(u"Boat "_s);
    open(kGeneral, kGeneral, u"Fishing Vessel"_s)
        .enter(
            u"Vessel name = %1; Vessel register id = %1; Engine Power (hp) = 75; Size(GRT) = 12; "
            "Vessel Length(m) = 9; Type of Gear = %2; Engine type = In Board; Add"_s.arg(name, gear[2]));
    m_model.add(u"vessel|%1|%1||In Board|75|12|9|%2|||"_s.arg(name, gear[1]).split(u'|'));
}

void Sampler::deleteVessel(const Row& vessel) {
    const QString list = u"FISHING VESSEL"_s;
    if (m_model.rows({u"vessel"_s}).size() < 2) {
        return;
    }
    const ScreenDriver hand = open(kGeneral, kGeneral, u"Fishing Vessel"_s).within(list);
    stepTo(hand, list, vessel[1]);
    const auto operations = m_model.rows({u"operation"_s});
    if (std::ranges::any_of(operations, [&](const Row& operation) { return operation[17] == vessel[1]; })) {
        expect(u"ERROR!: Can not delete because vessel used in another table"_s);
    } else {
        m_model.remove(vessel);
    }
    hand.press(u"Delete"_s);
}

void Sampler::recordOperation(const Row& port) {
    const QString vessel = any(m_model.rows({u"vessel"_s}))[1];
    const QString area = any(m_model.rows({u"area"_s}))[1];
    const Row method = any(m_model.rows({u"method"_s}));
    const QDate date = QDate(2004, 1, 1).addDays(below(2 * 365));
    const QString total = decimal(50LL * (1 + below(2'000)));
    open(u"Fishing Operation"_s, u"Fishing Information"_s)
        .enter(
            u"CLEAR; Vessel Name = %1; Fishing Gear = %2; Fishing Method = %3; Fishing Area = %4; Landing "
            u"State/Province = "
            u"%5; "
            "Landing Port = %6; Sampling Date = %7; Total Catch (kg/trip) = %8; SAVE; CLEAR"_s.arg(
                vessel, m_model.row({u"gear"_s, method[3]})[2], method[2], area, m_model.row({u"state"_s, port[3]})[2],
                port[2], shortDate(date), total));
    expect(u"Kelvora: Insert Complete"_s);
    m_model.add(Row{u"operation"_s, m_model.nextKey({u"operation"_s}), port[1], u"Port Sampler"_s,
                    date.toString(Qt::ISODate), method[1]} +
                u"0|0|0|0|0|0|Day|0|0"_s.split(u'|') + Row{total, u""_s, vessel, area});
}

void Sampler::weighSingleSpecies(const Row& operation) {
    const QString species = any(m_model.rows({u"fish"_s}))[1];
    const int weight = 25 * (1 + below(400));
    openComposition(operation[1], u"Single species"_s)
        .enter(u"Species = %1; Weight = %2; Add"_s.arg(m_model.speciesName(species), decimal(weight)));
    if (m_model.has({u"group_composition"_s, operation[1], species, u"1"_s})) {
        expect(u"Kelvora: This species is in database already! please try again"_s);
    } else {
        m_model.addSingleSpecies(operation[1], species, weight);
    }
}

/// The composition screen as it was left: its operation may have been deleted since, and another one have its number.
void Sampler::weighAsItStands(const Row& /*unused*/) {
    if (m_composition.isEmpty() || m_model.has(m_composition)) {
        return;
    }
    const QString number = m_composition[1];
    const QString species = any(m_model.rows({u"fish"_s}))[1];
    const ScreenDriver hand = open(kComposition, kComposition, kComposition).within(u"Single species"_s);
    hand.enter(u"Species = %1; Weight = 2.5; Add"_s.arg(m_model.speciesName(species)));
    expect(m_model.has({u"group_composition"_s, number, species, u"1"_s})
               ? u"Kelvora: This species is in database already! please try again"_s
               : u"Kelvora: Nothing was stored or deleted: fishing operation no. %1 was deleted or replaced by another "
                 "one since it was chosen here. What was entered is still on the screen."_s.arg(number));
}

void Sampler::deleteSingleSpecies(const Row& weighed) {
    const ScreenDriver frame = openComposition(weighed[1], u"Single species"_s);
    stepTo(frame, u"Single species record"_s, m_model.speciesName(weighed[2]));
    frame.press(u"X"_s);
    m_model.removeSingleSpecies(weighed[1], weighed[2]);
}

void Sampler::weighGroup(const Row& operation) {
    const QString name = any(QStringList{u"Trash"_s, u"Small fish"_s, u"Squid & co"_s, u"O'Neill's"_s});
    std::map<QString, int> weights;
    for (int i = 1 + below(3); i > 0; --i) {
        weights[any(m_model.rows({u"fish"_s}))[1]] = 100 * (1 + below(20));
    }
    int total = 50 * below(2'000);
    QString weighed;
    for (const auto& [species, weight] : weights) {
        total += weight;
        weighed += u"Species = %1; Weight = %2; ADD; "_s.arg(m_model.speciesName(species), decimal(weight));
    }
    const ScreenDriver frame = openComposition(operation[1], u"Sampling group"_s);
    // What was refused before is still there.
    if (frame.enabled(u"CLEAR"_s)) {
        frame.press(u"CLEAR"_s);
    }
    frame.enter(u"Group = %1; Total weight = %2; %3SAVE"_s.arg(name, decimal(total), weighed));
    if (m_model.has({u"group_main"_s, {}, operation[1], name})) {
        expect(u"ERROR!: Group repeat please change new group"_s);
    } else {
        m_model.addGroup(operation[1], name, total, weights);
    }
}

void Sampler::measureLengths(const Row& caught) {
    const ScreenDriver hand = openOn(caught[1], kLengths, kLengths, kLengths);
    Row& fish = m_model.row({u"fish"_s, caught[2]});
    const QString weight = decimal(25LL * (1 + below(100)));
    hand.choose(u"Species"_s, m_model.speciesName(caught[2]));
    if (fish[6] == u"null") {
        fish[6] = QString::number(1 + below(3));
        hand.type(u"Class Interval"_s, fish[6]);
    }
    const int interval = fish[6].toInt();
    int lower = interval * (1 + below(20));
    hand.enter(u"Sampling weight = %1; Lower limit(cm) = %2; START INPUT>>"_s.arg(weight).arg(lower));
    m_model.remove({u"length"_s, caught[1], caught[2]});
    m_model.remove({u"length_detail"_s, caught[1], caught[2]});
    m_model.add({u"length"_s, caught[1], caught[2], weight});
    for (int i = 1 + below(4); i > 0; --i, lower += interval) {
        const QString count = QString::number(below(50));
        hand.enter(u"Frequency = %1\n"_s.arg(count));
        m_model.addClass(caught[1], caught[2], lower, count);
    }
    hand.enter(u"FINISH; SAVE"_s);
}

QStringList Sampler::typeFish(const ScreenDriver& hand) {
    const QString length = QString::number(50 + below(300));
    const int bodyWeight = any(QList<int>{50, 100, 200});
    const int gonadWeight = below(20);
    const QString sex = any(QStringList{u"Male"_s, u"Female"_s, u"Juvenile"_s});
    const Row stage = any(m_model.rows({u"stage"_s}));
    hand.enter(u"TL(mm) = %1; BL(mm) = %1; FL(mm) = %1; SL(mm) = %1; SEX = %2; Stage = %3-%4; BW = %5; GW = %6"_s
                   .arg(length, sex, stage[1], stage[2])
                   .arg(bodyWeight)
                   .arg(gonadWeight));
    return u"%1|%1|%1|%1|%2|%3|%4|%5|%6"_s.arg(length)
        .arg(bodyWeight)
        .arg(sex, stage[1])
        .arg(gonadWeight)
        .arg(decimal(gonadWeight * 100 * 100 / bodyWeight))
        .split(u'|');
}

void Sampler::measureFish(const Row& caught) {
    const ScreenDriver hand =
        openOn(caught[1], u"Gonad Maturity"_s, u"Gonad Matuarity Detail"_s, u"Gonad Maturity Detail"_s);
    const Row sample = {u"gonad"_s, caught[1], caught[2]};
    if (!m_model.has(sample)) {
        m_model.add(sample + Row{u"0"_s});
    }
    hand.enter(u"Species = %1; ADD SAMPLING >>"_s.arg(m_model.speciesName(caught[2])));
    for (int i = 1 + below(4); i > 0; --i) {
        const QStringList measures = typeFish(hand);
        hand.press(u"NEXT>>"_s);
        m_model.addFish(caught[1], caught[2], measures);
        // Fish are weighed in grams, their sample in kilograms.
        QString& weight = m_model.row(sample)[3];
        weight = decimal(hundredths(weight) + measures[4].toInt() / 10);
    }
    hand.press(u"SAVE"_s);
}

void Sampler::deleteOperation(const Row& operation) {
    openSearch(operation[1], kComposition).press(u"DELETE"_s);
    m_model.remove({u"group_main"_s, {}, operation[1]});
    for (const char16_t* table :
         {u"operation", u"group_composition", u"length", u"length_detail", u"gonad", u"gonad_detail"}) {
        m_model.remove({QString::fromUtf16(table), operation[1]});
    }
}

void Sampler::deleteGroup(const Row& group) {
    const ScreenDriver hand = openSearch(group[2], kComposition);
    stepTo(hand, u"Group record"_s, group[3]);
    hand.press(u"Delete group"_s);
    m_model.remove(group);
    m_model.remove({u"group_composition"_s, group[2], {}, group[1]});
}

void Sampler::deleteSample(const Row& sample) {
    openSample(sample).press(sample[0] == u"length" ? u"Delete length sample"_s : u"Delete gonad sample"_s);
    m_model.remove(sample);
    m_model.remove({sample[0] + u"_detail"_s, sample[1], sample[2]});
}

void Sampler::correctWeight(const Row& lengths) {
    const QString weight = decimal(25LL * (1 + below(100)));
    openSample(lengths).enter(u"Sample weight (kg.) = %1; Update"_s.arg(weight));
    expect(u"RESULT: Update complete!"_s);
    m_model.row(lengths)[3] = weight;
}

void Sampler::addClass(const Row& lengths) {
    const QString count = QString::number(below(50));
    openSample(lengths).enter(u"Frequency = %1; ADD"_s.arg(count));
    const int lower = m_model.rows({u"length_detail"_s, lengths[1], lengths[2]}).back()[4].toInt();
    m_model.addClass(lengths[1], lengths[2], lower, count);
}

void Sampler::addFish(const Row& sample) {
    const ScreenDriver hand = openSample(sample);
    m_model.addFish(sample[1], sample[2], typeFish(hand));
    hand.press(u"ADD"_s);
}

}  // namespace kelvora::test::day
