#include "day_sampler.h"

#include "controls/record_navigator.h"
#include "data/dates.h"
#include "journeys/opened_screen.h"

#include <QCoreApplication>
#include <QMdiArea>

namespace kelvora::test::day {
namespace {

const QString kGeneral = u"General Information"_qs;
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
        {"add a port", {u"state"_qs}, &Sampler::addPort, 2},
        {"delete a port", {u"port"_qs}, &Sampler::deletePort, 2},
        {"add a species", {u"fish"_qs}, &Sampler::addSpecies, 1},
        {"record an operation", {u"port"_qs}, &Sampler::recordOperation, 6},
        {"delete an operation", {u"operation"_qs}, &Sampler::deleteOperation, 1},
        {"weigh a single species", {u"operation"_qs}, &Sampler::weighSingleSpecies, 6},
        {"delete a single species", {u"group_composition"_qs, {}, {}, u"1"_qs}, &Sampler::deleteSingleSpecies, 2},
        {"weigh a group", {u"operation"_qs}, &Sampler::weighGroup, 6},
        {"delete a group", {u"group_main"_qs}, &Sampler::deleteGroup, 2},
        {"measure lengths", {u"group_composition"_qs}, &Sampler::measureLengths, 6},
        {"measure fish", {u"group_composition"_qs}, &Sampler::measureFish, 6},
        {"correct a weight", {u"length"_qs}, &Sampler::correctWeight, 2},
        {"add a class", {u"length"_qs}, &Sampler::addClass, 2},
        {"add a fish", {u"gonad"_qs}, &Sampler::addFish, 2},
        {"delete lengths", {u"length"_qs}, &Sampler::deleteSample, 2},
        {"delete fish", {u"gonad"_qs}, &Sampler::deleteSample, 2},
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
    m_window->findChild<QMdiArea*>()->closeAllSubWindows();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    const ScreenDriver hand = openedScreen(*m_window, action, title);
    if (!tab.isEmpty()) {
        hand.openTab(tab);
    }
    return hand;
}

ScreenDriver Sampler::openOn(const QString& operation, const QString& action, const QString& title,
                             const QString& tab) {
    const ScreenDriver hand = open(action, title);
    const QString vessel = m_model.row({u"operation"_qs, operation})[17];
    const QString search = title == u"Search" ? u"SEARCH"_qs : u"Search"_qs;
    hand.enter(u"Criterion = Vessel; Value = %1; %2"_qs.arg(vessel, search));
    for (const Row& other : m_model.rows({u"operation"_qs})) {
        if (other[1] == operation) {
            break;
        }
        if (other[17] == vessel) {
            hand.move(u"Result"_qs, u"Next"_qs);
        }
    }
    hand.openTab(tab);
    return hand;
}

ScreenDriver Sampler::openComposition(const QString& operation, const QString& frame) {
    return openOn(operation, kComposition, kComposition, kComposition).within(frame);
}

ScreenDriver Sampler::openSample(const Row& sample) {
    const bool lengths = sample[0] == u"length";
    const ScreenDriver hand = openSearch(sample[1], lengths ? kLengths : u"Gonad Matuarity"_qs);
    stepTo(hand, lengths ? u"Length record"_qs : u"Gonad record"_qs, m_model.speciesName(sample[2]));
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

void Sampler::addPort(const Row& stored) {
    Row state = stored;
    if (below(4) == 0) {
        state = {u"state"_qs, m_model.nextKey({u"state"_qs}), newName(u"State "_qs)};
        m_model.add(state);
    }
    const QString name = newName(u"Port "_qs);
    open(kGeneral, kGeneral)
        .within(u"New sampling port"_qs)
        .enter(u"State/Province = %1; Sampling port = %2; ADD"_qs.arg(state[2], name));
    m_model.add({u"port"_qs, m_model.nextKey({u"port"_qs}), name, state[1]});
}

void Sampler::deletePort(const Row& port) {
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
}

void Sampler::addSpecies(const Row& /*unused*/) {
    const QString name = newName(u"species-"_qs);
    open(kGeneral, kGeneral, u"Target Species"_qs)
        .within(u"New species"_qs)
        .enter(u"Family = Familia; Genus = Genus; Species = %1; Add"_qs.arg(name));
    m_model.add({u"fish"_qs, m_model.nextKey({u"fish"_qs}), u"Familia"_qs, u"Genus"_qs, name, u""_qs, u"null"_qs});
}

void Sampler::recordOperation(const Row& port) {
    const QString vessel = any(m_model.rows({u"vessel"_qs}))[1];
    const QString area = any(m_model.rows({u"area"_qs}))[1];
    const Row method = any(m_model.rows({u"method"_qs}));
    const QDate date = QDate(2004, 1, 1).addDays(below(2 * 365));
    const QString total = decimal(50LL * (1 + below(2'000)));
    open(u"Fishing Operation"_qs, u"Fishing Information"_qs)
        .enter(
            u"Vessel Name = %1; Fishing Gear = %2; Fishing Method = %3; Fishing Area = %4; Landing State/Province = "
            u"%5; "
            "Landing Port = %6; Sampling Date = %7; Total Catch (kg/trip) = %8; SAVE"_qs.arg(
                vessel, m_model.row({u"gear"_qs, method[3]})[2], method[2], area,
                m_model.row({u"state"_qs, port[3]})[2], port[2], shortDate(date), total));
    expect(u"Kelvora: Insert Complete"_qs);
    m_model.add(Row{u"operation"_qs, m_model.nextKey({u"operation"_qs}), port[1], u"Port Sampler"_qs,
                    date.toString(Qt::ISODate), method[1]} +
                u"0|0|0|0|0|0|Day|0|0"_qs.split(u'|') + Row{total, u""_qs, vessel, area});
}

void Sampler::weighSingleSpecies(const Row& operation) {
    const QString species = any(m_model.rows({u"fish"_qs}))[1];
    const int weight = 25 * (1 + below(400));
    openComposition(operation[1], u"Single species"_qs)
        .enter(u"Species = %1; Weight = %2; Add"_qs.arg(m_model.speciesName(species), decimal(weight)));
    if (m_model.has({u"group_composition"_qs, operation[1], species, u"1"_qs})) {
        expect(u"Kelvora: This species is in database already! please try again"_qs);
    } else {
        m_model.addSingleSpecies(operation[1], species, weight);
    }
}

void Sampler::deleteSingleSpecies(const Row& weighed) {
    const ScreenDriver frame = openComposition(weighed[1], u"Single species"_qs);
    stepTo(frame, u"Single species record"_qs, m_model.speciesName(weighed[2]));
    frame.press(u"X"_qs);
    m_model.removeSingleSpecies(weighed[1], weighed[2]);
}

void Sampler::weighGroup(const Row& operation) {
    const QString name = any(QStringList{u"Trash"_qs, u"Small fish"_qs, u"Squid & co"_qs, u"O'Neill's"_qs});
    std::map<QString, int> weights;
    for (int i = 1 + below(3); i > 0; --i) {
        weights[any(m_model.rows({u"fish"_qs}))[1]] = 100 * (1 + below(20));
    }
    int total = 50 * below(2'000);
    QString weighed;
    for (const auto& [species, weight] : weights) {
        total += weight;
        weighed += u"Species = %1; Weight = %2; ADD; "_qs.arg(m_model.speciesName(species), decimal(weight));
    }
    openComposition(operation[1], u"Sampling group"_qs)
        .enter(u"Group = %1; Total weight = %2; %3SAVE"_qs.arg(name, decimal(total), weighed));
    if (m_model.has({u"group_main"_qs, {}, operation[1], name})) {
        expect(u"ERROR!: Group repeat please change new group"_qs);
    } else {
        m_model.addGroup(operation[1], name, total, weights);
    }
}

void Sampler::measureLengths(const Row& caught) {
    const ScreenDriver hand = openOn(caught[1], kLengths, kLengths, kLengths);
    Row& fish = m_model.row({u"fish"_qs, caught[2]});
    const QString weight = decimal(25LL * (1 + below(100)));
    hand.choose(u"Species"_qs, m_model.speciesName(caught[2]));
    if (fish[6] == u"null") {
        fish[6] = QString::number(1 + below(3));
        hand.type(u"Class Interval"_qs, fish[6]);
    }
    const int interval = fish[6].toInt();
    int lower = interval * (1 + below(20));
    hand.enter(u"Sampling weight = %1; Lower limit(cm) = %2; START INPUT>>"_qs.arg(weight).arg(lower));
    m_model.remove({u"length"_qs, caught[1], caught[2]});
    m_model.remove({u"length_detail"_qs, caught[1], caught[2]});
    m_model.add({u"length"_qs, caught[1], caught[2], weight});
    for (int i = 1 + below(4); i > 0; --i, lower += interval) {
        const QString count = QString::number(below(50));
        hand.enter(u"Frequency = %1\n"_qs.arg(count));
        m_model.addClass(caught[1], caught[2], lower, count);
    }
    hand.enter(u"FINISH; SAVE"_qs);
}

QStringList Sampler::typeFish(const ScreenDriver& hand) {
    const QString length = QString::number(50 + below(300));
    const int bodyWeight = any(QList<int>{50, 100, 200});
    const int gonadWeight = below(20);
    const QString sex = any(QStringList{u"Male"_qs, u"Female"_qs, u"Juvenile"_qs});
    const Row stage = any(m_model.rows({u"stage"_qs}));
    hand.enter(u"TL(mm) = %1; BL(mm) = %1; FL(mm) = %1; SL(mm) = %1; SEX = %2; Stage = %3-%4; BW = %5; GW = %6"_qs
                   .arg(length, sex, stage[1], stage[2])
                   .arg(bodyWeight)
                   .arg(gonadWeight));
    return u"%1|%1|%1|%1|%2|%3|%4|%5|%6"_qs.arg(length)
        .arg(bodyWeight)
        .arg(sex, stage[1])
        .arg(gonadWeight)
        .arg(decimal(gonadWeight * 100 * 100 / bodyWeight))
        .split(u'|');
}

void Sampler::measureFish(const Row& caught) {
    const ScreenDriver hand =
        openOn(caught[1], u"Gonad Maturity"_qs, u"Gonad Matuarity Detail"_qs, u"Gonad Maturity Detail"_qs);
    const Row sample = {u"gonad"_qs, caught[1], caught[2]};
    if (!m_model.has(sample)) {
        m_model.add(sample + Row{u"0"_qs});
    }
    hand.enter(u"Species = %1; ADD SAMPLING >>"_qs.arg(m_model.speciesName(caught[2])));
    for (int i = 1 + below(4); i > 0; --i) {
        const QStringList measures = typeFish(hand);
        hand.press(u"NEXT>>"_qs);
        m_model.addFish(caught[1], caught[2], measures);
        // Fish are weighed in grams, their sample in kilograms.
        QString& weight = m_model.row(sample)[3];
        weight = decimal(hundredths(weight) + measures[4].toInt() / 10);
    }
    hand.press(u"SAVE"_qs);
}

void Sampler::deleteOperation(const Row& operation) {
    openSearch(operation[1], kComposition).press(u"DELETE"_qs);
    m_model.remove({u"group_main"_qs, {}, operation[1]});
    for (const char16_t* table :
         {u"operation", u"group_composition", u"length", u"length_detail", u"gonad", u"gonad_detail"}) {
        m_model.remove({QString::fromUtf16(table), operation[1]});
    }
}

void Sampler::deleteGroup(const Row& group) {
    const ScreenDriver hand = openSearch(group[2], kComposition);
    stepTo(hand, u"Group record"_qs, group[3]);
    hand.press(u"Delete group"_qs);
    m_model.remove(group);
    m_model.remove({u"group_composition"_qs, group[2], {}, group[1]});
}

void Sampler::deleteSample(const Row& sample) {
    openSample(sample).press(sample[0] == u"length" ? u"Delete length sample"_qs : u"Delete gonad sample"_qs);
    m_model.remove(sample);
    m_model.remove({sample[0] + u"_detail"_qs, sample[1], sample[2]});
}

void Sampler::correctWeight(const Row& lengths) {
    const QString weight = decimal(25LL * (1 + below(100)));
    openSample(lengths).enter(u"Sample weight (kg.) = %1; Update"_qs.arg(weight));
    expect(u"RESULT: Update complete!"_qs);
    m_model.row(lengths)[3] = weight;
}

void Sampler::addClass(const Row& lengths) {
    const QString count = QString::number(below(50));
    openSample(lengths).enter(u"Frequency = %1; ADD"_qs.arg(count));
    const int lower = m_model.rows({u"length_detail"_qs, lengths[1], lengths[2]}).back()[4].toInt();
    m_model.addClass(lengths[1], lengths[2], lower, count);
}

void Sampler::addFish(const Row& sample) {
    const ScreenDriver hand = openSample(sample);
    m_model.addFish(sample[1], sample[2], typeFish(hand));
    hand.press(u"ADD"_qs);
}

}  // namespace kelvora::test::day
