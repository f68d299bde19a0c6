#pragma once

#include <QString>

#include <functional>
#include <optional>

class QWidget;

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
    struct Answer {
        std::optional<QString> text;  ///< nothing if it was cancelled
        bool noMore = false;          ///< the same question is not to come again
    };
    /// A line of text that may be asked for many times: as input(), with a button that ends the asking.
    virtual Answer inputOrNoMore(const QString& title, const QString& prompt, const QString& proposed) = 0;
    /// The path of an existing file of a kind; nothing if it was cancelled.
    virtual std::optional<QString> openFile(FileKind kind) = 0;
    /// The path to write a CSV file to, as typed; nothing if it was cancelled. Does not ask before overwriting.
    virtual std::optional<QString> saveCsvFile() = 0;
    /// The path to write a picture to, ending in ".png" or ".svg" unless another ending was typed; nothing if it was
    /// cancelled. Asks before overwriting.
    virtual std::optional<QString> savePictureFile() = 0;
    /// Begins a wait for the data file, which another program holds: each call of what it gives lets a moment go by and
    /// returns whether to wait any longer. Where nobody sits in front of the screen, it is not waited at all.
    virtual std::function<bool()> waiting() {
        return [] { return false; };
    }

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
    Answer inputOrNoMore(const QString& title, const QString& prompt, const QString& proposed) override;
    std::optional<QString> openFile(FileKind kind) override;
    std::optional<QString> saveCsvFile() override;
    std::optional<QString> savePictureFile() override;
    std::function<bool()> waiting() override;
};

/// Says what is wrong with an entry, under the program's title where there is none, and moves the keyboard to the field
/// that is to be put right.
void refuse(Dialogs& dialogs, const QString& title, const QString& message, QWidget* field = nullptr);

}  // namespace kelvora
