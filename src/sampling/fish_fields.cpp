#include "sampling/fish_fields.h"

#include "controls/bound_list.h"
#include "controls/fields.h"
#include "data/connection.h"

#include <QAbstractItemModel>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora {

FishFields::FishFields(Connection& connection)
    : m_form(new QGridLayout(this)),
      m_sex(new FixedList({u"Male"_s, u"Female"_s, u"Juvenile"_s})),
      m_stage(new BoundList) {
    m_form->setContentsMargins({});
    m_form->setVerticalSpacing(8);
    addMeasurement(u"TL(mm)"_s, {}, &GonadFish::tl);
    addMeasurement(u"BL(mm)"_s, {}, &GonadFish::bl);
    addMeasurement(u"FL(mm)"_s, {}, &GonadFish::fl);
    addMeasurement(u"SL(mm)"_s, {}, &GonadFish::sl);
    addMeasurement(u"BW"_s, u"g"_s, &GonadFish::bw);
    addRow(u"SEX"_s, m_sex);
    addRow(u"Stage"_s, m_stage);
    addMeasurement(u"GW"_s, u"g"_s, &GonadFish::gw);
    m_form->setColumnStretch(1, 1);

    m_stage->setSource(
        connection.model(Sql("SELECT stageid,stageid & '-' & stagename as stname FROM gonad_stage order by stageid")),
        u"stname"_s, u"stageid"_s);
    // A list of offers would swallow the next key, and the number alone says which stage is meant.
    m_stage->setCompleter(nullptr);
    connect(m_stage->lineEdit(), &QLineEdit::textEdited, this, &FishFields::onStageTyped);
    connect(m_stage->lineEdit(), &QLineEdit::editingFinished, this, &FishFields::settleStage);
    clear();
}

int FishFields::captionWidth() const {
    return m_form->columnMinimumWidth(0);
}

GonadFish FishFields::fish() const {
    GonadFish typed;
    for (const Measurement& measurement : m_measurements) {
        typed.*measurement.field = measurement.box->text();
    }
    typed.sex = m_sex->currentText();
    typed.stage = m_stage->key().toString();
    return typed;
}

void FishFields::startNext() {
    for (const Measurement& measurement : m_measurements) {
        measurement.box->clear();
    }
    m_sex->setCurrentIndex(0);
}

void FishFields::clear() {
    startNext();
    m_stage->setText({});
}

void FishFields::setLocked(bool locked) {
    for (QWidget* field : m_order) {
        field->setEnabled(!locked);
    }
}

void FishFields::focusFirst() {
    focusOn(m_order.front());
}

void FishFields::refuse(FishField field) {
    for (const Measurement& measurement : m_measurements) {
        if (measurement.field == field) {
            measurement.box->clear();
            focusOn(measurement.box);
        }
    }
}

bool FishFields::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(watched, event);
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        // A key that is held down goes one field on, not through them all.
        if (!key->isAutoRepeat()) {
            leave(watched);
        }
        return true;
    }
    const bool plain = (key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    return (watched == m_sex && plain && onSexKey(key->text())) || QWidget::eventFilter(watched, event);
}

void FishFields::addMeasurement(const QString& caption, const QString& unit, FishField field) {
    auto* box = numberField();
    addRow(caption, box);
    if (!unit.isEmpty()) {
        m_form->addWidget(new QLabel(unit), m_form->rowCount() - 1, 2);
    }
    m_measurements.push_back({field, box});
}

void FishFields::addRow(const QString& caption, QWidget* field) {
    const QLabel* label = addField(m_form, static_cast<int>(m_order.size()), 0, caption, field);
    m_form->setColumnMinimumWidth(0, std::max(m_form->columnMinimumWidth(0), label->sizeHint().width()));
    field->installEventFilter(this);
    m_order.push_back(field);
}

bool FishFields::onSexKey(const QString& letter) {
    const int row = letter.trimmed().isEmpty() ? -1 : m_sex->findText(letter, Qt::MatchStartsWith);
    if (row >= 0) {
        m_sex->setCurrentIndex(row);
    }
    return row >= 0;
}

void FishFields::onStageTyped(const QString& text) {
    const QAbstractItemModel* stages = m_stage->model();
    int candidates = 0;
    for (int row = 0; row < stages->rowCount(); ++row) {
        candidates += !text.isEmpty() && m_stage->itemText(row).startsWith(text) ? 1 : 0;
    }
    // "1" alone may be the beginning of 10: it then waits for the field to be left.
    if (candidates == 1) {
        m_stage->setKey(text.toLongLong());
        m_stage->lineEdit()->selectAll();
    }
}

void FishFields::settleStage() {
    if (m_stage->key().isValid() || m_stage->text().isEmpty()) {
        return;
    }
    const QString typed = m_stage->text().trimmed();
    m_stage->setText({});  // what is no stage does not stand there as if it were one
    m_stage->setKey(typed.toLongLong());
}

void FishFields::leave(const QObject* field) {
    settleStage();
    const auto at = std::ranges::find(m_order, field);
    if (at + 1 == m_order.end()) {
        Q_EMIT completed();
    } else {
        focusOn(*(at + 1));
    }
}

}  // namespace kelvora
