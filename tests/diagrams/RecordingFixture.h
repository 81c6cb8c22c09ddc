// Recordings whose values the tests know, in a project file.
#pragma once

#include "core/QuantityTable.h"
#include "core/clsGraphColours.h"
#include "diagrams/DiagramDrawing.h"
#include "evaluation/Algorithms.h"
#include "support/ProjectFixture.h"
#include "support/StoredRows.h"

#include <QtMath>

#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace korvanel::test {

/// Machine configuration: eight curves at least.
inline constexpr int kDiagramConf = 2;
inline const std::vector<int> kEightCurves{kU, kI, kF, kP, kQ, kN, kM, kPmech};

class DiagramRecordingTest : public ProjectTest
{
protected:
    DiagramRecordingTest() : colours(std::make_unique<clsGraphColours>(folder.path()))
    {
        App().GraphColours = colours.get();
        for (const int quantity : kEightCurves)
            states.at(static_cast<std::size_t>(quantity)) = 1;
        for (std::size_t i = 0; i < kEightCurves.size(); ++i) // each another colour than the white of the picture
            colours->SetColour(kEightCurves[i], static_cast<qint32>(0x102030 + 0x1A0917 * i));
    }
    ~DiagramRecordingTest() override { App().GraphColours = nullptr; }

    /// A project with the sets, evaluated.
    void Record(std::vector<tValueRow> sets)
    {
        rows = std::move(sets);
        values.Drop();
        CreateProject(kDiagramConf, QStringLiteral("%1.MDB").arg(++projects));
        StoreRows(rows);
        for (tValueRow& row : rows)
            QuantityOf(kWp).field(row) = 0;
    }
    /// Full scales by the values themselves.
    DiagramScaleEnds Ends() const
    {
        EvaluationResults results;
        for (const int quantity : kEightCurves)
            for (const tValueRow& row : rows) {
                auto& least = results.tExtremMin.at(static_cast<std::size_t>(quantity)).dValue;
                auto& most = results.tExtremMax.at(static_cast<std::size_t>(quantity)).dValue;
                least = std::min(least, Value(row, quantity));
                most = std::max(most, Value(row, quantity));
            }
        return ScaleEndsOf(results);
    }
    std::vector<DiagramCurve> Curves() const { return CurvesOf(kEightCurves, states, Ends()); }
    static double Value(tValueRow row, int quantity) { return QuantityOf(quantity).field(row); }
    double Stored(int quantity, int set) const { return Value(rows.at(static_cast<std::size_t>(set) - 1), quantity); }

    DiagramStates states{};
    std::vector<tValueRow> rows;
    SetValues values;

private:
    std::unique_ptr<clsGraphColours> colours;
    int projects = 0;
};

/// Curves of different kinds, of which some cross often: noise, ramps, steps, a constant, a value below zero, and
/// single spikes.
inline std::vector<tValueRow> RandomSets(int count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> unit(-1, 1);
    std::vector<tValueRow> rows(static_cast<std::size_t>(count));
    double walk = 0;
    for (int i = 0; i < count; ++i) {
        tValueRow& row = rows[static_cast<std::size_t>(i)];
        const double at = static_cast<double>(i) / count;
        walk = std::clamp(walk + unit(random), -40.0, 40.0);
        row.dU[kSum] = 400 + 20 * unit(random);
        row.dI[kSum] = 30 + walk / 2 + (unit(random) > 0.995 ? 60 : 0);
        row.df = 50;
        row.dP[kSum] = 20'000 * std::sin(20 * at) * (1 + 0.1 * unit(random));
        row.dQ[kSum] = i % 500 < 250 ? 8'000 : -3'000;
        row.dn = 1500 - 40 * at + 3 * unit(random);
        row.dM = 100 * at * (1 + 0.3 * unit(random));
        row.dPmech = 15'000 * std::sin(20 * at + 0.4) * (1 + 0.2 * unit(random));
        row.dt = i;
    }
    return rows;
}

} // namespace korvanel::test
