#include "search/operation_frame.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// Where the captions of the three columns stand; the fields stand beside them, the room between columns behind those.
constexpr int kFirst = 0;
constexpr int kSecond = 3;
constexpr int kThird = 6;
constexpr int kNoteRow = 6;

/// A number to read that has a name of its own, since its caption is that of two numbers.
QLineEdit* angleBox(const QString& name) {
    auto* box = new QLineEdit;
    box->setAccessibleName(name);
    box->setReadOnly(true);
    box->setFrame(false);
    box->setFocusPolicy(Qt::ClickFocus);
    box->setTextMargins(-2, 0, 0, 0);
    QPalette flat = box->palette();
    flat.setBrush(QPalette::Base, Qt::transparent);
    box->setPalette(flat);
    box->setFixedSize(box->fontMetrics().averageCharWidth() * 8, box->fontMetrics().height() + 4);
    return box;
}

/// Selects an option or not. None can be pressed, but the selected one is a value to read and not greyed out.
void select(QRadioButton& option, bool on) {
    // Without an operation none is selected. A screen reader takes an option that is not exclusive for a check box.
    option.setAutoExclusive(false);
    option.setChecked(on);
    option.setAutoExclusive(true);
    QPalette palette;
    if (on) {
        palette.setColor(QPalette::Disabled, QPalette::WindowText, palette.color(QPalette::Active, QPalette::Text));
    }
    option.setPalette(palette);
}

}  // namespace

OperationFrame::OperationFrame(QWidget* parent) : QGroupBox(u"Fishing Operation"_s, parent) {
    auto* form = new QGridLayout(this);
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(3);
    for (const int captions : {kFirst, kSecond, kThird}) {
        form->setColumnStretch(captions + 1, 1);
    }
    for (const int gap : {kSecond - 1, kThird - 1}) {
        form->setColumnMinimumWidth(gap, 16);
    }

    m_fields.add(form, kFirst,
                 {{u" No."_s, u"optid"_s},
                  {u" Vessel Name"_s, u"vesselname"_s},
                  {u" Vessel Register id"_s, u"vid"_s},
                  {u" Fishing Gear"_s, u"guname"_s},
                  {u" Fishing Method"_s, u"methodname"_s},
                  {u" Fishing Area"_s, u"aname"_s}});
    m_fields.add(
        form, kSecond,
        {{u" State/Province"_s, u"statename"_s}, {u" Sampling Port"_s, u"samplingname"_s}, {u" Date"_s, u"optdate"_s}});
    addPosition(form, 3, u"Fishing Ground Latitude"_s, u"Latitude"_s, u"lat"_s);
    addPosition(form, 4, u"Fishing Ground Longtitude"_s, u"Longtitude"_s, u"lon"_s);
    addFishingTime(form, 5);
    m_fields.add(form, kThird,
                 {{u" Bottom Depth(Meter)"_s, u"bdepth"_s},
                  {u" Fishing Depth(Meter)"_s, u"fdepth"_s},
                  {u" No of haul per Trip(haul)"_s, u"nohaul"_s},
                  {u" Duration of Trip(days)"_s, u"dulation"_s},
                  {u" Estimate Total Catch(kg/trip)"_s, u"estotal"_s},
                  {u" Recorder"_s, u"interviewer"_s}});
    for (int row = 0; row < kNoteRow; ++row) {
        form->setRowMinimumHeight(row, fontMetrics().height() + 6);
    }
    m_fields.addNote(form, kNoteRow, u" Note"_s, 2);
}

void OperationFrame::addPosition(QGridLayout* form, int row, const QString& caption, const QString& name,
                                 const QString& column) {
    auto* position = new QHBoxLayout;
    position->setSpacing(6);
    for (const auto& [part, suffix] : {std::pair{u"Dec"_s, u"_dec"_s}, {u"Min"_s, u"_min"_s}}) {
        QLineEdit* box = angleBox(name + u' ' + part);
        position->addWidget(new QLabel(part));
        position->addWidget(box);
        m_angles.push_back({box, column + suffix});
    }
    position->addStretch();
    auto* label = new QLabel(caption);
    label->setBuddy(m_angles[m_angles.size() - 2].box);
    form->addWidget(label, row, kSecond);
    form->addLayout(position, row, kSecond + 1);
}

void OperationFrame::addFishingTime(QGridLayout* form, int row) {
    auto* options = new QHBoxLayout;
    options->setSpacing(10);
    const std::array captions = {u"Day"_s, u"Night"_s, u"Day and Night"_s};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        m_times[i] = new QRadioButton(captions[i]);
        m_times[i]->setEnabled(false);
        options->addWidget(m_times[i]);
    }
    options->addStretch();
    auto* label = new QLabel(u"Fishing time"_s);
    label->setBuddy(m_times.front());
    form->addWidget(label, row, kSecond);
    form->addLayout(options, row, kSecond + 1);
}

void OperationFrame::fill(const ResultSet& result, int row) {
    m_fields.fill(result, row);
    for (const Angle& angle : m_angles) {
        angle.box->setText(operationText(result, row, angle.column));
    }
    const QString time = operationText(result, row, u"fishingtime"_s);
    const bool night = sameText(time, u"Night");
    const bool day = sameText(time, u"Day");
    select(*m_times[0], day);
    select(*m_times[1], night);
    select(*m_times[2], !day && !night);
}

void OperationFrame::clear() {
    m_fields.clear();
    for (const Angle& angle : m_angles) {
        angle.box->clear();
    }
    for (QRadioButton* time : m_times) {
        select(*time, false);
    }
}

}  // namespace kelvora
