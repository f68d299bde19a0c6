#pragma once

#include <QDateEdit>

namespace kelvora {

/// A date in the system's short form with a calendar below, the year always with four digits: a sampler must see which
/// century is stored. It starts with today.
class DateField : public QDateEdit {
public:
    explicit DateField(QWidget* parent = nullptr);

protected:
    bool focusNextPrevChild(bool next) override;
    void wheelEvent(QWheelEvent* event) override;
};

}  // namespace kelvora
