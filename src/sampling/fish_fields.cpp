#include "sampling/fish_fields.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "data/connection.h"
#include "records/gonad_store.h"

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
    for (const auto& length : {u"TL(mm)"_s, u"BL(mm)"_s, u"FL(mm)"_s, u"SL(mm)"_s}) {
        addMeasurement(length);
    }
    addMeasurement(u"BW"_s, u"g"_s);
    addRow(u"SEX"_s, m_sex);
    addRow(u"Stage"_s, m_stage);
    addMeasurement(u"GW"_s, u"g"_s);
    m_form->setColumnStretch(1, 1);

    m_stage->setSource(connection.model(maturityStages()), u"stname"_s, u"stageid"_s);
    // A list of offers would swallow the next key, and the number alone says which stage is meant.
    m_stage->setCompleter(nullptr);
    connect(m_stage->lineEdit(), &QLineEdit::textEdited, this, &FishFields::onStageTyped);
    connect(m_stage->lineEdit(), &QLineEdit::editingFinished, this, &FishFields::settleStage);
    clear();
}

int FishFields::captionWidth() const {
    return m_form->columnMinimumWidth(0);
}

std::optional<GonadFish> FishFields::askFor(Dialogs& dialogs) {
    if (!dialogs.confirm(kGonadTitle.toString(), u"Are you sure to add this sampling"_s)) {
        return std::nullopt;
    }
    const GonadFish fish = typed();
    if (const auto refusal = fishRefusal(fish)) {
        auto* box = static_cast<QLineEdit*>(m_order.at(static_cast<std::size_t>(refusal->field)));
        dialogs.message(refusal->title, refusal->message);
        box->clear();
        focusOn(box);
        return std::nullopt;
    }
    return fish;
}

GonadFish FishFields::typed() const {
    GonadFish fish;
    for (std::size_t i = 0; i < m_order.size(); ++i) {
        if (const auto* box = qobject_cast<QLineEdit*>(m_order[i])) {
            fish.*kFishFields.at(i).field = box->text();
        }
    }
    fish.sex = m_sex->currentText();
    fish.stage = m_stage->key().toString();
    return fish;
}

void FishFields::startNext() {
    for (QWidget* field : m_order) {
        if (auto* box = qobject_cast<QLineEdit*>(field)) {
            box->clear();
        }
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

void FishFields::addMeasurement(const QString& caption, const QString& unit) {
    addRow(caption, numberField());
    if (!unit.isEmpty()) {
        m_form->addWidget(new QLabel(unit), m_form->rowCount() - 1, 2);
    }
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
