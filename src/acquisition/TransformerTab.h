// Tab of the transformers, the start trigger and the ends of the measuring range.
#pragma once

#include "acquisition/MeasurementConfiguration.h"
#include "instruments/DevManaging.h"

#include <QWidget>

#include <array>

class QGridLayout;
class QLabel;
class QPushButton;

namespace korvanel {

class EntryBox;

class TransformerTab : public QWidget
{
    Q_OBJECT

public:
    TransformerTab();
    /// Takes what it shows from the application block again; what needs a connected instrument is enabled with it.
    void Refresh();
    /// Takes what is typed and not yet handed over.
    void Commit();

signals:
    void TransferWanted(TransferDirection direction);
    void ResetWanted();

private:
    /// The boxes and ratios of the program's or the instrument's transformers.
    struct Side
    {
        std::array<EntryBox*, kTransformerValues> boxes{};
        std::array<QLabel*, 2> ratios{};
    };

    QWidget* BuildTransformers(TransformerSide side);
    void AddTransformer(QGridLayout& grid, TransformerSide side, int index, int row, int column);
    QWidget* BuildProgramSide();
    QWidget* BuildDeviceSide();
    QWidget* BuildTriggers();
    QWidget* BuildScaleEnds();
    QPushButton* AddButton(QGridLayout& grid, int row, int column, const char* name, const QString& caption);
    Side& Of(TransformerSide side) { return sides.at(static_cast<std::size_t>(side)); }
    /// A value and the ratio that it belongs to.
    void ShowTransformer(TransformerSide side, int index);
    void EnableDeviceSide();

    std::array<Side, 2> sides;
    std::array<QPushButton*, 2> transferButtons{};
    QPushButton* resetButton = nullptr;
    std::array<EntryBox*, kTriggers> triggers{};
    std::array<EntryBox*, kScaleEnds> scaleEnds{};
    std::vector<QWidget*> machineRows; ///< captions, boxes and units of speed and torque
};

} // namespace korvanel
