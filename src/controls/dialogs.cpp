#include "controls/dialogs.h"

#include "controls/fields.h"
#include "controls/progress.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// A name of thousands of characters must not push the buttons off the screen.
QString fitting(const QString& text) {
    constexpr qsizetype most = 900;
    return text.size() <= most ? text : text.first(most) + u"…"_s;
}

/// The room that a box needs for its title beside the buttons of its window.
int titleRoom(const QString& title) {
    const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
    constexpr int windowButtons = 160;
    return metrics.horizontalAdvance(title) * 5 / 4 + windowButtons;
}

QMessageBox::StandardButton show(const QString& title, const QString& text, QMessageBox::Icon icon,
                                 QMessageBox::StandardButtons buttons, QMessageBox::StandardButton proposed) {
    QMessageBox box(icon, title, fitting(text), buttons, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    auto* layout = qobject_cast<QGridLayout*>(box.layout());
    layout->addItem(new QSpacerItem(titleRoom(title), 0), layout->rowCount(), 0, 1, layout->columnCount());
    box.setDefaultButton(proposed);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

/// A line of text; where the same question may come many times, with a button that ends the asking.
Dialogs::Answer ask(const QString& title, const QString& prompt, const QString& proposed, const QString& noMore) {
    constexpr int ended = QDialog::Accepted + 1;
    QInputDialog box(QApplication::activeWindow());
    box.setWindowTitle(title);
    box.setLabelText(fitting(prompt));
    box.setTextValue(proposed);
    if (noMore.isEmpty()) {
        box.setMinimumWidth(titleRoom(title));
    } else {
        box.adjustSize();  // has its buttons only when it is laid out
        auto* button = box.findChild<QDialogButtonBox*>()->addButton(noMore, QDialogButtonBox::ActionRole);
        QObject::connect(button, &QPushButton::clicked, &box, [&box] { box.done(ended); });
    }
    const int answer = box.exec();
    return {answer == QDialog::Accepted ? std::optional(box.textValue()) : std::nullopt, answer == ended};
}

QString csvFilter() {
    return u"CSV File (*.csv *.CSV *.Csv)"_s;
}

std::optional<QString> unlessCancelled(const QString& path) {
    return path.isEmpty() ? std::nullopt : std::optional(path);
}

}  // namespace

void ModalDialogs::message(const QString& title, const QString& text) {
    show(title, text, QMessageBox::NoIcon, QMessageBox::Ok, QMessageBox::Ok);
}

bool ModalDialogs::confirm(const QString& title, const QString& text, Question question) {
    const auto icon = question == Question::Leaving ? QMessageBox::Question : QMessageBox::NoIcon;
    // Enter goes on, on every desktop: a sampler confirms fish after fish with it. What deletes is not to go with them.
    const auto proposed = question == Question::Deleting ? QMessageBox::No : QMessageBox::Yes;
    return show(title, text, icon, QMessageBox::Yes | QMessageBox::No, proposed) == QMessageBox::Yes;
}

std::optional<QString> ModalDialogs::input(const QString& title, const QString& prompt, const QString& proposed) {
    return ask(title, prompt, proposed, {}).text;
}

Dialogs::Answer ModalDialogs::inputOrNoMore(const QString& title, const QString& prompt, const QString& proposed) {
    return ask(title, prompt, proposed, u"No more"_s);
}

std::optional<QString> ModalDialogs::openFile(FileKind kind) {
    return unlessCancelled(QFileDialog::getOpenFileName(QApplication::activeWindow(), QString(), QString(),
                                                        kind == FileKind::Csv ? csvFilter() : QString()));
}

std::optional<QString> ModalDialogs::saveCsvFile() {
    return unlessCancelled(QFileDialog::getSaveFileName(QApplication::activeWindow(), QString(), QString(), csvFilter(),
                                                        nullptr, QFileDialog::DontConfirmOverwrite));
}

std::optional<QString> ModalDialogs::savePictureFile() {
    const QStringList filters{u"PNG picture (*.png)"_s, u"SVG drawing (*.svg)"_s};
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(u"png"_s);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        dialog.setDefaultSuffix(filter == filters[1] ? u"svg"_s : u"png"_s);
    });
    return dialog.exec() == QDialog::Accepted ? unlessCancelled(dialog.selectedFiles().value(0)) : std::nullopt;
}

std::function<bool()> ModalDialogs::waiting() {
    return waitingBox();
}

void refuse(Dialogs& dialogs, const QString& title, const QString& message, QWidget* field) {
    dialogs.message(title.isEmpty() ? kApplicationTitle.toString() : title, message);
    if (field != nullptr) {
        focusOn(field);
    }
}

}  // namespace kelvora
