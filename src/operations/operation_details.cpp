#include "operations/operation_details.h"

#include "controls/fields.h"
#include "data/dates.h"

#include <QGroupBox>
#include <QHBoxLayout>

namespace kelvora {
namespace {

QString position(const ResultSet& result, int row, QStringView degrees, QStringView minutes) {
    return QStringLiteral("Dec ") + result.text(row, degrees) + QStringLiteral(" Min ") + result.text(row, minutes);
}

QGridLayout* detailForm(QWidget* parent = nullptr) {
    auto* form = new QGridLayout(parent);
    form->setColumnStretch(1, 1);
    form->setColumnStretch(3, 1);
    form->setColumnMinimumWidth(0, 180);
    form->setColumnMinimumWidth(2, 180);
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(8);
    return form;
}

}  // namespace

OperationDetails::OperationDetails(QWidget* parent) : QWidget(parent) {
    auto* location = new QGroupBox(tr("Sampling Location"), this);
    QGridLayout* locationForm = detailForm(location);
    addDetails(locationForm, 0,
               {{tr("Landing State/Province"), [](const ResultSet& r, int row) { return r.text(row, u"statename"); }}});
    addDetails(locationForm, 2,
               {{tr("Sampling Port"), [](const ResultSet& r, int row) { return r.text(row, u"samplingname"); }}});

    auto* operation = new QGroupBox(tr("Operation"), this);
    QGridLayout* form = detailForm(operation);
    addDetails(
        form, 0,
        {{tr("Date"), [](const ResultSet& r, int row) { return shortDate(r.date(row, u"optdate")); }},
         {tr("Vessel"), [](const ResultSet& r, int row) { return r.text(row, u"vesselname"); }},
         {tr("Fishing Gear"), [](const ResultSet& r, int row) { return r.text(row, u"guname"); }},
         {tr("Fishing Method"), [](const ResultSet& r, int row) { return r.text(row, u"methodname"); }},
         {tr("Fishing area"), [](const ResultSet& r, int row) { return r.text(row, u"aname"); }},
         {tr("Latitude"), [](const ResultSet& r, int row) { return position(r, row, u"lat_dec", u"lat_min"); }},
         {tr("Longtitude"), [](const ResultSet& r, int row) { return position(r, row, u"lon_dec", u"lon_min"); }},
         {tr("Recorder"), [](const ResultSet& r, int row) { return r.text(row, u"interviewer"); }}});
    addDetails(form, 2,
               {{tr("Fishing time"), [](const ResultSet& r, int row) { return r.text(row, u"fishingtime"); }},
                {tr("Bottom Depth(Meter)"), [](const ResultSet& r, int row) { return r.text(row, u"bdepth"); }},
                {tr("Fishing Depth(Meter)"), [](const ResultSet& r, int row) { return r.text(row, u"fdepth"); }},
                {tr("No of haul/Trip"), [](const ResultSet& r, int row) { return r.text(row, u"nohaul"); }},
                {tr("Duration of Trip(days)"), [](const ResultSet& r, int row) { return r.text(row, u"dulation"); }},
                {tr("Estimate Total Catch(kg)"), [](const ResultSet& r, int row) { return r.text(row, u"estotal"); }},
                {tr("Note"), [](const ResultSet& r, int row) { return r.text(row, u"note"); }}});

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(location);
    layout->addWidget(operation);
}

void OperationDetails::addDetails(QGridLayout* form, int column, const std::vector<Detail>& details) {
    int line = 0;
    for (const Detail& detail : details) {
        auto* label = new ValueLabel(this);
        addField(form, line++, column, detail.caption, label);
        m_shown.push_back({label, detail.text});
    }
}

void OperationDetails::fill(const ResultSet& result, int row) {
    for (const Shown& shown : m_shown) {
        shown.label->setText(shown.text(result, row));
    }
}

void OperationDetails::clear() {
    for (const Shown& shown : m_shown) {
        shown.label->clear();
    }
}

}  // namespace kelvora
