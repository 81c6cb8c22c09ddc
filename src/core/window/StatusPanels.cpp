#include "core/window/StatusPanels.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/Paths.h"
#include "core/texts/FormF10Texts.h"
#include "core/texts/MainTexts.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"

#include <QLabel>
#include <QProgressBar>

#include <cmath>

namespace korvanel {

StatusPanels::StatusPanels()
    : programPanel(AddPanel("lblPanel_0", 1)), filePanel(AddPanel("lblPanel_1", 2)),
      databasePanel(AddPanel("lblPanel_3", 0)), percentPanel(AddPanel("lblPanel_2", 0))
{
    constexpr int kPercentWidth = 140;
    percentPanel->setFixedWidth(kPercentWidth);
    percentPanel->setAlignment(Qt::AlignCenter);
    filePanel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long name must not widen the window
}

QLabel* StatusPanels::AddPanel(const char* name, int stretch)
{
    auto* label = new PlainLabel;
    label->setObjectName(QLatin1String(name));
    addWidget(label, stretch);
    return label;
}

void StatusPanels::ShowProgram()
{
    programPanel->setText(App().sProgramTitle + App().sVersion);
}
void StatusPanels::ShowFile()
{
    const QString name = FileNameOf(App().sProjectPath);
    filePanel->setText(name);
    filePanel->setToolTip(PlainToolTip(name));
}
void StatusPanels::ShowDatabase(const QString& name)
{
    constexpr int kWidest = 260;
    const QString text = name.isEmpty() ? name : FillPlaceholders(texts::machineDatabasePanel, {name});
    databasePanel->setText(fontMetrics().elidedText(text, Qt::ElideMiddle, kWidest));
    databasePanel->setToolTip(PlainToolTip(text));
    databasePanel->setVisible(!text.isEmpty());
}

void StatusPanels::BeginProgress()
{
    if (!progressBar) {
        progressBar = new QProgressBar(percentPanel);
        progressBar->setObjectName(QStringLiteral("prgProgress"));
        progressBar->setTextVisible(false);
    }
    progressBar->setValue(0);
    progressBar->setGeometry(percentPanel->rect());
    progressBar->show();
}

bool StatusPanels::Advance(double share)
{
    if (!progressBar || !(share >= 0 && share < 1))
        return false;
    const int percent = static_cast<int>(std::floor(share * 100));
    percentPanel->setText(FillPlaceholders(texts::percentPanel, {QString::number(std::round(share * 100))}));
    const bool hasMoved = percent != progressBar->value();
    progressBar->setValue(percent);
    return hasMoved;
}

void StatusPanels::EndProgress()
{
    if (progressBar)
        progressBar->hide();
    percentPanel->clear();
}

} // namespace korvanel
