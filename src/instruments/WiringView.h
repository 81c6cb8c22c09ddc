// How an instrument is to be wired: its entry and the texts of the catalogue beside their captions. Page and dialog
// show the same.
#pragma once

#include <QWidget>

#include <array>

class QLabel;

namespace korvanel {

class WiringView : public QWidget
{
    Q_OBJECT

public:
    WiringView();
    /// Looks the instrument of the block up in the catalogue and shows what is found.
    void Refresh();

private:
    std::array<QLabel*, 6> texts{}; ///< entry, net, U, I, P with the wattmeter method, remark
};

} // namespace korvanel
