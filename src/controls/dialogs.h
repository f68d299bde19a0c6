#pragma once

#include <QString>

#include <optional>

namespace kelvora {

/// The application's title, which a box without a title of its own carries.
inline constexpr QStringView kApplicationTitle = u"Kelvora";

/// Every box that the program shows is asked for here, so that a test can answer in the sampler's place.
class Dialogs {
public:
    /// What a Yes does. Enter is a Yes where something is added, and a No where something stored or measured is
    /// deleted.
    enum class Question { Adding, Deleting, Leaving };
    enum class FileKind { Csv, Any };

    virtual ~Dialogs() = default;

    /// A text with an OK button.
    virtual void message(const QString& title, const QString& text) = 0;
    /// A question with Yes and No; anything but Yes is a no.
    virtual bool confirm(const QString& title, const QString& text, Question question = Question::Adding) = 0;
    /// A line of text, at first the proposed one; nothing if it was cancelled.
    virtual std::optional<QString> input(const QString& title, const QString& prompt, const QString& proposed) = 0;
    /// The path of an existing file of a kind; nothing if it was cancelled.
    virtual std::optional<QString> openFile(FileKind kind) = 0;
    /// The path to write a CSV file to, as typed; nothing if it was cancelled. Does not ask before overwriting.
    virtual std::optional<QString> saveCsvFile() = 0;
    /// The path to write a picture to, ending in ".png" or ".svg" unless another ending was typed; nothing if it was
    /// cancelled. Asks before overwriting.
    virtual std::optional<QString> savePictureFile() = 0;

    /// A text with an OK button under the application's title.
    void message(const QString& text) { message(kApplicationTitle.toString(), text); }
    bool confirm(const QString& text, Question question = Question::Adding) {
        return confirm(kApplicationTitle.toString(), text, question);
    }
    std::optional<QString> input(const QString& prompt) { return input(kApplicationTitle.toString(), prompt, {}); }
};

/// The boxes on the screen.
class ModalDialogs : public Dialogs {
public:
    using Dialogs::confirm;
    using Dialogs::input;
    using Dialogs::message;

    void message(const QString& title, const QString& text) override;
    bool confirm(const QString& title, const QString& text, Question question) override;
    std::optional<QString> input(const QString& title, const QString& prompt, const QString& proposed) override;
    std::optional<QString> openFile(FileKind kind) override;
    std::optional<QString> saveCsvFile() override;
    std::optional<QString> savePictureFile() override;
};

}  // namespace kelvora
