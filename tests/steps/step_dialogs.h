#pragma once

#include "controls/dialogs.h"

#include <QList>
#include <QStringList>

namespace kelvora::test {

/// A box that a step expects, as its line says it; "…" at an end of the text stands for anything.
struct ExpectedBox {
    QString kind, title, text;
    /// "Yes" or "No" of a question, the text of an input or "No more", the name of a file.
    std::optional<QString> answer = {};
};

/// The boxes of the program, answered as a step planned them. A box that was not planned is taken as No and noted.
class StepDialogs : public Dialogs {
public:
    using Dialogs::confirm;
    using Dialogs::input;
    using Dialogs::message;

    void plan(const QList<ExpectedBox>& boxes) {
        m_planned = boxes;
        m_unplanned.clear();
    }
    [[nodiscard]] const QList<ExpectedBox>& missing() const { return m_planned; }
    [[nodiscard]] const QStringList& unplanned() const { return m_unplanned; }

    void message(const QString& title, const QString& text) override;
    bool confirm(const QString& title, const QString& text, Question question) override;
    std::optional<QString> input(const QString& title, const QString& prompt, const QString& proposed) override;
    Answer inputOrNoMore(const QString& title, const QString& prompt, const QString& proposed) override;
    std::optional<QString> openFile(FileKind kind) override;
    std::optional<QString> saveCsvFile() override;
    std::optional<QString> savePictureFile() override;

private:
    std::optional<QString> next(const QString& kind, const QString& title = {}, const QString& text = {});

    QList<ExpectedBox> m_planned;
    QStringList m_unplanned;
};

/// Whether a text is the one expected; "…" at an end of the latter stands for anything.
bool isText(const QString& text, QString expected);

}  // namespace kelvora::test
