#include "support/planned_dialogs.h"

#include <QRegularExpression>

namespace kelvora::test {

PlannedBox PlannedBox::of(const QString& line) {
    const bool asks = line.startsWith(u'?');
    const QString said = line.mid(2);
    const qsizetype arrow = asks ? said.lastIndexOf(u" -> "_s) : -1;
    const QString box = arrow < 0 ? said : said.first(arrow);
    const QString answer = arrow < 0 ? QString() : said.sliced(arrow + 4).trimmed();
    const qsizetype colon = box.indexOf(u": "_s);
    return {asks ? u"question"_s : u"message"_s, colon < 0 ? box : box.first(colon),
            colon < 0 ? QString() : box.sliced(colon + 2),
            !asks || answer == u"cancel" ? std::nullopt : std::optional(answer)};
}

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

/// Enter in a question deletes nothing and goes on adding, by the words of the question.
bool PlannedDialogs::confirm(const QString& title, const QString& text, Question question) {
    // An "update" of a length sample deletes the one that is stored.
    static const QRegularExpression deletes(u"delete|remove|update"_s);
    const bool rightly = text.contains(deletes) == (question == Question::Deleting);
    const QString kind = rightly ? u"question"_s : u"question with the wrong button proposed"_s;
    return next(kind, title, text, yes ? u"Yes"_s : u"No"_s) == u"Yes";
}

Dialogs::Answer PlannedDialogs::inputOrNoMore(const QString& title, const QString& prompt, const QString& proposed) {
    const std::optional<QString> answer = input(title, prompt, proposed);
    return answer == u"No more" ? Answer{std::nullopt, true} : Answer{answer};
}

std::optional<QString> PlannedDialogs::next(const QString& kind, const QString& title, const QString& text,
                                            const std::optional<QString>& otherwise) {
    if (!m_planned.isEmpty()) {
        const PlannedBox& box = m_planned.first();
        if (box.kind == kind && box.title == title && isText(text, box.text)) {
            return m_planned.takeFirst().answer;
        }
    }
    m_unplanned.append(u"%1 [%2] \"%3\""_s.arg(kind, title, text));
    if (m_fatal) {
        qFatal("a box nobody planned: %s", qPrintable(m_unplanned.last()));
    }
    if (kind == u"message") {
        said.append(title + u": "_s + text);
    }
    return otherwise;
}

}  // namespace kelvora::test
