#include "evaluation/OverviewSheet.h"

#include "core/Colour.h"
#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/NumberText.h"
#include "core/texts/FormF6Texts.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"
#include "evaluation/Rating.h"
#include "evaluation/SuitabilityBar.h"
#include "evaluation/WinManaging2.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>

namespace korvanel {

namespace {

QString MomentText(const QDateTime& moment)
{
    return moment == ZeroDate() ? texts::resultsNotSet : DateTimeText(moment);
}

QString Known(const QString& text)
{
    return text.isEmpty() ? texts::resultsNotSet : text;
}

QString ClassText(int rating)
{
    const EvaluationResults& results = App().MachineI.evaluation;
    const qint32 count = results.lRowClassCount.at(static_cast<std::size_t>(rating));
    const double share = results.lSets == 0 ? 0 : static_cast<double>(count) / results.lSets;
    return FillPlaceholders(texts::resultsClass, {RatingWord(rating), QString::number(count), SuitabilityText(share)});
}

QFormLayout* AddForm(QHBoxLayout& row)
{
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(10);
    form->setVerticalSpacing(7);
    row.addLayout(form, 1);
    return form;
}

} // namespace

OverviewSheet::OverviewSheet()
{
    auto* all = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    row->setSpacing(24);
    all->addLayout(row);
    all->addStretch(1);
    auto* left = AddForm(*row);
    project = AddValue(*left, "lblProject", texts::resultsProject);
    device = AddValue(*left, "lblDevice", texts::resultsDevice);
    begin = AddValue(*left, "lblBegin", texts::resultsBegin);
    end = AddValue(*left, "lblEnd", texts::resultsEnd);
    term = AddValue(*left, "lblTerm", texts::resultsTerm);
    auto* right = AddForm(*row);
    interval = AddValue(*right, "lblInterval", texts::resultsInterval);
    sets = AddValue(*right, "lblSets", texts::resultsSets);
    gaps = AddValue(*right, "lblGaps", texts::resultsRecording);
    if (HasMachine(App().iNetConfIndex))
        AddMachine(*right);
}

QLabel* OverviewSheet::AddValue(QFormLayout& form, const char* name, const QString& caption)
{
    auto* value = new PlainLabel;
    value->setObjectName(QLatin1String(name));
    value->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // names come from outside
    AddRow(form, caption, value);
    return value;
}

void OverviewSheet::AddMachine(QFormLayout& form)
{
    machine = AddValue(form, "lblMachine", texts::resultsMachine);
    for (std::size_t i = 0; i < classes.size(); ++i) {
        const int rating = static_cast<int>(i) + 1;
        classes.at(i) = AddValue(form, "", i == 0 ? texts::resultsSuitability : QString());
        classes.at(i)->setObjectName(QStringLiteral("lblClass_%1").arg(rating));
        QPalette colours = classes.at(i)->palette();
        colours.setColor(QPalette::WindowText, ColourOf(RatingColour(rating)));
        classes.at(i)->setPalette(colours);
    }
    AddRow(form, {}, suitability = new SuitabilityBar("picModel"));
}

void OverviewSheet::Refresh()
{
    const ApplicationBlock& app = App();
    project->setText(app.sProjectName);
    project->setToolTip(PlainToolTip(app.sProjectName));
    device->setText(Known(app.sDeviceId.isEmpty() ? app.sDevice : app.sDeviceId));
    device->setToolTip(PlainToolTip(device->text()));
    begin->setText(MomentText(app.dtMeasurementBegin));
    end->setText(MomentText(app.dtMeasurementEnd));
    term->setText(Known(app.sMeasurementTerm));
    interval->setText(FillPlaceholders(texts::resultsIntervalValue, {NumberText(app.dInterval)}));
    sets->setText(QString::number(app.iSetCount));
    gaps->setText(GapsText(app.MachineI.evaluation));
    if (machine)
        ShowMachine();
}

void OverviewSheet::ShowMachine()
{
    const MachineRecord& record = App().MachineI.record;
    const QString name = Known(record.Hersteller.simplified());
    machine->setText(record.Pmech
                         ? FillPlaceholders(texts::resultsMachineValue, {RoundValue(*record.Pmech / 1000, 1000), name})
                         : name);
    machine->setToolTip(PlainToolTip(machine->text()));
    for (std::size_t i = 0; i < classes.size(); ++i)
        classes.at(i)->setText(ClassText(static_cast<int>(i) + 1));
    suitability->Show(SuitabilityShares(App().MachineI.evaluation.lRowClassCount, App().MachineI.evaluation.lSets));
}

} // namespace korvanel
