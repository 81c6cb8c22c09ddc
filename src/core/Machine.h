// A machine as the program carries it: the record with what is known of it, and the model with what follows from that.
// Vocabulary that several rooms share; what computes with it stands in `machine/`.
#pragma once

#include <QString>
#include <QtGlobal>

#include <array>
#include <optional>

namespace korvanel {

/// One machine, as one row of the table `Motor`. What is not there is not known.
struct MachineRecord
{
    std::optional<qint32> set_ID;
    QString Hersteller;                   ///< maker or remark
    qint16 Polpaarzahl = 0;               ///< pole pairs; 0 or less: unknown
    std::optional<double> Pmech;          ///< W, rated shaft power; negative for a generator
    std::optional<double> U;              ///< V, rated line voltage
    std::optional<double> M;              ///< Nm, rated torque
    std::optional<double> n;              ///< rpm, rated speed
    std::optional<double> I;              ///< A, rated line current
    std::optional<double> f;              ///< Hz, rated frequency
    std::optional<double> cosphi;         ///< rated power factor; negative for a generator
    std::optional<double> eta;            ///< rated efficiency, 0 to 1
    std::optional<double> Po;             ///< W, no-load power; likewise the next three
    std::optional<double> Uo;             ///< V
    std::optional<double> Io;             ///< A
    std::optional<double> fo;             ///< Hz
    std::optional<QString> Schaltungsart; ///< stator connection, "Y" or "D"
    std::optional<double> Rs;             ///< Ohm, stator resistance of a phase
    std::optional<double> Mkipp_Mn;       ///< stall to rated torque
    std::optional<double> Tth;            ///< s, thermal time constant
    std::optional<QString> I_CL;          ///< insulation class "A", "B", "F" or "H"
    std::optional<double> Masse;          ///< kg
    bool Mreib = false;                   ///< the friction torque is forced to zero
};

/// What is known of a machine, by the indices of the check boxes on its page.
enum MachineKnowledge
{
    kRatingKnown = 0,
    kNoLoadKnown = 1,
    kPolePairsKnown = 2,
    kConnectionKnown = 3,
    kRsKnown = 4,
    kStallRatioKnown = 5,
    kTimeConstantKnown = 6,
    kInsulationClassKnown = 7,
    kMassKnown = 8,
    kKnowledgeCount = 9
};
using MachineStatus = std::array<bool, kKnowledgeCount>;

/// What follows from a machine's record. A final n of a name stands for the rating data, o for the no-load data, D and
/// Y for the connection that is assumed. Torques in Nm, powers in W, speeds in rpm, angles in degrees, resistances in
/// Ohm.
struct MachineModel
{
    double Pelec_n = 0;
    double n_syn_n = 0;
    double phi_n = 0;
    double Nennschlupf = 0; ///< rated slip, 1
    double Kippschlupf = 0; ///< stall slip, 1
    double Kippmoment = 0;
    double Mreib_rech = 0; ///< friction torque in use
    double cosphi_o = 0;
    double phi_o = 0;
    double n_syn_o = 0;
    double Po_rech = 0; ///< no-load power in use, at rated voltage and frequency
    double Po_regress = 0;
    double Po_polynom = 0;
    double Po_RZM = 0;
    double Po_D_n = 0;
    double Po_Y_n = 0;
    double Po_D_o = 0;
    double Po_Y_o = 0;
    double M_RZM_D_n = 0;
    double M_RZM_Y_n = 0;
    double M_RZM_D_o = 0;
    double M_RZM_Y_o = 0;
    double Mreib_D_n = 0;
    double Mreib_Y_n = 0;
    double k_RZM = 0;      ///< correction factor of the space vector torque
    double Tth_ICL = 0;    ///< s, thermal time constant from insulation class and mass
    double Tth = 0;        ///< s, thermal time constant in use
    double R2 = 0;         ///< rotor constant of the law of torque and speed
    double Rs_rech = 0;    ///< stator resistance in use
    double Rs_polynom = 0; ///< its estimate
    double k_maschine = 0; ///< W/Nm2, load losses are k M2
};

/// What the load estimation takes of a sample. Line voltage in V, line current in A, Hz, W with the sign of the flow,
/// degrees with the sign of the reactive power.
struct LoadSample
{
    double U = 0;
    double I = 0;
    double f = 0;
    double P = 0;
    double phi = 0;
};

/// Result of the load estimation for one sample.
struct LoadEstimate
{
    double n = 0;     ///< rpm
    double M = 0;     ///< Nm
    double Pmech = 0; ///< W
    double eta = 0;   ///< 0 to 1
};

/// Upper limits of diagram axes: U [V], I [A], P [W], f [Hz], M [Nm], n [rpm].
using DiagramLimitList = std::array<double, 6>;

} // namespace korvanel
