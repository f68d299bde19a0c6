#include "support/scripted_dialogs.h"

#include <QRegularExpression>
#include <QtDebug>

using namespace Qt::StringLiterals;

namespace kelvora::test {

bool proposesRightly(Dialogs::Question question, const QString& text) {
    // An "update" of a length sample deletes the one that is stored.
    static const QRegularExpression deletes(u"delete|remove|update"_s);
    return text.contains(deletes) == (question == Dialogs::Question::Deleting);
}

ScriptedDialogs::~ScriptedDialogs() {
    if (!done()) {
        qWarning("a planned box never came: %s", qPrintable(m_planned.first().text));
    }
}

std::optional<QString> ScriptedDialogs::next(const QString& kind, const QString& title, const QString& text) {
    const QString came = u"%1 [%2] \"%3\""_s.arg(kind, title, text);
    if (m_planned.isEmpty()) {
        qFatal("a box nobody planned: %s", qPrintable(came));
    }
    const Box box = m_planned.takeFirst();
    const bool same = box.kind == kind && (box.partOnly ? text.contains(box.text, Qt::CaseInsensitive)
                                                        : box.title == title && box.text == text);
    if (!same) {
        qFatal("expected %s [%s] \"%s\", but there came %s", qPrintable(box.kind), qPrintable(box.title),
               qPrintable(box.text), qPrintable(came));
    }
    return box.answer;
}

}  // namespace kelvora::test
