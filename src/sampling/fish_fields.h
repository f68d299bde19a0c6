#pragma once

#include "records/gonad_fish.h"

#include <QWidget>

#include <optional>
#include <vector>

class QGridLayout;

namespace kelvora {

class BoundList;
class Connection;
class Dialogs;
class FixedList;

/// The fields of one fish, in the order in which it is measured. Enter goes from field to field, so that one hand can
/// stay on the measuring board; a sex is chosen with its first letter, a stage with its number.
class FishFields : public QWidget {
    Q_OBJECT

public:
    /// Reads the maturity stages.
    explicit FishFields(Connection& connection);

    /// The room that the captions in front of the fields take, in pixels.
    [[nodiscard]] int captionWidth() const;

    /// Asks whether the fish is to be added. Nothing unless it can be: a measurement that is wrong is said, emptied and
    /// has the keyboard then.
    std::optional<GonadFish> askFor(Dialogs& dialogs);
    /// Makes ready for the next fish: the measurements are emptied, the sex is the first of its list. The stage stays,
    /// since the fish of a catch are often of one stage.
    void startNext();
    /// Empties all fields.
    void clear();
    void setLocked(bool locked);
    /// Puts the keyboard into the first field.
    void focusFirst();

Q_SIGNALS:
    /// Enter in the last field.
    void completed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] GonadFish typed() const;
    void addMeasurement(const QString& caption, const QString& unit = {});
    void addRow(const QString& caption, QWidget* field);
    bool onSexKey(const QString& letter);
    void onStageTyped(const QString& text);
    void settleStage();
    void leave(const QObject* field);

    QGridLayout* m_form;
    FixedList* m_sex;
    BoundList* m_stage;
    std::vector<QWidget*> m_order;  ///< as in kFishFields
};

}  // namespace kelvora
