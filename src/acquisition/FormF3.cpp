#include "acquisition/FormF3.h"

#include "acquisition/DeviceTab.h"
#include "acquisition/MeasurementConfiguration.h"
#include "acquisition/ScheduleTab.h"
#include "acquisition/TransformerTab.h"
#include "core/Common.h"
#include "core/texts/FormF3Texts.h"
#include "core/window/PageTable.h"
#include "instruments/DevManaging.h"

#include <QTabWidget>
#include <QVBoxLayout>

namespace korvanel {

FormF3::FormF3(PageFrame& host, const PageEntry& entry)
    : Page(host, entry), tabs(new QTabWidget), deviceTab(new DeviceTab), transformerTab(new TransformerTab),
      scheduleTab(new ScheduleTab)
{
    tabs->setObjectName(QStringLiteral("tabPage"));
    AddTab("A", deviceTab, texts::tabDevice);
    AddTab("B", transformerTab, texts::tabTransformers);
    AddTab("C", scheduleTab, texts::tabSchedule);
    Body().addWidget(tabs, 1);
    ConnectTabs();
}

void FormF3::AddTab(const char* key, QWidget* content, const QString& title)
{
    content->setObjectName(QStringLiteral("tabPage_") + QLatin1String(key));
    tabs->addTab(content, title);
}

void FormF3::ConnectTabs()
{
    connect(deviceTab, &DeviceTab::InstrumentChanged, this, [this] { Guarded([this] { Refresh(); }); });
    connect(deviceTab, &DeviceTab::DiagnosisWanted, this, [this] { Guarded([this] { Diagnose(); }); });
    connect(transformerTab, &TransformerTab::TransferWanted, this, [this](TransferDirection direction) {
        Guarded([this, direction] { Talk([direction] { DevTransfer(direction); }); });
    });
    connect(transformerTab, &TransformerTab::ResetWanted, this,
            [this] { Guarded([this] { Talk([] { DevResetCounters(); }); }); });
}

void FormF3::Refresh()
{
    PrepareMeasurementConfiguration();
    deviceTab->Refresh();
    transformerTab->Refresh();
    scheduleTab->Refresh();
}

void FormF3::Commit()
{
    deviceTab->Commit();
    transformerTab->Commit();
}

bool FormF3::TakeInput(InputUse use)
{
    Commit();
    if (deviceTab->HasRefusedInput()) {
        tabs->setCurrentWidget(deviceTab);
        return false;
    }
    if (use == InputUse::Saving || scheduleTab->TakeInput()) // a schedule belongs to no project file
        return true;
    tabs->setCurrentWidget(scheduleTab);
    return false;
}

bool FormF3::MayGoForward()
{
    if (deviceTab->HasFitInterval())
        return true;
    tabs->setCurrentWidget(deviceTab);
    return false;
}

void FormF3::Diagnose()
{
    deviceTab->TakeInstrument();
    App().iCurrentPage = kPageDevice;
    App().bConfigDue = false;
    Work([this] {
        deviceTab->ShowState(LampState::AtWork);
        App().bDevConnected = false; // also where the port can't be opened, so that no question is asked
        DevConnect();
    });
}

void FormF3::Talk(const std::function<void()>& routine)
{
    if (!App().bDevConnected)
        return;
    Work([&routine] {
        if (DevCommand(kDevSettings)) // the port may have been used with another number since the connection
            routine();
    });
}

void FormF3::Work(const std::function<void()>& routine)
{
    Commit();
    LockedAndBusy(routine, [this] { Refresh(); });
}

} // namespace korvanel
