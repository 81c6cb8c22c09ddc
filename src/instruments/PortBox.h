// The choice of the serial port: the box holds the number alone, its list tells the device of each port, and a label
// beside it the device of the number in force.
#pragma once

#include <QWidget>

class QLabel;

namespace korvanel {

class EntryBox;

class PortBox : public QWidget
{
    Q_OBJECT

public:
    PortBox();
    /// Asks the system for its ports anew.
    void ShowPort(int number);
    /// Takes what is typed and not yet handed over.
    void Commit();
    /// For the mnemonic of a caption.
    QWidget* Box() const;

signals:
    void Entered(const QString& text);

private:
    EntryBox* box;
    QLabel* device;
};

} // namespace korvanel
