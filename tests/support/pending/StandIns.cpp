#include "core/Common.h"
#include "core/Messages.h"
#include "data/ComputedQuantities.h"
#include "machine/Algorithms_ASM_Start.h"
#include <cmath>
namespace korvanel {
void BuildMachineModel()
{
    ApplicationBlock& app = App();
    app.ModelErrors = 0;
    MachineRecord& m = app.MachineI;
    app.MachineIStatus[kRatingKnown] = m.Pmech.has_value();
    app.MachineIStatus[kConnectionKnown] = m.Schaltungsart.has_value();
    app.MachineIStatus[kPolePairsKnown] = m.Polpaarzahl >= 1;
    if (m.Pmech) {
        m.M = *m.Pmech * 60 / (2 * 3.141592653589793 * *m.n);
        int p = static_cast<int>(60 * *m.f / *m.n) + (*m.Pmech < 0 ? 1 : 0);
        if (p < 1 || p > 10) { ShowError(QStringLiteral("Ein Bearbeitungsproblem ist aufgetreten.\nDie Angabe der Nenndrehzahl ist ungültig.")); ++app.ModelErrors; return; }
        m.Polpaarzahl = static_cast<qint16>(p);
        m.eta = *m.Pmech / (std::sqrt(3.0) * *m.U * *m.I * *m.cosphi);
    }
    app.bModelValid = m.Pmech.has_value() || (m.Schaltungsart && m.Polpaarzahl >= 1);
}
void ModelStep(int) {}
QString ModelMessages(int number)
{
    return (number == 6 ? QStringLiteral("Es sind Fehler bei der Leerlaufmessung aufgetreten.")
                        : QStringLiteral("Die gemessenen Werte schwankten zu stark.")) +
           QStringLiteral("\nWiederholen Sie Messung wenn möglich.");
}
void EstimateLoad(double, double, double, double, double, int) {}
bool IsMethodUsable(int method) { return App().MachineIStatus[method == 0 ? kConnectionKnown : kRatingKnown]; }
void AdjustCalcMethod()
{
    ApplicationBlock& app = App();
    if (!IsMethodUsable(app.iCalcMethod) && IsMethodUsable(1 - app.iCalcMethod))
        app.iCalcMethod = static_cast<qint16>(1 - app.iCalcMethod);
}
bool RecomputeAllRows() { return true; }
} // namespace korvanel
