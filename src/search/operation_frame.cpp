#include "search/operation_frame.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

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
    option.setChecked(on);
    QPalette palette;
    if (on) {
        palette.setColor(QPalette::Disabled, QPalette::WindowText, palette.color(QPalette::Active, QPalette::Text));
    }
    option.setPalette(palette);
}

}  // namespace

OperationFrame::OperationFrame(QWidget* parent) : QGroupBox(QStringLiteral("Fishing Operation"), parent) {
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
                 {{QStringLiteral(" No."), QStringLiteral("optid")},
                  {QStringLiteral(" Vessel Name"), QStringLiteral("vesselname")},
                  {QStringLiteral(" Vessel Register id"), QStringLiteral("vid")},
                  {QStringLiteral(" Fishing Gear"), QStringLiteral("guname")},
                  {QStringLiteral(" Fishing Method"), QStringLiteral("methodname")},
                  {QStringLiteral(" Fishing Area"), QStringLiteral("aname")},
                  {QStringLiteral(" Note"), QStringLiteral("note")}});
    m_fields.add(form, kSecond,
                 {{QStringLiteral(" State/Province"), QStringLiteral("statename")},
                  {QStringLiteral(" Sampling Port"), QStringLiteral("samplingname")},
                  {QStringLiteral(" Date"), QStringLiteral("optdate")}});
    addPosition(form, 3, QStringLiteral("Fishing Ground Latitude"), QStringLiteral("Latitude"), QStringLiteral("lat"));
    addPosition(form, 4, QStringLiteral("Fishing Ground Longtitude"), QStringLiteral("Longtitude"),
                QStringLiteral("lon"));
    addFishingTime(form, 5);
    m_fields.add(form, kThird,
                 {{QStringLiteral(" Bottom Depth(Meter)"), QStringLiteral("bdepth")},
                  {QStringLiteral(" Fishing Depth(Meter)"), QStringLiteral("fdepth")},
                  {QStringLiteral(" No of haul per Trip(haul)"), QStringLiteral("nohaul")},
                  {QStringLiteral(" Duration of Trip(days)"), QStringLiteral("dulation")},
                  {QStringLiteral(" Estimate Total Catch(kg/trip)"), QStringLiteral("estotal")},
                  {QStringLiteral(" Recorder"), QStringLiteral("interviewer")}});
    for (int row = 0; row <= kNoteRow; ++row) {
        form->setRowMinimumHeight(row, fontMetrics().height() + 6);
    }
    QWidget* note = form->itemAtPosition(kNoteRow, kFirst + 1)->widget();
    form->addWidget(note, kNoteRow, kFirst + 1, 1, kThird + 1 - kFirst);
}

void OperationFrame::addPosition(QGridLayout* form, int row, const QString& caption, const QString& name,
                                 const QString& column) {
    auto* position = new QHBoxLayout;
    position->setSpacing(6);
    for (const auto& [part, suffix] :
         {std::pair{QStringLiteral("Dec"), QStringLiteral("_dec")}, {QStringLiteral("Min"), QStringLiteral("_min")}}) {
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
    const std::array captions = {QStringLiteral("Day"), QStringLiteral("Night"), QStringLiteral("Day and Night")};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        m_times[i] = new QRadioButton(captions[i]);
        // Without an operation none is selected.
        m_times[i]->setAutoExclusive(false);
        m_times[i]->setEnabled(false);
        options->addWidget(m_times[i]);
    }
    options->addStretch();
    auto* label = new QLabel(QStringLiteral("Fishing time"));
    label->setBuddy(m_times.front());
    form->addWidget(label, row, kSecond);
    form->addLayout(options, row, kSecond + 1);
}

void OperationFrame::fill(const ResultSet& result, int row) {
    m_fields.fill(result, row);
    for (const Angle& angle : m_angles) {
        angle.box->setText(operationText(result, row, angle.column));
    }
    const QString time = operationText(result, row, QStringLiteral("fishingtime"));
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
