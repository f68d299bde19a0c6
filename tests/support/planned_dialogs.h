#pragma once

#include "controls/dialogs.h"

#include <QStringList>

namespace kelvora::test {

using namespace Qt::StringLiterals;

/// A box that is expected, with its answer: "Yes" or "No", the text of an input or "No more", the name of a file.
struct PlannedBox {
    QString kind, title, text;
    std::optional<QString> answer = {};

    /// "? TITLE: TEXT -> ANSWER" or "! TITLE: TEXT"; "…" at an end of a text stands for anything. A file is asked for
    /// by "? open file -> fish.csv" (save file, save picture). The answer "cancel" gives none.
    static PlannedBox of(const QString& line);
};

/// Whether a text is the one expected; "…" at an end of the latter stands for anything.
bool isText(const QString& text, QString expected);

/// The boxes of the program, answered in the order in which they were planned. A box that was not planned ends the
/// test at once; with noting, it is answered as set before and noted, and leaves the planned ones where they are.
class PlannedDialogs : public Dialogs {
public:
    using Dialogs::confirm;
    using Dialogs::input;
    using Dialogs::message;

    enum Unplanned { Fatal, Noted };
    explicit PlannedDialogs(Unplanned unplanned = Fatal) : m_fatal(unplanned == Fatal) {}

    void plan(const QList<PlannedBox>& boxes) {
        m_planned = boxes;
        m_unplanned.clear();
    }
    void expect(const QString& line) { m_planned.append(PlannedBox::of(line)); }
    [[nodiscard]] const QList<PlannedBox>& missing() const { return m_planned; }
    [[nodiscard]] const QStringList& unplanned() const { return m_unplanned; }

    QStringList said;  ///< the texts of unplanned messages
    bool yes = false;  ///< what else is answered: questions, texts, files
    std::optional<QString> typed, path;

    void message(const QString& title, const QString& text) override { next(u"message"_s, title, text, {}); }
    bool confirm(const QString& title, const QString& text, Question question) override;
    std::optional<QString> input(const QString& title, const QString& prompt, const QString& /*proposed*/) override {
        return next(u"question"_s, title, prompt, typed);
    }
    Answer inputOrNoMore(const QString& title, const QString& prompt, const QString& proposed) override;
    std::optional<QString> openFile(FileKind /*kind*/) override { return file(u"open file"_s); }
    std::optional<QString> saveCsvFile() override { return file(u"save file"_s); }
    std::optional<QString> savePictureFile() override { return file(u"save picture"_s); }

private:
    std::optional<QString> file(const QString& title) { return next(u"question"_s, title, {}, path); }
    std::optional<QString> next(const QString& kind, const QString& title, const QString& text,
                                const std::optional<QString>& otherwise);

    QList<PlannedBox> m_planned;
    QStringList m_unplanned;
    bool m_fatal;
};

}  // namespace kelvora::test
