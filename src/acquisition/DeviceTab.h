// Tab of the instrument: which one, at which port, how often it is asked, how it is wired, and whether it answers.
#pragma once

#include "acquisition/StatusLamps.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;

namespace korvanel {

class EntryBox;
class PortBox;
class WiringView;

class DeviceTab : public QWidget
{
    Q_OBJECT

public:
    DeviceTab();
    /// Takes what it shows from the application block again, lamps included.
    void Refresh();
    void ShowState(LampState state) { lamps->Show(state); }
    /// The entry in the box becomes the instrument.
    void TakeInstrument();
    /// Takes what is typed and not yet handed over.
    void Commit();
    /// Whether a text that was refused still stands in its box.
    bool HasRefusedInput() const;
    /// Whether the family of the instrument can have the interval; if not, that has been told and its box has the
    /// focus.
    bool HasFitInterval();

signals:
    void InstrumentChanged();
    void DiagnosisWanted();

private:
    QWidget* BuildChoice();
    QWidget* BuildInterval();
    QWidget* BuildStatus();
    QWidget* BuildWiring();
    void TakeInterval(const QString& text);
    void ShowInstrument();

    QComboBox* deviceBox = nullptr;
    QLabel* addressLabel = nullptr;
    PortBox* portBox = nullptr;
    EntryBox* intervalBox = nullptr;
    QCheckBox* beatBox = nullptr;
    StatusLamps* lamps = nullptr;
    QLabel* identityLabel = nullptr;
    WiringView* wiring = nullptr;
};

} // namespace korvanel
