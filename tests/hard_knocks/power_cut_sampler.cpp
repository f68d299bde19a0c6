#include "power_cut_sampler.h"

#include "actions.h"
#include "system_calls.h"

#include <QDate>

#include <csignal>
#include <string_view>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvora::test::cut {
namespace {

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
        return 0;
    });
}

}  // namespace

const std::vector<QStringList>& saves() {
    const QString fish = u"gonad_detail|%1|3|%2|100|100|100|100|100|Male|2|2.5|2.5"_s;
    static const std::vector<QStringList> all = {
        {u"operation|%1|2|Port Sampler|"_s + QDate::currentDate().toString(Qt::ISODate) +
         u"|2|0|0|0|0|0|0|Day|0|0|120.5|rain|Sea Star|A2"_s},
        {u"group_main|1|%1|Single species|4"_s, u"group_composition|%1|3|1|4|4"_s},
        {u"group_main|2|%1|Mixed|60"_s, u"group_composition|%1|3|2|4|60"_s},
        {u"length|%1|3|1.5"_s, u"length_detail|%1|3|10|12|11|3"_s},
        {u"gonad|%1|3|0.3"_s, fish.arg(u"%1"_s, u"1"_s), fish.arg(u"%1"_s, u"2"_s), fish.arg(u"%1"_s, u"3"_s)},
    };
    return all;
}

void sampleUntilKilled(const QString& path) {
    if (qEnvironmentVariableIsSet(kCutAtWrite)) {
        cutAtWrite(qEnvironmentVariableIntValue(kCutAtWrite));
    }
    // Every species has its class interval.
    Action lengths = action("lengths");
    lengths.steps.remove(u"Class Interval = 2; "_s);
    const std::vector<Action> works{action("an operation"), action("a single species"), action("a group"), lengths,
                                    action("fish")};
    Session session;
    session.userName = u"Port Sampler"_s;
    RecordingDialogs dialogs;
    while (true) {
        // The screens stay open, and are opened anew for the next operation: its number is asked of the file.
        std::vector<std::unique_ptr<Screen>> screens;
        for (const Action& work : works) {
            prepare(work, screens.emplace_back(), {path, session, dialogs}).press(work.button);
            constexpr std::string_view line = "saved\n";
            if (write(STDOUT_FILENO, line.data(), line.size()) < 0) {
                _exit(1);
            }
        }
    }
}

}  // namespace kelvora::test::cut
