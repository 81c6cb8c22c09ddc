#include "simulation/FormH13.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormH13Texts.h"
#include "core/window/PlainLabel.h"
#include "evaluation/SuitabilityBar.h"
#include "simulation/ComparisonGrid.h"
#include "simulation/WinManaging3.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace korvanel {

namespace {

QLabel* NamedLabel(const QString& name, const QString& text)
{
    auto* label = new PlainLabel(text);
    label->setObjectName(name);
    return label;
}

} // namespace

FormH13::FormH13(QWidget* parent) : QDialog(parent)
{
    constexpr QSize kSize(1080, 600);
    setObjectName(QStringLiteral("FormH13"));
    setWindowTitle(texts::comparisonTitle);
    resize(kSize);
    auto* machines = new QHBoxLayout;
    machines->addWidget(BuildMachine(0, texts::comparisonFirst, App().MachineI));
    machines->addWidget(BuildMachine(1, texts::comparisonSecond, App().MachineII));
    auto* ok = new QPushButton(texts::buttonOk);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    auto* column = new QVBoxLayout(this);
    column->addLayout(machines);
    column->addWidget(BuildSets(), 1);
    column->addWidget(ok, 0, Qt::AlignRight);
}

QWidget* FormH13::BuildMachine(int index, const QString& title, const MachineInUse& machine)
{
    constexpr int kGap = 10;
    const QString suffix = index == 0 ? QString() : QStringLiteral("_SIM");
    auto* frame = new QGroupBox(title);
    frame->setObjectName(QStringLiteral("fraModel") + suffix);
    auto* form = new QFormLayout(frame);
    AddRow(*form, texts::comparisonPower,
           NamedLabel(QStringLiteral("lblPmech_%1").arg(index), RatedPowerText(machine.record)));
    AddRow(*form, texts::comparisonSpeed,
           NamedLabel(QStringLiteral("lblN_%1").arg(index), RatedSpeedText(machine.record)));
    AddRow(*form, texts::comparisonVoltage,
           NamedLabel(QStringLiteral("lblU_%1").arg(index), RatedVoltageText(machine.record)));

    auto* bar = new SuitabilityBar(index == 0 ? "picModel" : "picModel_SIM");
    bar->Show(SuitabilityShares(machine.evaluation.lRowClassCount, machine.evaluation.lSets));
    auto* info = new QPushButton(texts::comparisonInfo);
    info->setObjectName(QStringLiteral("cmdModelInfo_%1").arg(index));
    info->setAutoDefault(false);
    connect(info, &QPushButton::clicked, this, [&machine] { ShowInformation(ClassesText(machine.evaluation)); });
    auto* suitability = new QHBoxLayout;
    suitability->setSpacing(kGap);
    suitability->addWidget(bar, 0, Qt::AlignTop);
    suitability->addWidget(NamedLabel(QStringLiteral("lblModel") + suffix, GoodShareText(machine.evaluation)), 0,
                           Qt::AlignTop);
    suitability->addStretch(1);
    suitability->addWidget(info, 0, Qt::AlignTop);
    AddRow(*form, texts::comparisonSuitability, suitability);
    return frame;
}

QWidget* FormH13::BuildSets()
{
    auto* frame = new QGroupBox(texts::comparisonSets);
    frame->setObjectName(QStringLiteral("fraDaten"));
    auto* column = new QVBoxLayout(frame);
    auto* grid = new ComparisonGrid;
    column->addWidget(grid);
    grid->Rebuild();
    return frame;
}

} // namespace korvanel
