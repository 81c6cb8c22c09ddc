// The list of all sets with their ratings: number and time stay in view, the columns of the layout move sideways. A
// right click anywhere changes their order. What a value or a set is worth the page tells.
#pragma once

#include "data/SetGrid.h"

#include <functional>
#include <span>

class QTableView;

namespace korvanel {

/// How the values of the sets are judged. Colours: blue, green, red from the high to the low byte.
struct SetJudge
{
    struct Verdict
    {
        QString word;
        qint32 colour = 0;
    };
    std::function<qint32(double value, int quantity)> colourOf; ///< of a value in base units
    std::function<Verdict(const tValueRow& row)> verdictOn;
    QStringList words; ///< that a verdict may have
};

class SetList : public SetGrid
{
    Q_OBJECT

public:
    explicit SetList(SetJudge setJudge, const char* name = "flxValues");

protected:
    /// The columns that move; those of the layout unless it is overridden.
    virtual std::span<const qint16> Columns() const;
    /// The time of a set in its column, and what stands over it.
    virtual QString TimeHeading() const;
    virtual QString TimeOf(const tValueRow& row) const;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void FillHead() override;
    void SetWidths() override;
    void FillRow(int row, const QString& number, const ShownSet& shown) override;
    void ClearRow(int row) override;

private:
    void BuildFixedColumns();
    SetJudge::Verdict CellOf(const ShownSet& shown, int column) const;
    void ShowCell(int row, int column, const SetJudge::Verdict& cell);

    SetJudge judge;
    QTableView* fixed; ///< the same rows, with the columns that stay
};

} // namespace korvanel
