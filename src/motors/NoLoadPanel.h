// What the no-load test needs of the instrument: which one, at which port, how often it is asked, its wiring and its
// self-diagnosis, and the button that starts the test.
#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace korvanel {

class PortBox;

class NoLoadPanel : public QWidget
{
    Q_OBJECT

public:
    NoLoadPanel();
    /// Takes instrument, port and state of the connection from the application block again.
    void Refresh();
    /// Takes what is typed and not yet handed over.
    void Commit();
    /// Seconds between two samples.
    double Interval() const;
    void EnableMeasurement(bool isEnabled);
    /// Everything but the button that ends the measurement is locked.
    void SetMeasuring(bool isMeasuring);

signals:
    void MeasurementWanted();
    void DiagnosisWanted();
    void WiringWanted();

private:
    QPushButton* AddButton(const char* name, const QString& caption, void (NoLoadPanel::*wanted)());
    void FillIntervals();

    QComboBox* deviceBox;
    PortBox* portBox;
    QComboBox* intervalBox;
    QLabel* stateLabel;
    QPushButton* startButton;
    QPushButton* wiringButton;
    QPushButton* diagnosisButton;
};

} // namespace korvanel
