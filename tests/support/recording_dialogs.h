#pragma once

#include "controls/dialogs.h"

#include <QStringList>

namespace kelvora::test {

using namespace Qt::StringLiterals;

/// Boxes that take everything and say nothing back but what was set before: what is tried here may ask or refuse in
/// many ways, and only what was said is looked at.
class RecordingDialogs : public Dialogs {
public:
    using Dialogs::confirm;
    using Dialogs::input;
    using Dialogs::message;

    void message(const QString& title, const QString& text) override { said.append(title + u": "_s + text); }
    bool confirm(const QString& title, const QString& text, Question /*question*/) override {
        asked.append(title + u": "_s + text);
        return yes;
    }
    std::optional<QString> input(const QString& title, const QString& prompt, const QString& /*proposed*/) override {
        asked.append(title + u": "_s + prompt);
        return typed;
    }
    Answer inputOrNoMore(const QString& title, const QString& prompt, const QString& proposed) override {
        return {input(title, prompt, proposed)};
    }
    std::optional<QString> openFile(FileKind /*kind*/) override { return path; }
    std::optional<QString> saveCsvFile() override { return path; }
    std::optional<QString> savePictureFile() override { return path; }

    std::function<bool()> waiting() override {
        ++waits;
        return [] { return false; };
    }

    QStringList said, asked;
    int waits = 0;  ///< for a file that another program held, each given up at once
    bool yes = true;
    std::optional<QString> typed, path;
};

}  // namespace kelvora::test
