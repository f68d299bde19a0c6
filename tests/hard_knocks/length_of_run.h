#pragma once

#include <QtGlobal>

namespace kelvora::test {

/// How often a hard knock is tried: a few times with every test run, and many times when long.sh asks for it.
inline int times(int everyDay, int longRun) {
    return qEnvironmentVariableIsSet("KELVORA_LONG") ? longRun : everyDay;
}

/// The seed of all random choices; KELVORA_SEED sets another one than that of every day.
inline quint32 seed() {
    bool given = false;
    const int number = qEnvironmentVariableIntValue("KELVORA_SEED", &given);
    return given ? static_cast<quint32>(number) : 20040309U;
}

}  // namespace kelvora::test
