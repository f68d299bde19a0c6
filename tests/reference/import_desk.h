#pragma once

#include "reference_screen.h"

#include <QFile>
#include <QLabel>

#include <algorithm>

namespace kelvora::test {

using namespace Qt::StringLiterals;

/// One of the two imports of the "General Information" screen.
struct ImportDesk : ReferenceScreen {
    ImportDesk(const QString& onTab, QString frameCaption, QString name, bool empty)
        : ReferenceScreen(onTab, empty), frame(std::move(frameCaption)), preview(std::move(name)) {}

    /// Chooses a file that holds these bytes; the boxes that are to come then are planned by a function.
    template <typename Plan>
    void importBytes(const QByteArray& bytes, const Plan& plan, const QString& name = u"import.csv"_s) {
        QFile file(store.file(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        store.dialogs.expectOpenFile(file.fileName());
        plan(store.dialogs);
        press(u"Import"_s);
    }
    void importBytes(const QByteArray& bytes) {
        importBytes(bytes, [](ScriptedDialogs&) {});
    }
    void importFile(const std::optional<QString>& path) {
        store.dialogs.expectOpenFile(path);
        press(u"Import"_s);
    }
    void press(const QString& button) const { in(frame).press(button); }
    void expectSave(int rows, bool yes = true) {
        store.dialogs.expectConfirm(u"CONFIRM"_s, u"Are you sure to insert '%1' data"_s.arg(rows), yes);
    }
    void save(const QString& button, int rows, bool yes = true) {
        expectSave(rows, yes);
        press(button);
    }
    [[nodiscard]] QStringList previewed() const { return rows(preview); }
    [[nodiscard]] QString path() const { return text(QString(preview).replace(u"import"_s, u"file"_s)); }
    [[nodiscard]] bool enabled(const QString& button) const { return in(frame).enabled(button); }
    /// Whether a line of the import reads so.
    [[nodiscard]] bool says(const QString& line) const {
        const auto labels = in(frame).grid(preview)->parentWidget()->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) { return label->text() == line; });
    }

    QString frame, preview;
};

/// The values of these names in a file of one line of reference results, joined as the rows of a query are.
inline QString expectedOf(const QString& name, const QString& wanted) {
    QFile file(u"" KELVORA_TEST_FILES "/"_s + name);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("no file %s", qPrintable(name));
    }
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    const QStringList names = lines.at(0).split(u',');
    QStringList values;
    for (const QString& one : wanted.split(u',')) {
        values.append(lines.at(1).split(u',').at(names.indexOf(one)));
    }
    return values.join(u'|');
}

}  // namespace kelvora::test
