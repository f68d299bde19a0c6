#pragma once

#include "controls/dialogs.h"

#include <QList>

#include <optional>

namespace kelvora::test {

/// The boxes of the program with the answers planned by a test, in order. A box that nobody planned, or one with
/// another title or text, ends the test at once and says what was expected.
class ScriptedDialogs : public Dialogs {
public:
    using Dialogs::confirm;
    using Dialogs::input;
    using Dialogs::message;

    ~ScriptedDialogs() override;

    void expectMessage(const QString& title, const QString& text);
    /// A message under the application's title.
    void expectMessage(const QString& text) { expectMessage(kApplicationTitle.toString(), text); }
    /// A message whose title or text is not the point, only that its text contains a part.
    void expectMessageContaining(const QString& part);
    void expectConfirm(const QString& title, const QString& text, bool yes);
    void expectInput(const QString& title, const QString& prompt, const std::optional<QString>& answer);
    void expectInput(const QString& prompt, const std::optional<QString>& answer) {
        expectInput(kApplicationTitle.toString(), prompt, answer);
    }
    void expectOpenFile(const std::optional<QString>& path);
    void expectSaveFile(const std::optional<QString>& path);
    void expectSavePicture(const std::optional<QString>& path);

    /// Whether every planned box has come.
    [[nodiscard]] bool done() const { return m_planned.isEmpty(); }

    void message(const QString& title, const QString& text) override;
    bool confirm(const QString& title, const QString& text, Icon icon) override;
    std::optional<QString> input(const QString& title, const QString& prompt, const QString& proposed) override;
    std::optional<QString> openFile(FileKind kind) override;
    std::optional<QString> saveCsvFile() override;
    std::optional<QString> savePictureFile() override;

private:
    struct Box {
        QString kind, title, text;
        bool partOnly = false;
        std::optional<QString> answer;
    };
    Box next(const QString& kind, const QString& title, const QString& text);

    QList<Box> m_planned;
};

}  // namespace kelvora::test
