#include "simulation/FormH14.h"

#include "core/Common.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormH14Texts.h"
#include "evaluation/ResultGrid.h"
#include "simulation/WinManaging3.h"

#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace korvanel {

FormH14::FormH14(QWidget* parent) : QDialog(parent)
{
    constexpr QSize kSize(860, 560);
    setObjectName(QStringLiteral("FormH14"));
    setWindowTitle(texts::outcomeTitle);
    resize(kSize);
    auto* energies = new ResultGrid("flxEnergie");
    auto* utilisation = new ResultGrid("flxAuslastung");
    auto* tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("TabEvaluation"));
    tabs->addTab(energies, texts::outcomeEnergy);
    tabs->addTab(utilisation, texts::outcomeUtilisation);
    energies->Show(ComparedEnergyTable(App().MachineI, App().MachineII));
    utilisation->Show(ComparedUtilisationTable(App().MachineI, App().MachineII));
    auto* ok = new QPushButton(texts::buttonOk);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    auto* column = new QVBoxLayout(this);
    column->addWidget(tabs, 1);
    column->addWidget(ok, 0, Qt::AlignRight);
}

} // namespace korvanel
