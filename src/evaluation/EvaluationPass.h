// The one pass over a recording that fills all result tables: extremes, sliding window, energies, utilisation, classes
// of the sets. Where the sets come from and which machine judges them are parameters, so that the same pass serves the
// measured and the simulated machine.
#pragma once

#include "core/Evaluation.h"
#include "core/TableDb.h"
#include "core/ValueRow.h"
#include "data/SetReader.h"
#include "evaluation/Energy.h"
#include "evaluation/Rating.h"
#include "evaluation/WindowTail.h"

#include <functional>
#include <memory>
#include <vector>

namespace korvanel {

/// What a pass is to be made with.
struct PassConditions
{
    int netConf = 0;
    double window = 0;   ///< s
    QString windowText;  ///< the same for headings
    double recorded = 0; ///< duration of the recording by its heading, s; 0 if that doesn't tell any
    RatedData rated;
    EnergyTerms energy; ///< with the interval of the sets
    QString currency;
};

/// Overwrites the entries of a pair that the value exceeds. Set 1 begins both; a tie keeps the earlier set.
inline void UpdateExtrem(double value, qint32 set, ExtremEntry& minimum, ExtremEntry& maximum)
{
    if (set == 1 || value < minimum.dValue)
        minimum = {value, set};
    if (set == 1 || value > maximum.dValue)
        maximum = {value, set};
}

class EvaluationPass
{
public:
    EvaluationPass(const PassConditions& passConditions, std::unique_ptr<WindowTail> windowTail);

    /// Takes the next set, in order. Throws std::invalid_argument if the interval between the sets is no length of
    /// time.
    void Add(const tValueRow& row);
    /// Throws ArithmeticFault if a sum is not finite any more.
    void RequireFiniteSums() const;
    /// Ends the pass. Throws ArithmeticFault if a result is not finite; what went before is of no use then.
    EvaluationResults FinishEvaluation();

private:
    void UpdateExtremes(const tValueRow& row);
    void WindowAccumulate(const WindowValues& values, double loss, bool add);
    void MoveWindow(const WindowValues& values);
    void FinishWindow();
    void FindGap(double t);
    void FinishGaps();

    PassConditions conditions;
    Rater rater;
    std::vector<int> stored; ///< quantities that the sets hold
    double span;             ///< W - 1 of the window of W sets
    std::unique_ptr<WindowTail> tail;
    EvaluationResults results;
    double firstTime = 0; ///< of the first set, s
    double lastTime = 0;  ///< of the set before
};

/// The window's length up to which its sets are kept in memory; those of a longer one are read a second time.
inline constexpr qint32 kMostSetsInMemory = 200'000;

/// Walks all sets of an open database and evaluates them. `advance` hears the number of sets done, now and then. Memory
/// is limited however long the recording and the window are, and the results don't depend on `mostInMemory`. Throws
/// DbError, ArithmeticFault and std::invalid_argument.
EvaluationResults EvaluateSets(TableDb& db, SetSource source, const PassConditions& conditions, qint32 count,
                               const std::function<void(qint32)>& advance, qint32 mostInMemory = kMostSetsInMemory);

} // namespace korvanel
