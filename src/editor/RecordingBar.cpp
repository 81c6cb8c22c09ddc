#include "editor/RecordingBar.h"

#include "core/Common.h"
#include "core/Hooks.h"
#include "core/NumberText.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF5Texts.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"
#include "machine/Algorithms_ASM_Start.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <array>

namespace korvanel {

RecordingBar::RecordingBar()
    : intervalBox(new QLineEdit), engineBox(new QComboBox), simulationButton(new QPushButton(texts::editorSimulation)),
      energiesLabel(new PlainLabel(texts::editorEnergiesOutdated))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    BuildInterval(*row);
    row->addSpacing(12);
    BuildMethod(*row);
    row->addStretch(1);
    energiesLabel->setObjectName(QStringLiteral("lblEnergies"));
    energiesLabel->setToolTip(PlainToolTip(texts::editorEnergiesTip));
    row->addWidget(energiesLabel);
}

void RecordingBar::BuildInterval(QBoxLayout& row)
{
    constexpr int kNumberWidth = 60;
    constexpr int kLongestInterval = 20;
    auto* caption = new PlainLabel(texts::editorInterval);
    intervalBox->setObjectName(QStringLiteral("txtInterval"));
    intervalBox->setMaxLength(kLongestInterval);
    intervalBox->setFixedWidth(kNumberWidth);
    intervalBox->setAlignment(Qt::AlignRight);
    caption->setBuddy(intervalBox);
    row.addWidget(caption);
    row.addWidget(intervalBox);
}

/// Nets without a machine have nothing to estimate.
void RecordingBar::BuildMethod(QBoxLayout& row)
{
    auto* caption = new PlainLabel(texts::editorMethod);
    engineBox->setObjectName(QStringLiteral("cboEngine"));
    caption->setBuddy(engineBox);
    for (const int method : {0, 1})
        if (IsMethodUsable(method))
            engineBox->addItem(MethodName(method), method);
    simulationButton->setObjectName(QStringLiteral("cmdSimulation"));
    simulationButton->setEnabled(HasHook(Hook::RunSimulation));
    for (QWidget* part : std::initializer_list<QWidget*>{caption, engineBox, simulationButton}) {
        row.addWidget(part);
        part->setVisible(HasMachine(App().iNetConfIndex));
    }
}

void RecordingBar::ShowInterval(double seconds)
{
    shownInterval = NumberText(seconds);
    intervalBox->setText(shownInterval);
}

QString RecordingBar::IntervalText() const
{
    return intervalBox->text();
}

bool RecordingBar::HasPendingInterval() const
{
    return intervalBox->isEnabled() && intervalBox->text() != shownInterval;
}

void RecordingBar::LookAtInterval()
{
    intervalBox->setFocus();
    intervalBox->selectAll();
}

void RecordingBar::SetIntervalEditable(bool isEditable)
{
    intervalBox->setEnabled(isEditable);
}

void RecordingBar::ShowMethod(int method)
{
    engineBox->setCurrentIndex(std::max(0, engineBox->findData(method)));
}

int RecordingBar::Method() const
{
    return engineBox->currentData().toInt();
}

void RecordingBar::ShowEnergiesOutdated(bool areOutdated)
{
    energiesLabel->setVisible(areOutdated);
}

} // namespace korvanel
