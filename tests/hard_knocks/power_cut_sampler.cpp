#include "power_cut_sampler.h"

#include "data/dates.h"
#include "journeys/opened_screen.h"
#include "support/scripted_dialogs.h"
#include "system_calls.h"

#include <QDate>

#include <csignal>
#include <unistd.h>

namespace kelvora::test::cut {
namespace {

const std::vector<QString> kSpecies = {u"Rastrelliger kanagurta"_qs, u"Upeneus vittatus"_qs, u"Nemipterus virgatus"_qs};
constexpr int kFish = 4;
constexpr int kClasses = 3;

/// Figures that differ from operation to operation.
int figure(int operation, int which) {
    return 1 + (operation * 7 + which * 3) % 40;
}

QString text(int number) {
    return QString::number(number);
}

void confirmed() {
    constexpr char line[] = "saved\n";
    if (write(STDOUT_FILENO, line, sizeof line - 1) < 0) {
        _exit(1);
    }
}

/// Cuts the power at a write to the disk, of which half arrives, or, where that falls on the removal of a journal, just
/// before it.
void cutAtWrite(int which) {
    static int left = 0;
    left = which;
    interceptWrites([](int file, const void* bytes, std::size_t size, off_t at) {
        if (--left == 0) {
            static_cast<void>(pwrite(file, bytes, size / 2, at));
            kill(getpid(), SIGKILL);
        }
        return size;
    });
    interceptRemovals([] {
        if (--left == 0) {
            kill(getpid(), SIGKILL);
        }
    });
}

/// At work in the main window.
struct Sampler {
    void recordOperation(int operation) {
        const ScreenDriver hand = open(u"Fishing Operation"_qs, u"Fishing Information"_qs);
        for (const QStringList& chosen :
             {QStringList{u"Vessel Name"_qs, u"Blue Fin"_qs}, QStringList{u"Fishing Gear"_qs, u"Gill net"_qs},
              QStringList{u"Fishing Method"_qs, u"Drift"_qs}, QStringList{u"Fishing Area"_qs, u"A2"_qs},
              QStringList{u"Landing State/Province"_qs, u"Alpha"_qs}, QStringList{u"Landing Port"_qs, u"Bex"_qs}}) {
            hand.choose(chosen[0], chosen[1]);
        }
        hand.type(u"Total Catch (kg/trip)"_qs, text(figure(operation, 0)));
        dialogs.expectMessage(u"Insert Complete"_qs);
        hand.press(u"SAVE"_qs);
        confirmed();
    }

    void weighSingleSpecies(int operation) {
        const ScreenDriver frame =
            open(u"Species Composition"_qs, u"Species Composition"_qs).within(u"Single species"_qs);
        frame.choose(u"Species"_qs, kSpecies[0]);
        frame.type(u"Weight"_qs, text(figure(operation, 1)));
        frame.press(u"Add"_qs);
        confirmed();
    }

    void weighGroup(int operation) {
        const ScreenDriver frame =
            open(u"Species Composition"_qs, u"Species Composition"_qs).within(u"Sampling group"_qs);
        frame.type(u"Group"_qs, u"Trash"_qs);
        frame.type(u"Total weight"_qs, text(4 * (figure(operation, 2) + figure(operation, 3))));
        for (const int which : {2, 3}) {
            frame.choose(u"Species"_qs, kSpecies[static_cast<std::size_t>(which) - 1]);
            frame.type(u"Weight"_qs, text(figure(operation, which)));
            frame.press(u"ADD"_qs);
        }
        dialogs.expectConfirm(u"CONFIRM"_qs, u"Are you sure to 'SAVE' this group"_qs, true);
        frame.press(u"SAVE"_qs);
        confirmed();
    }

    void measureLengths(int operation) {
        const ScreenDriver hand = open(u"Length Frequency"_qs, u"Length Frequency"_qs);
        hand.openTab(u"Length Frequency"_qs);
        hand.choose(u"Species"_qs, kSpecies[0]);
        hand.type(u"Sampling weight"_qs, text(figure(operation, 4)));
        hand.type(u"Lower limit(cm)"_qs, u"10"_qs);
        hand.press(u"START INPUT>>"_qs);
        for (int i = 0; i < kClasses; ++i) {
            hand.type(u"Frequency"_qs, text(figure(operation, 5 + i)));
            hand.key(u"Frequency"_qs, Qt::Key_Return);
        }
        hand.press(u"FINISH"_qs);
        dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert this data"_qs, true);
        hand.press(u"SAVE"_qs);
        confirmed();
    }

    void measureFish(int operation) {
        const ScreenDriver hand = open(u"Gonad Maturity"_qs, u"Gonad Matuarity Detail"_qs);
        hand.openTab(u"Gonad Maturity Detail"_qs);
        hand.choose(u"Species"_qs, kSpecies[2]);
        hand.press(u"ADD SAMPLING >>"_qs);
        for (int i = 0; i < kFish; ++i) {
            for (const QString& field : {u"TL(mm)"_qs, u"BL(mm)"_qs, u"FL(mm)"_qs, u"SL(mm)"_qs, u"GW"_qs}) {
                hand.type(field, text(figure(operation, 8 + i)));
            }
            hand.type(u"BW"_qs, u"100"_qs);
            hand.choose(u"Stage"_qs, u"2-Maturing"_qs);
            dialogs.expectConfirm(u"GONAD"_qs, u"Are you sure to add this sampling"_qs, true);
            hand.press(u"NEXT>>"_qs);
        }
        dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to add this data to database"_qs, true);
        hand.press(u"SAVE"_qs);
        confirmed();
    }

    [[nodiscard]] ScreenDriver open(const QString& action, const QString& title) const {
        return openedScreen(*window, action, title);
    }

    ScriptedDialogs dialogs;
    std::unique_ptr<MainWindow> window;
};

}  // namespace

std::vector<Save> savesOf(int operation) {
    const auto row = [operation](const QString& table, const QStringList& values) {
        return table + u'|' + text(operation) + u'|' + values.join(u'|');
    };
    const auto of = [operation](int which) { return text(figure(operation, which)); };
    const int sample = figure(operation, 2) + figure(operation, 3);
    std::vector<Save> saves;
    saves.push_back({{row(u"operation"_qs, {of(0), u"Blue Fin"_qs})}});
    saves.push_back({{row(u"group"_qs, {u"1"_qs, u"Single species"_qs, of(1)}),
                      row(u"composition"_qs, {u"1"_qs, u"1"_qs, of(1), of(1)})}});
    saves.push_back({{row(u"group"_qs, {u"2"_qs, u"Trash"_qs, text(4 * sample)}),
                      row(u"composition"_qs, {u"2"_qs, u"2"_qs, of(2), text(4 * figure(operation, 2))}),
                      row(u"composition"_qs, {u"2"_qs, u"3"_qs, of(3), text(4 * figure(operation, 3))})}});
    Save lengths{{row(u"length"_qs, {u"1"_qs, of(4)})}};
    for (int i = 0; i < kClasses; ++i) {
        lengths.rows.append(row(u"class"_qs, {u"1"_qs, text(10 + 2 * i), of(5 + i)}));
    }
    saves.push_back(lengths);
    Save fish{{row(u"gonad"_qs, {u"3"_qs, u"0.4"_qs})}, false};
    for (int i = 0; i < kFish; ++i) {
        fish.rows.append(row(u"fish"_qs, {u"3"_qs, text(i + 1), of(8 + i), u"100"_qs, of(8 + i)}));
    }
    saves.push_back(fish);
    return saves;
}

void sampleUntilKilled(const QString& path) {
    if (qEnvironmentVariableIsSet(kCutAtWrite)) {
        cutAtWrite(qEnvironmentVariableIntValue(kCutAtWrite));
    }
    Session session;
    session.userName = u"Port Sampler"_qs;
    Sampler sampler;
    while (true) {
        // A new main window for each operation: the next number is asked of the file, as after every start.
        session.lastSavedOperation = 0;
        sampler.window = std::make_unique<MainWindow>(Context{path, session, sampler.dialogs});
        sampler.window->show();
        const int operation = sampler.open(u"Fishing Operation"_qs, u"Fishing Information"_qs).text(u"No."_qs).toInt();
        sampler.recordOperation(operation);
        sampler.weighSingleSpecies(operation);
        sampler.weighGroup(operation);
        sampler.measureLengths(operation);
        sampler.measureFish(operation);
    }
}

}  // namespace kelvora::test::cut
