#pragma once

#include "day_model.h"
#include "recording_dialogs.h"
#include "shell/main_window.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"

#include <QRandomGenerator>

namespace kelvora::test::day {

/// A sampler who does one thing after another at the real screens, chosen by chance, and writes into the model what the
/// file must hold after it.
class Sampler {
public:
    Sampler(TemporaryStore& store, quint32 seed);

    /// Does something; returns what it was. What the screens said meanwhile is checked against what was to be expected.
    QString doSomething();

    [[nodiscard]] const Model& model() const { return m_model; }
    /// Opens a screen in the main window; all are closed when the next thing is done.
    ScreenDriver open(const QString& action, const QString& title);
    void closeScreens();

private:
    /// Something to do, and how often it comes. It gives false where it cannot be done yet.
    struct Work {
        const char* name;
        bool (Sampler::*work)();
        int share;
    };
    static const std::vector<Work>& works();

    bool addPort();
    bool deletePort();
    bool addArea();
    bool addSpecies();
    bool recordOperation();
    bool weighSingleSpecies();
    bool deleteSingleSpecies();
    bool weighGroup();
    bool measureLengths();
    bool measureFish();
    bool deleteOperation();
    bool deleteGroup();
    bool deleteLengths();
    bool deleteFish();
    bool correctWeight();
    bool addClass();
    bool addFish();

    int below(int limit) { return m_random.bounded(limit); }
    template <typename Map>
    typename Map::const_iterator any(const Map& map) {
        return std::next(map.begin(), below(static_cast<int>(map.size())));
    }
    /// Finds an operation on a screen with a finder; its number, 0 if there is none.
    int find(const ScreenDriver& hand, const QString& searchButton);
    ScreenDriver openSearch(int& operation, const QString& tab);
    ScreenDriver openSampling(int& operation, const QString& caption, const QString& title, const QString& tab);
    /// Steps a navigator from its first row to the one that its caption names.
    static void stepTo(const ScreenDriver& hand, const QString& navigator, const QString& name);
    Fish typeFish(const ScreenDriver& hand);
    void expect(const QString& message) { m_expected.append(message); }

    RecordingDialogs m_dialogs;
    QStringList m_expected;
    Session m_session;
    Model m_model;
    QRandomGenerator m_random;
    int m_names = 0;
    std::unique_ptr<MainWindow> m_window;
};

}  // namespace kelvora::test::day
