#include "motors/NoLoadPanel.h"

#include "acquisition/MeasurementConfiguration.h"
#include "core/Common.h"
#include "core/NumberText.h"
#include "core/texts/FormF10Texts.h"
#include "core/texts/FormF3Texts.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"
#include "instruments/Catalogue.h"
#include "instruments/PortBox.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace korvanel {

NoLoadPanel::NoLoadPanel()
    : deviceBox(new QComboBox), portBox(new PortBox), intervalBox(new QComboBox), stateLabel(new PlainLabel),
      startButton(AddButton("cmdNoLoad", texts::noLoadStart, &NoLoadPanel::MeasurementWanted)),
      wiringButton(AddButton("cmdInfo_0", texts::machineWiring, &NoLoadPanel::WiringWanted)),
      diagnosisButton(AddButton("cmdSetup", texts::machineDiagnosis, &NoLoadPanel::DiagnosisWanted))
{
    deviceBox->setObjectName(QStringLiteral("cboSelect"));
    connect(deviceBox, &QComboBox::activated, this, [this] {
        ChooseInstrument(deviceBox->currentText());
        Refresh();
    });
    connect(portBox, &PortBox::Entered, this, [this](const QString& text) {
        EnterPort(text);
        portBox->ShowPort(App().lComPort);
    });
    intervalBox->setObjectName(QStringLiteral("cboInterval"));
    stateLabel->setObjectName(QStringLiteral("lblDevice"));
    stateLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // it comes from outside

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(4);
    const auto addRow = [grid](int row, const QString& caption, QWidget* box, QWidget* buddy) {
        auto* label = new PlainLabel(caption);
        label->setBuddy(buddy);
        grid->addWidget(label, row, 0);
        grid->addWidget(box, row, 1, 1, 2);
    };
    addRow(0, texts::machineDevice, deviceBox, deviceBox);
    addRow(1, texts::machinePort, portBox, portBox->Box());
    addRow(2, texts::machineInterval, intervalBox, intervalBox);
    grid->addWidget(stateLabel, 3, 0, 1, 3);
    grid->addWidget(wiringButton, 4, 0);
    grid->addWidget(diagnosisButton, 4, 1);
    grid->addWidget(startButton, 4, 2);
    grid->setColumnStretch(2, 1);
}

QPushButton* NoLoadPanel::AddButton(const char* name, const QString& caption, void (NoLoadPanel::*wanted)())
{
    auto* button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, wanted);
    return button;
}

void NoLoadPanel::Refresh()
{
    PrepareMeasurementConfiguration();
    deviceBox->clear();
    deviceBox->addItems(InstrumentEntries(App().iNetConfIndex));
    deviceBox->setCurrentIndex(deviceBox->findText(App().sDevice, Qt::MatchExactly | Qt::MatchCaseSensitive));
    portBox->ShowPort(App().lComPort);
    FillIntervals();
    const QString state = App().bDevConnected ? texts::stateConnected : texts::stateNotConnected;
    stateLabel->setText(App().bDevConnected ? state + QStringLiteral(": ") + App().sDeviceId : state);
    stateLabel->setToolTip(PlainToolTip(stateLabel->text()));
}

/// The interval of the test is its own: a recording may want a longer one.
void NoLoadPanel::FillIntervals()
{
    const QString chosen = intervalBox->count() > 0 ? intervalBox->currentText() : NumberText(App().dInterval);
    intervalBox->clear();
    intervalBox->addItems(IntervalChoices());
    intervalBox->setCurrentIndex(std::max(0, intervalBox->findText(chosen)));
}

void NoLoadPanel::Commit()
{
    portBox->Commit();
}

double NoLoadPanel::Interval() const
{
    return intervalBox->currentText().toDouble();
}

void NoLoadPanel::EnableMeasurement(bool isEnabled)
{
    startButton->setEnabled(isEnabled);
}

void NoLoadPanel::SetMeasuring(bool isMeasuring)
{
    startButton->setText(isMeasuring ? texts::noLoadStop : texts::noLoadStart);
    for (QWidget* control :
         {static_cast<QWidget*>(deviceBox), static_cast<QWidget*>(portBox), static_cast<QWidget*>(intervalBox),
          static_cast<QWidget*>(wiringButton), static_cast<QWidget*>(diagnosisButton)})
        control->setEnabled(!isMeasuring);
}

} // namespace korvanel
