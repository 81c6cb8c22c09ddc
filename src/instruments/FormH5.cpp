#include "instruments/FormH5.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Texts.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF3Texts.h"
#include "core/texts/FormH5Texts.h"
#include "core/window/PendingInput.h"
#include "core/window/PlainLabel.h"
#include "instruments/Catalogue.h"
#include "instruments/Frames.h"
#include "instruments/PortBox.h"

#include <QApplication>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QTabWidget>
#include <QVBoxLayout>

namespace korvanel {

namespace {

constexpr int kSingle = 0;
constexpr int kInterval = 1;

/// What the two ways of searching say.
struct Words
{
    TextRef outOfRange;
    TextRef tryOther;
};

constexpr std::array<Words, 2> kWords{{
    {&texts::modbusAddressRange, &texts::modbusOtherAddress},
    {&texts::modbusIntervalRange, &texts::modbusOtherInterval},
}};

} // namespace

FormH5::FormH5(QWidget* parent) : QDialog(parent), formerPort(App().lComPort)
{
    constexpr qint32 kUsualAddress = 33;
    constexpr int kWidth = 420;
    if (App().lModbusAddress == 0)
        App().lModbusAddress = kUsualAddress;
    setObjectName(QStringLiteral("FormH5"));
    setWindowTitle(texts::modbusTitle);
    setMinimumWidth(kWidth);
    auto* column = new QVBoxLayout(this);
    column->addWidget(BuildTop());
    tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("tabMODBUS"));
    tabs->addTab(BuildAddressTab(), texts::modbusTabAddress);
    tabs->addTab(BuildIntervalTab(), texts::modbusTabInterval);
    column->addWidget(tabs, 1);
    column->addLayout(BuildButtons());
}

QWidget* FormH5::BuildTop()
{
    auto* top = new QWidget;
    auto* form = new QFormLayout(top);
    deviceBox = new QComboBox;
    deviceBox->setObjectName(QStringLiteral("cboDevice"));
    deviceBox->addItem(QString::fromUtf8(FamilyWithAddresses().name));
    AddRow(*form, texts::labelDevice, deviceBox);
    portBox = new PortBox;
    portBox->ShowPort(App().lComPort);
    connect(portBox, &PortBox::Entered, this, [this](const QString& text) {
        App().lComPort = TypedWholeNumber(text, 1);
        portBox->ShowPort(App().lComPort);
    });
    auto* caption = new PlainLabel(texts::labelPort);
    caption->setBuddy(portBox->Box());
    form->addRow(caption, portBox);
    return top;
}

QWidget* FormH5::BuildAddressTab()
{
    auto* tab = new QWidget;
    tab->setObjectName(QStringLiteral("tabMODBUS_A"));
    auto* form = new QFormLayout;
    AddAddressBox(*form, 0, texts::modbusLabelAddress, App().lModbusAddress);
    auto* column = new QVBoxLayout(tab);
    column->addLayout(form);
    column->addWidget(AddSearchButton(kSingle, texts::modbusTest), 0, Qt::AlignLeft);
    column->addWidget(AddInfo(kSingle, texts::modbusEnterAddress), 1);
    return tab;
}

QWidget* FormH5::BuildIntervalTab()
{
    auto* tab = new QWidget;
    tab->setObjectName(QStringLiteral("tabMODBUS_B"));
    auto* form = new QFormLayout;
    AddAddressBox(*form, 1, texts::modbusLabelFrom, kLeastBusAddress);
    AddAddressBox(*form, 2, texts::modbusLabelTo, kGreatestBusAddress);
    progressBar = new QProgressBar;
    progressBar->setObjectName(QStringLiteral("ProgressBar1"));
    progressBar->setTextVisible(false);
    auto* row = new QHBoxLayout;
    row->addWidget(AddSearchButton(kInterval, texts::modbusSearch));
    row->addWidget(progressBar, 1);
    auto* column = new QVBoxLayout(tab);
    column->addLayout(form);
    column->addLayout(row);
    column->addWidget(AddInfo(kInterval, texts::modbusEnterInterval), 1);
    return tab;
}

QLayout* FormH5::BuildButtons()
{
    okButton = new QPushButton(texts::buttonOk);
    okButton->setObjectName(QStringLiteral("cmdOK"));
    okButton->setEnabled(false);
    okButton->setAutoDefault(false);
    connect(okButton, &QPushButton::clicked, this, &FormH5::TakeOver);
    cancelButton = new QPushButton(texts::buttonCancel);
    cancelButton->setObjectName(QStringLiteral("cmdCancel"));
    cancelButton->setAutoDefault(false);
    connect(cancelButton, &QPushButton::clicked, this, &FormH5::reject);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(okButton);
    row->addWidget(cancelButton);
    return row;
}

QLineEdit* FormH5::AddAddressBox(QFormLayout& form, int index, const QString& caption, int address)
{
    constexpr int kLongestText = 10;
    constexpr int kWidth = 90;
    auto* box = new QLineEdit(QString::number(address));
    box->setObjectName(QStringLiteral("txtAddress_%1").arg(index));
    box->setMaxLength(kLongestText);
    box->setFixedWidth(kWidth);
    connect(box, &QLineEdit::returnPressed, this,
            [this, index] { searchButtons.at(index == 0 ? kSingle : kInterval)->click(); });
    AddRow(form, caption, box);
    return addressBoxes.at(static_cast<std::size_t>(index)) = box;
}

QPushButton* FormH5::AddSearchButton(int index, const QString& caption)
{
    auto* button = new QPushButton(caption);
    button->setObjectName(QStringLiteral("cmdSearch_%1").arg(index));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this,
            [this, index] { RunGuarded(windowTitle(), [this, index] { Search(index); }); });
    return searchButtons.at(static_cast<std::size_t>(index)) = button;
}

QLabel* FormH5::AddInfo(int index, const QString& text)
{
    constexpr int kLines = 3;
    auto* label = new PlainLabel(text);
    label->setObjectName(QStringLiteral("lblInfo_%1").arg(index));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setMinimumHeight(kLines * label->fontMetrics().lineSpacing());
    return infos.at(static_cast<std::size_t>(index)) = label;
}

int FormH5::TypedAddress(int index) const
{
    return TypedWholeNumber(addressBoxes.at(static_cast<std::size_t>(index))->text(), 0);
}

void FormH5::Search(int index)
{
    if (deviceBox->currentText() != QString::fromUtf8(FamilyWithAddresses().name)) {
        infos.at(static_cast<std::size_t>(index))->setText(texts::modbusUnknownDevice);
        return;
    }
    portBox->Commit();
    EnableControls(false);
    const auto atEnd = qScopeGuard([this, index] {
        progressBar->setRange(0, 1); // an empty interval would be shown as endless work
        progressBar->reset();
        DropPendingInput();
        EnableControls(true);
        searchButtons.at(static_cast<std::size_t>(index))->setFocus();
    });
    ShowResult(index, RunSearch(index));
}

SearchResult FormH5::RunSearch(int index)
{
    const auto observe = [this, index](int address) { ShowTested(index, address); };
    if (index == kSingle)
        return TestAddress(TypedAddress(0), observe);
    progressBar->setRange(TypedAddress(1), TypedAddress(2));
    return SearchInterval(TypedAddress(1), TypedAddress(2), observe);
}

/// Each test blocks for a third of a second, so that what it is about has to be on the screen before.
void FormH5::ShowTested(int index, int address)
{
    QLabel& info = *infos.at(static_cast<std::size_t>(index));
    info.setText(FillPlaceholders(texts::modbusTesting, {QString::number(address)}));
    info.repaint();
    if (index == kInterval)
        progressBar->setValue(address);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void FormH5::ShowResult(int index, const SearchResult& result)
{
    const Words& words = kWords.at(static_cast<std::size_t>(index));
    QLabel& info = *infos.at(static_cast<std::size_t>(index));
    switch (result.outcome) {
    case SearchOutcome::OutOfRange:
        info.setText(TextOf(words.outOfRange));
        break;
    case SearchOutcome::NotFound:
        info.setText(texts::modbusNotFound + u'\n' + TextOf(words.tryOther));
        break;
    case SearchOutcome::Found:
        iFoundAddress = static_cast<qint16>(result.address);
        foundDeviceId = result.deviceId;
        addressBoxes[0]->setText(QString::number(result.address));
        const QString found =
            index == kSingle ? texts::modbusFound : texts::modbusFirstFound + QString::number(result.address);
        info.setText(found + u'\n' + texts::modbusPressOk);
        break;
    }
}

/// While a search runs nothing can be pressed and the dialog stays.
void FormH5::EnableControls(bool areEnabled)
{
    isSearching = !areEnabled;
    tabs->tabBar()->setEnabled(areEnabled);
    for (QWidget* control : std::initializer_list<QWidget*>{deviceBox, portBox, cancelButton})
        control->setEnabled(areEnabled);
    for (QLineEdit* box : addressBoxes)
        box->setEnabled(areEnabled);
    for (QPushButton* button : searchButtons)
        button->setEnabled(areEnabled);
    okButton->setEnabled(areEnabled && iFoundAddress != 0);
}

void FormH5::TakeOver()
{
    portBox->Commit();
    App().lModbusAddress = iFoundAddress;
    App().sDeviceId = foundDeviceId;
    if (App().bProjectOpen) // without a project the address stays for the next one
        App().bProjectDirty = true;
    accept();
}

/// Cancel, Escape and the button of the window end here.
void FormH5::reject()
{
    if (isSearching)
        return;
    App().lComPort = formerPort;
    QDialog::reject();
}

} // namespace korvanel
