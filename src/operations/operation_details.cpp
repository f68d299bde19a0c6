#include "operations/operation_details.h"

#include <QGridLayout>
#include <QGroupBox>

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
    auto* location = new QGroupBox(tr("Sampling Location"), this);
    QGridLayout* locationForm = detailForm(location);
    m_fields.add(locationForm, 0, {{tr("Landing State/Province"), QStringLiteral("statename")}});
    m_fields.add(locationForm, 2, {{tr("Sampling Port"), QStringLiteral("samplingname")}});

    auto* operation = new QGroupBox(tr("Operation"), this);
    QGridLayout* form = detailForm(operation);
    m_fields.add(form, 0,
                 {{tr("Date"), QStringLiteral("optdate")},
                  {tr("Vessel"), QStringLiteral("vesselname")},
                  {tr("Fishing Gear"), QStringLiteral("guname")},
                  {tr("Fishing Method"), QStringLiteral("methodname")},
                  {tr("Fishing area"), QStringLiteral("aname")},
                  {tr("Latitude"), QStringLiteral("lat_dec"), QStringLiteral("lat_min")},
                  {tr("Longtitude"), QStringLiteral("lon_dec"), QStringLiteral("lon_min")},
                  {tr("Recorder"), QStringLiteral("interviewer")}});
    m_fields.add(form, 2,
                 {{tr("Fishing time"), QStringLiteral("fishingtime")},
                  {tr("Bottom Depth(Meter)"), QStringLiteral("bdepth")},
                  {tr("Fishing Depth(Meter)"), QStringLiteral("fdepth")},
                  {tr("No of haul/Trip"), QStringLiteral("nohaul")},
                  {tr("Duration of Trip(days)"), QStringLiteral("dulation")},
                  {tr("Estimate Total Catch(kg)"), QStringLiteral("estotal")},
                  {tr("Note"), QStringLiteral("note")}});

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(location);
    layout->addWidget(operation);
}

}  // namespace kelvora
