// The small load cycle that docs/auswertung.md works out: five sets of a motor, a minute apart.
#pragma once

#include "core/Common.h"
#include "core/clsProgSettings.h"
#include "machine/Algorithms_ASM_Start.h"
#include "support/Machines.h"
#include "support/StoredRows.h"

#include <vector>

namespace korvanel::test {

inline tValueRow ExampleRow(const std::array<double, 12>& values)
{
    tValueRow row;
    double* const fields[] = {&row.dU[kSum],      &row.dI[kSum],   &row.df, &row.dP[kSum], &row.dS[kSum], &row.dQ[kSum],
                              &row.dCosPhi[kSum], &row.dPhi[kSum], &row.dn, &row.dM,       &row.dPmech,   &row.deta};
    for (std::size_t i = 0; i < values.size(); ++i)
        *fields[i] = values[i];
    row.sMethod = QStringLiteral("P");
    return row;
}

/// The sets, by U, I, f, Pel, S, Q, cosphi, Phi, n, M, Pmech, eta; the last one is marked as corrected.
inline std::vector<tValueRow> ExampleRows()
{
    std::vector<tValueRow> rows{
        ExampleRow({400, 10, 50, 6000, 7000, 3600, 0.86, 31, 1485, 33, 5130, 0.855}),
        ExampleRow({398, 30, 50, 18500, 20700, 9300, 0.89, 26.7, 1464, 110, 16860, 0.911}),
        ExampleRow({396, 42, 49.9, 25800, 28800, 12800, 0.896, 26.4, 1446, 152, 23010, 0.892}),
        ExampleRow({402, 8, 50.1, -3000, 5600, 4700, -0.54, 122.7, 1508, -21, -3320, 0.904}),
        ExampleRow({400, 12, 50, 0, 8300, 8300, 0, 90, 1500, 0, 0, 0}),
    };
    constexpr double kInterval = 60;
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i].dt = kInterval * static_cast<double>(i);
    rows.back().bEdit = kCorrected;
    return rows;
}

/// Fills the open project of configuration 2 with the example, and the options with what it takes.
inline void PutExample(clsProgSettings& options)
{
    App().MachineI.record = Motor();
    App().MachineI.record.Mkipp_Mn = 2.5;
    BuildMachineModel();
    App().dInterval = 60;
    options.SetTWindowSelection(0);
    options.SetTWindowSize(120);
    options.SetCycles(1000);
    std::vector<tValueRow> rows = ExampleRows();
    StoreRows(rows);
}

} // namespace korvanel::test
