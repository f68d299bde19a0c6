#include "day_sampler.h"

#include "controls/record_navigator.h"
#include "data/dates.h"
#include "journeys/opened_screen.h"

#include <QCoreApplication>
#include <QMdiArea>

#include <array>

namespace kelvora::test::day {
namespace {

const QString kSearchTitle = u"Search"_qs;
const std::array<QString, 2> kVessels = {u"Sea Star"_qs, u"Blue Fin"_qs};

}  // namespace

Sampler::Sampler(TemporaryStore& store, quint32 seed) : m_random(seed) {
    store.addReferenceRows();
    store.execute("update fish set common_name = ''");
    m_session.userName = u"Port Sampler"_qs;
    m_model.states = {{1, u"Alpha"_qs}, {2, u"Beta"_qs}};
    m_model.ports = {{1, {u"Abo"_qs, 1}}, {2, {u"Bex"_qs, 1}}, {3, {u"Cay"_qs, 2}}};
    m_model.gears = {{1, u"Trawl"_qs}, {2, u"Gill net"_qs}};
    m_model.methods = {{1, {u"Otter board"_qs, 1}}, {2, {u"Pair"_qs, 1}}, {3, {u"Drift"_qs, 2}}};
    m_model.areas = {{u"A1"_qs, u"north bank"_qs}, {u"A2"_qs, u"south bank"_qs}};
    m_model.species = {{1, {u"Scombridae"_qs, u"Rastrelliger"_qs, u"kanagurta"_qs}},
                       {2, {u"Mullidae"_qs, u"Upeneus"_qs, u"vittatus"_qs}},
                       {3, {u"Nemipteridae"_qs, u"Nemipterus"_qs, u"virgatus"_qs}}};
    m_window = std::make_unique<MainWindow>(Context{store.path(), m_session, m_dialogs});
    m_window->show();
}

const std::vector<Sampler::Work>& Sampler::works() {
    static const std::vector<Work> all = {{"add a port", &Sampler::addPort, 2},
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
                                          {"delete lengths", &Sampler::deleteLengths, 1},
                                          {"delete fish", &Sampler::deleteFish, 1},
                                          {"correct a weight", &Sampler::correctWeight, 2},
                                          {"add a class", &Sampler::addClass, 2},
                                          {"add a fish", &Sampler::addFish, 2}};
    return all;
}

QString Sampler::doSomething() {
    int shares = 0;
    for (const Work& work : works()) {
        shares += work.share;
    }
    while (true) {
        int chosen = below(shares);
        const Work* work = works().data();
        for (; chosen >= work->share; ++work) {
            chosen -= work->share;
        }
        closeScreens();
        m_expected.clear();
        m_dialogs.said.clear();
        // What cannot be done yet, as a deletion where there is nothing, is passed over.
        if ((this->*work->work)()) {
            if (m_dialogs.said != m_expected) {
                qFatal("%s: said %s, expected %s", work->name, qPrintable(m_dialogs.said.join(u'\n')),
                       qPrintable(m_expected.join(u'\n')));
            }
            return QString::fromLatin1(work->name);
        }
    }
}

ScreenDriver Sampler::open(const QString& action, const QString& title) {
    return openedScreen(*m_window, action, title);
}

void Sampler::closeScreens() {
    m_window->findChild<QMdiArea*>()->closeAllSubWindows();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

int Sampler::find(const ScreenDriver& hand, const QString& searchButton) {
    if (m_model.operations.empty()) {
        return 0;
    }
    const auto wanted = any(m_model.operations);
    hand.choose(u"Criterion"_qs, u"Vessel"_qs);
    hand.choose(u"Value"_qs, wanted->second.vessel);
    hand.press(searchButton);
    for (const auto& [id, operation] : m_model.operations) {
        if (id == wanted->first) {
            break;
        }
        if (operation.vessel == wanted->second.vessel) {
            hand.move(u"Result"_qs, u"Next"_qs);
        }
    }
    return wanted->first;
}

ScreenDriver Sampler::openSearch(int& operation, const QString& tab) {
    const ScreenDriver hand = open(kSearchTitle, kSearchTitle);
    operation = find(hand, u"SEARCH"_qs);
    hand.openTab(tab);
    return hand;
}

ScreenDriver Sampler::openSampling(int& operation, const QString& caption, const QString& title, const QString& tab) {
    const ScreenDriver hand = open(caption, title);
    operation = find(hand, kSearchTitle);
    hand.openTab(tab);
    return hand;
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
    const bool newState = below(4) == 0;
    const int number = ++m_names;
    const int state = newState ? nextKey(m_model.states) : any(m_model.states)->first;
    const ScreenDriver frame =
        open(u"General Information"_qs, u"General Information"_qs).within(u"New sampling port"_qs);
    if (newState) {
        m_model.states[state] = u"State %1"_qs.arg(number);
    }
    const QString name = u"Port %1"_qs.arg(number);
    frame.type(u"State/Province"_qs, m_model.states[state]);
    frame.type(u"Sampling port"_qs, name);
    frame.press(u"ADD"_qs);
    m_model.ports[nextKey(m_model.ports)] = {name, state};
    return true;
}

bool Sampler::deletePort() {
    const auto port = any(m_model.ports);
    const QString list = u"State/Province and Sampling Port"_qs;
    const ScreenDriver hand = open(u"General Information"_qs, u"General Information"_qs);
    stepTo(hand, list, port->second.name);
    const int number = port->first;
    if (m_model.isUsed(number)) {
        expect(u"ERROR: Can not remove because sampling port used in Fishing Operation"_qs);
    } else {
        const auto before = m_model.states;
        m_model.removePort(number);
        for (const auto& [id, name] : before) {
            if (!m_model.states.contains(id)) {
                expect(u"Kelvora: 'delete from state where stateid = %1'"_qs.arg(id));
                expect(u"Kelvora: Del state"_qs);
            }
        }
    }
    hand.within(list).press(u"Delete"_qs);
    return true;
}

bool Sampler::addArea() {
    const QString name = u"B%1"_qs.arg(++m_names);
    const ScreenDriver frame =
        open(u"General Information"_qs, u"General Information"_qs).within(u"New fishing area"_qs);
    frame.type(u"Area Name"_qs, name);
    frame.type(u"Description"_qs, u"bank '%1'"_qs.arg(name));
    frame.press(u"Add"_qs);
    expect(u"RESULT: Insert fishing area Complete"_qs);
    m_model.areas[name] = u"bank '%1'"_qs.arg(name);
    return true;
}

bool Sampler::addSpecies() {
    const Species fish{u"Familia"_qs, u"Genus"_qs, u"species-%1"_qs.arg(++m_names)};
    const ScreenDriver hand = open(u"General Information"_qs, u"General Information"_qs);
    hand.openTab(u"Target Species"_qs);
    const ScreenDriver frame = hand.within(u"New species"_qs);
    frame.type(u"Family"_qs, fish.family);
    frame.type(u"Genus"_qs, fish.genus);
    frame.type(u"Species"_qs, fish.name);
    frame.press(u"Add"_qs);
    m_model.species[nextKey(m_model.species)] = fish;
    return true;
}

bool Sampler::recordOperation() {
    const ScreenDriver hand = open(u"Fishing Operation"_qs, u"Fishing Information"_qs);
    const auto method = any(m_model.methods);
    const auto port = any(m_model.ports);
    Operation operation;
    operation.vessel = kVessels.at(static_cast<std::size_t>(below(2)));
    operation.area = any(m_model.areas)->first;
    operation.date = QDate(2004, 1, 1).addDays(below(2 * 365));
    operation.total = 50 * (1 + below(2'000));
    operation.method = method->first;
    operation.port = port->first;
    hand.choose(u"Vessel Name"_qs, operation.vessel);
    hand.choose(u"Fishing Gear"_qs, m_model.gears[method->second.second]);
    hand.choose(u"Fishing Method"_qs, method->second.first);
    hand.choose(u"Fishing Area"_qs, operation.area);
    hand.choose(u"Landing State/Province"_qs, m_model.states[port->second.state]);
    hand.choose(u"Landing Port"_qs, port->second.name);
    hand.type(u"Sampling Date"_qs, shortDate(operation.date));
    hand.type(u"Total Catch (kg/trip)"_qs, decimal(operation.total));
    hand.press(u"SAVE"_qs);
    expect(u"Kelvora: Insert Complete"_qs);
    m_model.operations[nextKey(m_model.operations)] = operation;
    return true;
}

}  // namespace kelvora::test::day
