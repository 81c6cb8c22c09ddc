// The page of the measuring configuration: a tab for the instrument and its self-diagnosis, and one for transformers,
// start trigger and measuring range.
#pragma once

#include "core/window/Page.h"

class QTabWidget;

namespace korvanel {

class DeviceTab;
class ScheduleTab;
class TransformerTab;

class FormF3 : public Page
{
    Q_OBJECT

public:
    FormF3(PageFrame& host, const PageEntry& entry);
    void Refresh() override;
    bool TakeInput(InputUse use) override;

protected:
    bool MayGoForward() override;

private:
    void AddTab(const char* key, QWidget* content, const QString& title);
    void ConnectTabs();
    void Commit();
    void Diagnose();
    /// Runs an exchange with an instrument that is connected.
    void Talk(const std::function<void()>& routine);
    /// Runs what talks to the instrument: nothing can be pressed meanwhile, and everything can be after it, however it
    /// ends.
    void Work(const std::function<void()>& routine);

    QTabWidget* tabs;
    DeviceTab* deviceTab;
    TransformerTab* transformerTab;
    ScheduleTab* scheduleTab;
};

} // namespace korvanel
