#include "evaluation/SimulationSheet.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/Shell.h"
#include "core/texts/FormF6Texts.h"
#include "core/window/DialogTable.h"
#include "core/window/PlainLabel.h"
#include "evaluation/SimulatedList.h"

#include <QBoxLayout>
#include <QPushButton>

namespace korvanel {

namespace {

QString MachineText()
{
    constexpr double kWattsPerKilowatt = 1000;
    constexpr double kTwoDecimals = 100;
    const MachineRecord& record = App().MachineII.record;
    if (!HasSecondMachine())
        return texts::simulationNoMachine;
    return FillPlaceholders(texts::resultsMachineValue,
                            {RoundValue(*record.Pmech / kWattsPerKilowatt, kTwoDecimals), record.Hersteller});
}

} // namespace

SimulationSheet::SimulationSheet(std::function<void(const std::function<void()>&)> guarded)
    : guard(std::move(guarded)), machine(new PlainLabel), list(new SimulatedList)
{
    machine->setObjectName(QStringLiteral("lblSecondMachine"));
    auto* buttons = new QHBoxLayout;
    AddButton(*buttons, "cmdChoice", texts::simulationChoice, kDialogSecondMachine);
    for (const auto& [name, text, dialog] : {std::tuple{"cmdCompare", texts::simulationCompare, kDialogComparison},
                                             {"cmdEvaluation", texts::simulationEvaluation, kDialogSimulationResults},
                                             {"cmdInfo", texts::simulationInfo, kDialogMachineInfo}})
        forMachine.push_back(AddButton(*buttons, name, text, dialog));
    buttons->addStretch(1);
    forMachine.push_back(AddButton(*buttons, "cmdPrint", texts::simulationPrint, kDialogPrintMachines));

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(3);
    column->addWidget(machine);
    column->addLayout(buttons);
    column->addWidget(list, 1);
}

QPushButton* SimulationSheet::AddButton(QBoxLayout& row, const char* name, const QString& text, int dialog)
{
    auto* button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, [this, dialog] {
        guard([this, dialog] {
            if (App().TheShell->ShowDialog(dialog) && dialog == kDialogSecondMachine)
                emit MachineChosen();
        });
    });
    row.addWidget(button);
    return button;
}

void SimulationSheet::Refresh()
{
    machine->setText(MachineText());
    for (QPushButton* button : forMachine)
        button->setEnabled(HasSecondMachine());
    list->Rebuild();
}

} // namespace korvanel
