#include "acquisition/DeviceTab.h"

#include "acquisition/MeasurementConfiguration.h"
#include "core/Common.h"
#include "core/NumberText.h"
#include "core/texts/FormF3Texts.h"
#include "core/texts/FormH7Texts.h"
#include "core/window/EntryBox.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"
#include "instruments/Catalogue.h"
#include "instruments/PortBox.h"
#include "instruments/WiringView.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace korvanel {

DeviceTab::DeviceTab()
{
    auto* upper = new QHBoxLayout;
    upper->addWidget(BuildChoice(), 3);
    upper->addWidget(BuildStatus(), 2);
    auto* column = new QVBoxLayout(this);
    column->addLayout(upper);
    column->addWidget(BuildWiring());
    column->addStretch(1);
}

QWidget* DeviceTab::BuildChoice()
{
    auto* content = new QGroupBox(texts::tabDevice);
    auto* form = new QFormLayout(content);
    deviceBox = new QComboBox;
    deviceBox->setObjectName(QStringLiteral("cboSelect"));
    connect(deviceBox, &QComboBox::activated, this, [this] {
        TakeInstrument();
        emit InstrumentChanged();
    });
    AddRow(*form, texts::labelDevice, deviceBox);
    portBox = new PortBox;
    connect(portBox, &PortBox::Entered, this, [this](const QString& text) {
        EnterPort(text);
        portBox->ShowPort(App().lComPort);
    });
    auto* caption = new PlainLabel(texts::labelPort);
    caption->setBuddy(portBox->Box());
    form->addRow(caption, portBox);
    AddRow(*form, texts::labelInterval, BuildInterval())->setBuddy(intervalBox);
    beatBox = new QCheckBox;
    beatBox->setObjectName(QStringLiteral("chkTakt"));
    connect(beatBox, &QCheckBox::toggled, this, EnterBeat);
    AddRow(*form, texts::labelBeat, beatBox);
    return content;
}

QWidget* DeviceTab::BuildInterval()
{
    intervalBox = new EntryBox(QStringLiteral("cboInterval"));
    connect(intervalBox, &EntryBox::Committed, this, &DeviceTab::TakeInterval);
    auto* content = new QWidget;
    auto* row = new QHBoxLayout(content);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(intervalBox);
    row->addWidget(new PlainLabel(texts::unitSeconds), 1);
    return content;
}

QWidget* DeviceTab::BuildStatus()
{
    auto* content = new QGroupBox(texts::groupStatus);
    auto* column = new QVBoxLayout(content);
    lamps = new StatusLamps;
    column->addWidget(lamps);
    identityLabel = new PlainLabel;
    identityLabel->setObjectName(QStringLiteral("lblDevice"));
    identityLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // it comes from outside
    column->addWidget(identityLabel);
    addressLabel = new PlainLabel;
    addressLabel->setObjectName(QStringLiteral("lblModbus"));
    column->addWidget(addressLabel);
    column->addStretch(1);
    auto* diagnosis = new QPushButton(texts::buttonDiagnosis);
    diagnosis->setObjectName(QStringLiteral("cmdDiag"));
    connect(diagnosis, &QPushButton::clicked, this, &DeviceTab::DiagnosisWanted);
    column->addWidget(diagnosis, 0, Qt::AlignLeft);
    return content;
}

QWidget* DeviceTab::BuildWiring()
{
    auto* content = new QGroupBox(texts::wiringTitle);
    auto* column = new QVBoxLayout(content);
    wiring = new WiringView;
    column->addWidget(wiring);
    return content;
}

void DeviceTab::Refresh()
{
    const QSignalBlocker quiet(beatBox);
    deviceBox->clear();
    deviceBox->addItems(InstrumentEntries(App().iNetConfIndex));
    deviceBox->setCurrentIndex(deviceBox->findText(App().sDevice, Qt::MatchExactly | Qt::MatchCaseSensitive));
    portBox->ShowPort(App().lComPort);
    beatBox->setChecked(App().lSound == 1);
    ShowInstrument();
    ShowState(App().bDevConnected ? LampState::Connected : LampState::NotConnected);
}

void DeviceTab::ShowInstrument()
{
    intervalBox->SetChoices(IntervalChoices());
    intervalBox->ShowText(NumberText(App().dInterval));
    identityLabel->setText(App().sDeviceId);
    identityLabel->setToolTip(PlainToolTip(App().sDeviceId));
    addressLabel->setText(FillPlaceholders(texts::modbusAddress, {QString::number(App().lModbusAddress)}));
    addressLabel->setVisible(FactsOf(App().sDevice, App().iNetConfIndex).hasBusAddress);
    wiring->Refresh();
}

void DeviceTab::TakeInstrument()
{
    if (deviceBox->currentIndex() >= 0)
        ChooseInstrument(deviceBox->currentText());
}

void DeviceTab::Commit()
{
    portBox->Commit();
    intervalBox->Commit();
}

void DeviceTab::TakeInterval(const QString& text)
{
    const TypedEntry entry = EnterInterval(text);
    if (entry.isAccepted) {
        intervalBox->ShowText(entry.text);
        return;
    }
    intervalBox->setEditText(entry.text);
    intervalBox->setFocus();
}

bool DeviceTab::HasRefusedInput() const
{
    return intervalBox->HasPendingText();
}

bool DeviceTab::HasFitInterval()
{
    const bool isFit = CheckIntervalOfFamily();
    if (!isFit)
        intervalBox->setFocus();
    return isFit;
}

} // namespace korvanel
