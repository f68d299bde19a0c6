#include "step_dialogs.h"

#include "support/scripted_dialogs.h"

using namespace Qt::StringLiterals;

namespace kelvora::test {

bool isText(const QString& text, QString expected) {
    const bool anyFront = expected.startsWith(u'…');
    const bool anyEnd = expected.size() > 1 && expected.endsWith(u'…');
    expected = expected.mid(anyFront ? 1 : 0);
    expected.chop(anyEnd ? 1 : 0);
    if (anyFront && anyEnd) {
        return text.contains(expected);
    }
    return anyFront ? text.endsWith(expected) : anyEnd ? text.startsWith(expected) : text == expected;
}

void StepDialogs::message(const QString& title, const QString& text) {
    next(u"message"_s, title, text);
}

bool StepDialogs::confirm(const QString& title, const QString& text, Question question) {
    if (!proposesRightly(question, text)) {
        m_unplanned.append(u"the wrong button is proposed: "_s + text);
    }
    return next(u"question"_s, title, text) == u"Yes"_s;
}

std::optional<QString> StepDialogs::input(const QString& title, const QString& prompt, const QString& /*proposed*/) {
    return next(u"question"_s, title, prompt);
}

Dialogs::Answer StepDialogs::inputOrNoMore(const QString& title, const QString& prompt, const QString& proposed) {
    const std::optional<QString> answer = input(title, prompt, proposed);
    return answer == u"No more"_s ? Answer{std::nullopt, true} : Answer{answer};
}

std::optional<QString> StepDialogs::openFile(FileKind /*kind*/) {
    return next(u"question"_s, u"open file"_s);
}

std::optional<QString> StepDialogs::saveCsvFile() {
    return next(u"question"_s, u"save file"_s);
}

std::optional<QString> StepDialogs::savePictureFile() {
    return next(u"question"_s, u"save picture"_s);
}

/// Boxes come in the planned order, but for those that an obstacle brings in between.
std::optional<QString> StepDialogs::next(const QString& kind, const QString& title, const QString& text) {
    if (!m_planned.isEmpty()) {
        const ExpectedBox& box = m_planned.first();
        if (box.kind == kind && box.title == title && isText(text, box.text)) {
            return m_planned.takeFirst().answer;
        }
    }
    m_unplanned.append(u"%1 [%2] \"%3\""_s.arg(kind, title, text));
    return std::nullopt;
}

}  // namespace kelvora::test
