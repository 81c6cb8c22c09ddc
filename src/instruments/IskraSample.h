// Taking a sample from a power analyser ISKRA MI71XX: which values are queried for which entry, and where they go.
#pragma once

#include <QtGlobal>

namespace korvanel {

enum class IskraPlan : quint8
{
    SinglePhase,            ///< U, I, f, phi of one phase; the powers follow
    ThreePhase,             ///< the same for three phases of equal load
    SinglePhaseRecorder,    ///< every value of one phase, with the registers of energy
    PhaseRecorderToNeutral, ///< every value of three phases, voltages to the neutral conductor
    PhaseRecorderToPhase,   ///< the same with voltages between the phases
    Voltages,               ///< three voltages between the phases, and the frequency
};

/// Number of queries of a sample; each takes 0.1 s.
int QueriesOf(IskraPlan plan);

/// Fills `MeasuredRow`. A reply with a wrong head makes the whole sample invalid; the remaining queries are sent all
/// the same, so that every sample of an entry takes the same time.
void TakeIskraSample(IskraPlan plan);

} // namespace korvanel
