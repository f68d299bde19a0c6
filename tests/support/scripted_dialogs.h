#pragma once

#include "controls/dialogs.h"

#include <QList>

#include <optional>

namespace kelvora::test {

using namespace Qt::StringLiterals;

/// Whether Enter in a question deletes nothing and goes on adding, by the words of the question.
bool proposesRightly(Dialogs::Question question, const QString& text);

/// The boxes of the program with the answers planned by a test, in order. A box that nobody planned, or one with
/// another title or text, ends the test at once and says what was expected.
class ScriptedDialogs : public Dialogs {
public:
    using Dialogs::confirm;
    using Dialogs::input;
    using Dialogs::message;

    ~ScriptedDialogs() override;

    void expectMessage(const QString& title, const QString& text) { m_planned.append({u"message"_s, title, text}); }
    /// A message under the application's title.
    void expectMessage(const QString& text) { expectMessage(kApplicationTitle.toString(), text); }
    /// A message whose title or text is not the point, only that its text contains a part.
    void expectMessageContaining(const QString& part) { m_planned.append({u"message"_s, {}, part, {}, true}); }
    void expectConfirm(const QString& title, const QString& text, bool yes) {
        m_planned.append({u"question"_s, title, text, yes ? std::optional(QString()) : std::nullopt});
    }
    void expectInput(const QString& title, const QString& prompt, const std::optional<QString>& answer) {
        m_planned.append({u"input"_s, title, prompt, answer});
    }
    void expectInput(const QString& prompt, const std::optional<QString>& answer) {
        expectInput(kApplicationTitle.toString(), prompt, answer);
    }
    void expectNoMore(const QString& title, const QString& prompt) {
        m_planned.append({u"input"_s, title, prompt, {}, false, true});
    }
    void expectOpenFile(const std::optional<QString>& path) { m_planned.append({u"open file"_s, {}, {}, path}); }
    void expectSaveFile(const std::optional<QString>& path) { m_planned.append({u"save file"_s, {}, {}, path}); }
    void expectSavePicture(const std::optional<QString>& path) { m_planned.append({u"save picture"_s, {}, {}, path}); }

    /// Whether every planned box has come.
    [[nodiscard]] bool done() const { return m_planned.isEmpty(); }

    void message(const QString& title, const QString& text) override { next(u"message"_s, title, text); }
    bool confirm(const QString& title, const QString& text, Question question) override {
        if (!proposesRightly(question, text)) {
            qFatal("the wrong button is proposed: %s", qPrintable(text));
        }
        return next(u"question"_s, title, text).has_value();
    }
    std::optional<QString> input(const QString& title, const QString& prompt, const QString& /*proposed*/) override {
        return next(u"input"_s, title, prompt);
    }
    Answer inputOrNoMore(const QString& title, const QString& prompt, const QString& /*proposed*/) override {
        const bool noMore = !m_planned.isEmpty() && m_planned.first().noMore;
        return {next(u"input"_s, title, prompt), noMore};
    }
    std::optional<QString> openFile(FileKind /*kind*/) override { return next(u"open file"_s); }
    std::optional<QString> saveCsvFile() override { return next(u"save file"_s); }
    std::optional<QString> savePictureFile() override { return next(u"save picture"_s); }

private:
    struct Box {
        QString kind, title, text;
        std::optional<QString> answer = {};
        bool partOnly = false;
        bool noMore = false;
    };
    /// The answer to a box that came.
    std::optional<QString> next(const QString& kind, const QString& title = {}, const QString& text = {});

    QList<Box> m_planned;
};

}  // namespace kelvora::test
