#pragma once

#include "reference_screen.h"

#include <QFile>
#include <QLabel>

#include <algorithm>
#include <functional>

namespace kelvora::test {

/// One of the two imports of the "General Information" screen.
struct ImportDesk : ReferenceScreen {
    ImportDesk(QString frameCaption, QString name, bool empty = false)
        : ReferenceScreen(empty), frame(std::move(frameCaption)), preview(std::move(name)) {}

    /// The boxes that are to come once the file is chosen.
    using Planned = std::function<void(ScriptedDialogs& dialogs)>;

    /// Chooses a file that holds these bytes.
    void importBytes(const QByteArray& bytes, const Planned& planned = {},
                     const QString& name = QStringLiteral("import.csv")) {
        QFile file(store.file(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("the file cannot be written");
        }
        file.close();
        importFile(file.fileName(), planned);
    }
    void importFile(const std::optional<QString>& path, const Planned& planned = {}) {
        store.dialogs.expectOpenFile(path);
        if (planned) {
            planned(store.dialogs);
        }
        press(QStringLiteral("Import"));
    }
    void press(const QString& button) const { in(frame).press(button); }
    /// Presses the save button and answers its question.
    void save(const QString& button, int rows, bool yes = true, const Planned& planned = {}) {
        store.dialogs.expectConfirm(QStringLiteral("CONFIRM"),
                                    QStringLiteral("Are you sure to insert '%1' data").arg(rows), yes);
        if (planned) {
            planned(store.dialogs);
        }
        press(button);
    }
    [[nodiscard]] QStringList rows() const { return driver().rows(preview); }
    [[nodiscard]] QString path() const { return driver().text(QString(preview).replace(u"import"_qs, u"file"_qs)); }
    [[nodiscard]] bool enabled(const QString& button) const { return in(frame).enabled(button); }
    /// Whether a line of the import reads so.
    [[nodiscard]] bool says(const QString& text) const {
        const auto labels = in(frame).grid(preview)->parentWidget()->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) { return label->text() == text; });
    }

    QString frame, preview;
};

/// The names and values of a file of one line of reference results.
inline QMap<QString, QString> summary(const QString& name) {
    QFile file(QStringLiteral(KELVORA_TEST_FILES "/") + name);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("no file %s", qPrintable(name));
    }
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    const QStringList names = lines.at(0).split(u',');
    const QStringList values = lines.at(1).split(u',');
    QMap<QString, QString> results;
    for (int i = 0; i < names.size(); ++i) {
        results[names[i]] = values.at(i);
    }
    return results;
}

}  // namespace kelvora::test
