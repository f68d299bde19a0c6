#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace kelvora::test {

/// Makes a test class known to the executable under a name; used through KELVORA_TEST.
struct Registration {
    Registration(const QString& name, const std::function<std::unique_ptr<QObject>()>& make);
};

}  // namespace kelvora::test

// Registers a test class: KELVORA_TEST(TestSql, "sql") at the end of its file, in front of the moc include.
#define KELVORA_TEST(Class, name) \
    static const kelvora::test::Registration registered(u"" name ""_s, [] { return std::make_unique<Class>(); })
