// "MODBUS Geräteadresse": finds the bus address of an instrument by trying one address or walking through an interval.
// Nothing of the project changes before OK.
#pragma once

#include "instruments/AddressSearch.h"

#include <QDialog>

#include <array>

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTabWidget;

namespace korvanel {

class PortBox;

class FormH5 : public QDialog
{
    Q_OBJECT

public:
    explicit FormH5(QWidget* parent);
    void reject() override;

private:
    QWidget* BuildTop();
    QWidget* BuildAddressTab();
    QWidget* BuildIntervalTab();
    QLayout* BuildButtons();
    QLineEdit* AddAddressBox(QFormLayout& form, int index, const QString& caption, int address);
    QPushButton* AddSearchButton(int index, const QString& caption);
    QLabel* AddInfo(int index, const QString& text);

    /// 0 tries the one address, 1 the interval.
    void Search(int index);
    SearchResult RunSearch(int index);
    void ShowResult(int index, const SearchResult& result);
    void ShowTested(int index, int address);
    void EnableControls(bool areEnabled);
    int TypedAddress(int index) const;
    void TakeOver();

    QComboBox* deviceBox = nullptr;
    PortBox* portBox = nullptr;
    QTabWidget* tabs = nullptr;
    std::array<QLineEdit*, 3> addressBoxes{}; ///< the one address; bounds of the interval
    std::array<QPushButton*, 2> searchButtons{};
    std::array<QLabel*, 2> infos{};
    QProgressBar* progressBar = nullptr;
    QPushButton* okButton = nullptr;
    QPushButton* cancelButton = nullptr;

    qint16 iFoundAddress = 0; ///< found last; 0 before
    QString foundDeviceId;
    qint32 formerPort;
    bool isSearching = false;
};

} // namespace korvanel
