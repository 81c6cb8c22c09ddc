// The rows of energies and utilisation and the texts of their values, for the tables of one machine and of two.
#pragma once

#include "core/Evaluation.h"
#include "core/Texts.h"

#include <QString>

#include <span>

namespace korvanel {

struct EnergyTableRow
{
    TextRef name;
    TextRef group;
    TextRef unit; ///< none of a ratio
    int entry;
    double divisor;
    double factor;
    bool asKilo;
};

std::span<const EnergyTableRow> SupplyEnergyRows();
/// Those that want a machine.
std::span<const EnergyTableRow> ShaftEnergyRows();

const EnergyEntry& EnergyOf(const EvaluationResults& results, int entry);
QString EnergyText(const EnergyTableRow& row, double energy);
QString CostText(const EvaluationResults& results, double amount);

struct UtilisationTableRow
{
    TextRef name;
    TextRef kind;
    TextRef unit;
    int entry; ///< in the window; the whole recording has the same in the same order
    double divisor;
    double factor;
    TextRef reference;
    bool needsRatedSpeed = false;
};

/// The sets over which a block reaches.
enum class Reach
{
    OneSet,
    Window,
    WholeRecording,
};

struct UtilisationBlock
{
    TextRef heading;
    std::span<const UtilisationTableRow> rows;
    int offset; ///< of its entries
    Reach reach;
};

std::span<const UtilisationBlock> UtilisationBlocks();

const UtilisationEntry& UtilisationOf(const EvaluationResults& results, int entry);
QString UtilisationText(const UtilisationTableRow& row, const UtilisationEntry& entry);
/// A share as percent with up to two decimals, without the sign.
QString PercentText(double share);

} // namespace korvanel
