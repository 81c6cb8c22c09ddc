// The result tables as the user reads them: texts, block headings and verdict colours, formed from the results of the
// evaluation of one machine. Page, export and report show the same tables.
#pragma once

#include "core/MachineInUse.h"

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <vector>

namespace korvanel {

/// What a row of a result table is.
enum class ResultRowKind
{
    Heading, ///< a block heading across the table, in its first cell
    Head,    ///< texts over the columns that follow
    Spanned, ///< the same over several columns each: an empty cell belongs to the one before it
    Values,
};

struct ResultRow
{
    ResultRowKind kind = ResultRowKind::Values;
    QStringList cells;                ///< one a column; of a heading the one text
    qint32 lastColour = 0;            ///< of the last cell: blue, green, red from the high to the low byte
    std::vector<qint32> colours = {}; ///< of all cells, where more than the last one has its own
};

struct ResultTable
{
    QStringList heads; ///< over the columns
    std::vector<ResultRow> rows;
};

/// `flxExtrem`: extremes, rms and arithmetic mean in the window. Without sets, heads alone; likewise the other two.
ResultTable ExtremTable(const MachineInUse& machine);

/// `flxEnergy`: energies and costs of one cycle and of the chosen number.
ResultTable EnergyTable(const MachineInUse& machine);

/// `flxASM`: utilisation of the machine. Rows in net configurations with a machine only.
ResultTable UtilisationTable(const MachineInUse& machine);

/// How much of the recording's time has sets: number of gaps, and the share that is covered.
QString GapsText(const EvaluationResults& results);

} // namespace korvanel
