#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <map>
#include <memory>

namespace kelvora::test {

/// The test classes of this executable by their names.
inline auto& testClasses() {
    static std::map<QString, std::function<std::unique_ptr<QObject>()>> classes;
    return classes;
}

}  // namespace kelvora::test

// Registers a test class: KELVORA_TEST(TestSql, "sql") at the end of its file, in front of the moc include.
#define KELVORA_TEST(Class, name)  \
    static const bool registered = \
        kelvora::test::testClasses().try_emplace(u"" name ""_s, [] { return std::make_unique<Class>(); }).second
