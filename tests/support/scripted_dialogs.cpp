#include "support/scripted_dialogs.h"

#include <QtDebug>

namespace kelvora::test {

ScriptedDialogs::~ScriptedDialogs() {
    if (!done()) {
        qWarning("a planned box never came: %s", qPrintable(m_planned.first().text));
    }
}

void ScriptedDialogs::expectMessage(const QString& title, const QString& text) {
    m_planned.append({QStringLiteral("message"), title, text, false, {}});
}

void ScriptedDialogs::expectMessageContaining(const QString& part) {
    m_planned.append({QStringLiteral("message"), {}, part, true, {}});
}

void ScriptedDialogs::expectConfirm(const QString& title, const QString& text, bool yes) {
    m_planned.append({QStringLiteral("question"), title, text, false, yes ? std::optional(QString()) : std::nullopt});
}

void ScriptedDialogs::expectInput(const QString& title, const QString& prompt, const std::optional<QString>& answer) {
    m_planned.append({QStringLiteral("input"), title, prompt, false, answer});
}

void ScriptedDialogs::expectOpenFile(const std::optional<QString>& path) {
    m_planned.append({QStringLiteral("open file"), {}, {}, false, path});
}

void ScriptedDialogs::expectSaveFile(const std::optional<QString>& path) {
    m_planned.append({QStringLiteral("save file"), {}, {}, false, path});
}

void ScriptedDialogs::expectSavePicture(const std::optional<QString>& path) {
    m_planned.append({QStringLiteral("save picture"), {}, {}, false, path});
}

void ScriptedDialogs::message(const QString& title, const QString& text) {
    next(QStringLiteral("message"), title, text);
}

bool ScriptedDialogs::confirm(const QString& title, const QString& text, Icon /*icon*/) {
    return next(QStringLiteral("question"), title, text).answer.has_value();
}

std::optional<QString> ScriptedDialogs::input(const QString& title, const QString& prompt,
                                              const QString& /*proposed*/) {
    return next(QStringLiteral("input"), title, prompt).answer;
}

std::optional<QString> ScriptedDialogs::openFile(FileKind /*kind*/) {
    return next(QStringLiteral("open file"), {}, {}).answer;
}

std::optional<QString> ScriptedDialogs::saveCsvFile() {
    return next(QStringLiteral("save file"), {}, {}).answer;
}

std::optional<QString> ScriptedDialogs::savePictureFile() {
    return next(QStringLiteral("save picture"), {}, {}).answer;
}

ScriptedDialogs::Box ScriptedDialogs::next(const QString& kind, const QString& title, const QString& text) {
    const QString came = QStringLiteral("%1 [%2] \"%3\"").arg(kind, title, text);
    if (m_planned.isEmpty()) {
        qFatal("a box nobody planned: %s", qPrintable(came));
    }
    Box box = m_planned.takeFirst();
    const bool same = box.kind == kind && (box.partOnly ? text.contains(box.text, Qt::CaseInsensitive)
                                                        : box.title == title && box.text == text);
    if (!same) {
        qFatal("expected %s [%s] \"%s\", but there came %s", qPrintable(box.kind), qPrintable(box.title),
               qPrintable(box.text), qPrintable(came));
    }
    return box;
}

}  // namespace kelvora::test
