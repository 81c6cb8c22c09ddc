#include "instruments/PortBox.h"

#include "core/window/EntryBox.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"
#include "instruments/PortNames.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>

namespace korvanel {

PortBox::PortBox() : box(new EntryBox(QStringLiteral("cboCOM"))), device(new PlainLabel)
{
    constexpr int kSpacing = 8;
    device->setObjectName(QStringLiteral("lblPort"));
    device->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // the user may have assigned a long path
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kSpacing);
    row->addWidget(box);
    row->addWidget(device, 1);
    connect(box, &EntryBox::Committed, this, &PortBox::Entered);
}

void PortBox::ShowPort(int number)
{
    const PortSources sources = SystemPortSources();
    {
        const QSignalBlocker quiet(box);
        box->clear();
        for (const PortName& port : PortsOf(sources))
            box->AddChoice(QStringLiteral("%1   %2").arg(port.number).arg(port.device), QString::number(port.number));
    }
    box->view()->setMinimumWidth(box->view()->sizeHintForColumn(0));
    box->ShowText(QString::number(number));
    device->setText(DeviceOfPort(number, sources));
    device->setToolTip(PlainToolTip(device->text()));
}

void PortBox::Commit()
{
    box->Commit();
}

QWidget* PortBox::Box() const
{
    return box;
}

} // namespace korvanel
