#include "operations/operation_details.h"

#include <QGridLayout>
#include <QGroupBox>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

QGridLayout* detailForm(QWidget* parent) {
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
    auto* location = new QGroupBox(u"Sampling Location"_s, this);
    QGridLayout* locationForm = detailForm(location);
    m_fields.add(locationForm, 0, {{u"Landing State/Province"_s, u"statename"_s}});
    m_fields.add(locationForm, 2, {{u"Sampling Port"_s, u"samplingname"_s}});

    auto* operation = new QGroupBox(u"Operation"_s, this);
    QGridLayout* form = detailForm(operation);
    m_fields.add(form, 0,
                 {{u"Date"_s, u"optdate"_s},
                  {u"Vessel"_s, u"vesselname"_s},
                  {u"Fishing Gear"_s, u"guname"_s},
                  {u"Fishing Method"_s, u"methodname"_s},
                  {u"Fishing area"_s, u"aname"_s},
                  {u"Latitude"_s, u"lat_dec"_s, u"lat_min"_s},
                  {u"Longtitude"_s, u"lon_dec"_s, u"lon_min"_s},
                  {u"Recorder"_s, u"interviewer"_s}});
    m_fields.add(form, 2,
                 {{u"Fishing time"_s, u"fishingtime"_s},
                  {u"Bottom Depth(Meter)"_s, u"bdepth"_s},
                  {u"Fishing Depth(Meter)"_s, u"fdepth"_s},
                  {u"No of haul/Trip"_s, u"nohaul"_s},
                  {u"Duration of Trip(days)"_s, u"dulation"_s},
                  {u"Estimate Total Catch(kg)"_s, u"estotal"_s}});
    m_fields.addNote(form, form->rowCount(), u"Note"_s, 3);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(location);
    layout->addWidget(operation);
}

}  // namespace kelvora
