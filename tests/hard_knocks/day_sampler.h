#pragma once

#include "day_model.h"
#include "recording_dialogs.h"
#include "shell/main_window.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"

#include <QRandomGenerator>

#include <functional>
#include <optional>

namespace kelvora::test::day {

/// A sampler who does one thing after another at the real screens, chosen by chance, and writes into the model what the
/// file must hold after it.
class Sampler {
public:
    Sampler(TemporaryStore& store, quint32 seed);

    /// Does something; returns what it was. What the screens said meanwhile is checked against what was to be expected.
    QString doSomething();

    [[nodiscard]] const Model& model() const { return m_model; }
    /// Opens a screen in the main window, the others closed.
    ScreenDriver open(const QString& action, const QString& title, const QString& tab = {});
    /// Finds an operation on a screen with a finder.
    void find(const ScreenDriver& hand, const QString& operation, const QString& searchButton);

private:
    /// Something to do, and how often it comes. It gives false where it cannot be done yet.
    struct Work {
        const char* name;
        std::function<bool(Sampler&)> work;
        int share;
    };
    static const std::vector<Work>& works();
    /// A screen with an operation on it and, where it is one of its samples, the sample's species.
    struct Found {
        ScreenDriver hand;
        QString operation, species;
    };

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
    bool deleteSample(const QString& table, const QString& button);
    bool correctWeight();
    bool addClass();
    bool addFish();

    int below(int limit) { return m_random.bounded(limit); }
    template <typename List>
    auto any(const List& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
    }
    QString newName(const QString& front) { return front + QString::number(++m_names); }
    /// Opens a screen with any operation on it, nothing if there is none.
    std::optional<Found> openOperation(const QString& action, const QString& title, const QString& tab,
                                       const QString& searchButton);
    /// The same to take a sample of a species that was caught.
    std::optional<Found> openForSample(const QString& action, const QString& title, const QString& tab);
    /// The search screen on a sample: "length" or "gonad".
    std::optional<Found> openSample(const QString& table);
    /// Steps a navigator from its first row to the one that its caption names.
    static void stepTo(const ScreenDriver& hand, const QString& navigator, const QString& name);
    /// Types a fish in and gives its cells of the file.
    QStringList typeFish(const ScreenDriver& hand);
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
