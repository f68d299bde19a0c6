#pragma once

#include "day_model.h"
#include "shell/main_window.h"
#include "support/recording_dialogs.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"

#include <QRandomGenerator>

namespace kelvora::test::day {

using namespace Qt::StringLiterals;

/// A sampler who does one thing after another at the real screens, chosen by chance, and writes into the model what the
/// file must hold after it.
class Sampler {
public:
    Sampler(TemporaryStore& store, quint32 seed);

    /// Does something; returns what it was. What the screens said meanwhile is checked against what was to be expected.
    QString doSomething();

    [[nodiscard]] const Model& model() const { return m_model; }
    /// Brings a screen of the main window to the front, the others open behind it; now and then it is opened anew.
    ScreenDriver open(const QString& action, const QString& title, const QString& tab = {});
    /// The search screen with an operation on it.
    ScreenDriver openSearch(const QString& operation, const QString& tab) {
        return openOn(operation, u"Search"_s, u"Search"_s, tab);
    }

private:
    /// Something to do with a row of the file, begun with one of those that are like this, and how often it comes.
    struct Work {
        const char* name;
        Row like;
        void (Sampler::*work)(const Row& row);
        int share;
    };
    static const std::vector<Work>& works();

    void addPort(const Row& stored);
    void deletePort(const Row& port);
    void addSpecies(const Row& species);
    void deleteSpecies(const Row& species);
    void addVessel(const Row& gear);
    void deleteVessel(const Row& vessel);
    void recordOperation(const Row& port);
    void deleteOperation(const Row& operation);
    void weighSingleSpecies(const Row& operation);
    void deleteSingleSpecies(const Row& weighed);
    void weighAsItStands(const Row& unused);
    void weighGroup(const Row& operation);
    void deleteGroup(const Row& group);
    void measureLengths(const Row& caught);
    void measureFish(const Row& caught);
    void correctWeight(const Row& lengths);
    void addClass(const Row& lengths);
    void addFish(const Row& sample);
    void deleteSample(const Row& sample);

    int below(int limit) { return m_random.bounded(limit); }
    template <typename List>
    auto any(const List& list) {
        return list[static_cast<typename List::size_type>(below(static_cast<int>(list.size())))];
    }
    QString newName(const QString& front) { return front + QString::number(++m_names); }
    /// Opens a screen with an operation on it.
    ScreenDriver openOn(const QString& operation, const QString& action, const QString& title, const QString& tab);
    ScreenDriver openComposition(const QString& operation, const QString& frame);
    /// The search screen on a sample of lengths or fish.
    ScreenDriver openSample(const Row& sample);
    /// Steps a navigator from its first row to the one that its caption names.
    static void stepTo(const ScreenDriver& hand, const QString& navigator, const QString& name);
    /// Types a fish in and gives its cells of the file.
    QStringList typeFish(const ScreenDriver& hand);
    void expect(const QString& message) { m_expected.append(message); }

    RecordingDialogs m_dialogs;
    QStringList m_expected;
    Session m_session;
    Model m_model;
    Row m_composition;  ///< the operation that the composition screen stands on
    QRandomGenerator m_random;
    int m_names = 0;
    std::unique_ptr<MainWindow> m_window;
};

}  // namespace kelvora::test::day
