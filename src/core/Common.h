// The one block of application state. It says which project is open, what it contains, which page is on show and
// which objects live from start to exit. Everything that is global stands here, once.
#pragma once

#include "core/MachineInUse.h"
#include "core/NetConfigurations.h"
#include "core/Quantities.h"
#include "core/ValueRow.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace korvanel {

class clsGraphColours;
class clsProgSettings;
class clsSymbols;
class clsTimeSchedule;
class EditHistory;
class Clock;
class SerialPort;
class Shell;
enum class Hook;

inline constexpr int kProgressThresholdEntry = 6;

/// What is chosen on the page of the result tables, kept while that is not on show.
struct ResultPageChoice
{
    QChar tab = u'A';
    std::array<bool, 2> arePanelsShown{true, true}; ///< results, list of the sets
    qint32 firstSet = 1;                            ///< in the list
};

/// What is chosen on the page of the diagrams, kept as long as the project is open.
struct DiagramPageChoice
{
    qint16 iNetConfIndex = -1;                        ///< for which the curves were chosen; -1: none yet
    std::array<qint16, kQuantityCount> iGraphState{}; ///< by quantity: 1 if its curve is on
    int quantity = -1;                                ///< that was clicked last in the legend; -1: none
    bool isSingle = false;                            ///< that quantity alone is drawn
    bool isLegendShown = true;
    bool isSecondMachineShown = true; ///< where there is one
};

/// The place of a grid of the sets: a scroll bar of 16 bits steps over several sets of a long recording.
struct SetGridPlace
{
    qint32 lFirstVisibleSet = 1;
    qint32 lScrollScale = 1; ///< sets for each step of the bar
};

struct ApplicationBlock
{
    // What is open and on show.
    bool bProjectOpen = false;
    bool bProjectDirty = false; ///< header or settings changed since the last save; rows are never "dirty"
    qint16 iCurrentPage = 0;    ///< 0: no page
    bool bFileError = false;    ///< set by a file routine that failed or was refused; the caller clears it
    qint16 iExitAction = 0;     ///< kExit... below

    // Paths and names.
    QString sProgramDir;
    QString sDefaultProjectFile;
    QString sProjectLabel; ///< directory of projects at first, then the project's name, empty once closed
    QString sProjectPath;
    QString sMotorDbPath;
    QString sProgramTitle;
    QString sVersion;
    QString sDialogPreset;       ///< name that stands in the open dialog before the user types one
    QString sPrinter;            ///< printer in use
    bool isReportToFile = false; ///< reports go into a file and not to that printer

    QChar DecimalChar = u',';
    QChar OtherDecimalChar = u'.';

    // The recording.
    qint32 iSetCount = 0;
    qint32 iCurrentSet = 1;
    qint32 lLastReadSet = 0;
    qint32 lMarkedSets = 1;
    QString sTimeText; ///< time stamp of the set last read
    tValueRow CurrentRow;
    tMeasuredRow MeasuredRow;
    tValueRow SimulatedRow;
    std::vector<qint16> ColumnLayout; ///< columns of the value grids
    std::array<qint32, 7> iGridRows{};
    qint16 iFileErrors = 0;   ///< failed row operations since the last sample
    qint16 iGraceLeft = 0;    ///< invalid samples tolerated in a row
    bool bModelValid = false; ///< Motor/Generator I may be used for estimation

    // The machines: the measured one, and that of the simulation.
    MachineInUse MachineI;
    MachineInUse MachineII;
    LoadSample Sample;     ///< that was estimated last
    QString SampleLetter;  ///< of the method by which it was
    LoadEstimate Estimate; ///< of that sample
    DiagramLimitList DiagramLimits{500, 10, 50, 100, 50, 5000};
    qint32 ModelErrors = 0;     ///< of the model step that ran last
    bool bMotorDbCheck = false; ///< machines of the project are compared with the active motor database

    // The evaluation of the recording.
    qint32 bEvaluated = 0;        ///< the results belong to the present sets and options
    quint64 lSimulationState = 0; ///< that of the recording for which the second machine was evaluated
    quint64 lRecordingState = 0;  ///< another number each time the recording or its options have changed
    double dTWindow = 0;          ///< s, length of the sliding window in force
    qint16 iRowWorstRating = 0;   ///< worst rating of a value since the last set was begun
    QString sRatingWord;          ///< of the last rating for which it was asked
    ResultPageChoice ResultPage;
    DiagramPageChoice DiagramPage;
    SetGridPlace MeasureGrid; ///< on the page of the run
    SetGridPlace EditorGrid;  ///< on that of the editor

    // Running energies of the derived quantities: Ws and vars.
    double dCalcS = 0;
    double dCalcQ = 0;
    double dCalcCosPhi = 0;
    double dCalcPhi = 0;
    double dEnergyWp = 0;
    double dEnergyWpPlus = 0;
    double dEnergyWpMinus = 0;
    double dEnergyWq = 0;
    double dStepWp = 0;
    double dStepWq = 0;
    double dLastT = 0;
    std::array<double, 6> StartEnergies{}; ///< registers of the first set: Wp, Wp+, Wp-, Wq, Wq+, Wq-

    // Constants as the block carries them: 0 until the first project. Formulas use the language's own.
    double PI = 0;
    double E = 0;
    double SQRT3 = 0;
    double LN10 = 0;

    std::array<QString, 2> MethodLetter;
    std::array<QString, 4> SuitabilityColour;

    // Header of the project.
    QString sProjectName;
    QDateTime dtProjectCreated;
    QDateTime dtProjectSaved;
    QString sCompany;
    QString sEditor;
    QString sDescription;
    QDateTime dtMeasurementBegin;
    QDateTime dtMeasurementEnd;
    QString sMeasurementTerm;
    QString sDeviceId;
    QString sDevice;
    double dInterval = 1; ///< s between two sets

    // Settings of the project.
    qint16 iNetConfIndex = 0;
    qint32 lComPort = 1;
    qint32 lModbusAddress = 0;
    qint32 lSound = 0;
    qint16 iCalcMethod = 1;
    qint32 PrintSetsOpt = 0;
    qint32 StartAtSet = 1;
    qint32 StopAtSet = 56;
    bool bASMSim = false;
    std::array<qint32, kQuantityCount> Checks{};
    std::array<qint32, kQuantityCount> PrChecks{};
    std::array<double, 2> dTransPrimary{1, 1};
    std::array<double, 2> dTransSecondary{1, 1};
    std::array<double, 6> ScaleEnds{};
    std::array<double, 2> dTrigger{};
    std::array<qint32, 16> PrintIt{};
    QDateTime dtPrinted; ///< when the report was begun that is printed, or was printed last
    std::array<qint32, 2> Export{};
    bool bEnergiesOutdated = false; ///< sets were edited after the energies in them were formed

    // The instrument.
    bool bDevConnected = false;  ///< it was identified
    bool bConfigDue = false;     ///< identified on this connection and not yet configured
    bool bShowDevErrors = false; ///< the dispatcher shows an error itself; else the caller reads `sDevError`
    QByteArray sDevReply;        ///< last block of an instrument that sends all its values at once
    QString sDevError;           ///< of the last operation; empty without one
    QString sDevFound;           ///< catalogue entry that was identified
    std::array<double, 2> dTransRatio{1, 1}; ///< primary over secondary of the program's transformers: voltage, current
    std::array<double, 2> dDevTransPrimary{1, 1}; ///< transformers that the instrument applies: voltage, current
    std::array<double, 2> dDevTransSecondary{1, 1};

    // Factors that an instrument applies by itself.
    float fDevScaleU = 1;
    float fDevScaleI = 1;
    float fDevScaleP = 1;

    // The day clock: where it stood at the start of the program, and the steady clock at that moment.
    double dDayClockStart = 0;
    double dDayClockSteady = 0;

    // What the catalogue says of the chosen instrument.
    qint16 iMinInterval = 1;
    bool bHasDevTrans = false;
    bool bHasCounterReset = false;
    bool bHasDeviceInfo = false;
    std::array<QString, 6> WiringTexts; ///< net, U, I, P, wattmeter method, remark

    // Position of the page within the frame, kept from page to page; none before the first page has been left.
    std::optional<qint32> lPageLeft;
    std::optional<qint32> lPageTop;

    // Objects of other rooms, created by the composition root and living until exit.
    clsTimeSchedule* TimeSchedule = nullptr;
    clsGraphColours* GraphColours = nullptr;
    clsSymbols* Symbols = nullptr;
    clsProgSettings* ProgSettings = nullptr;
    const Clock* TheClock = nullptr;
    SerialPort* ThePort = nullptr;
    Shell* TheShell = nullptr;
    EditHistory* RowHistory = nullptr; ///< where operations on the rows are to be kept, so that they can be taken back

    /// Who answers what a lower room wants of a higher one: see core/Hooks.h.
    std::map<Hook, std::function<bool()>> Hooks;

    MachineInUse& MachineOf(WhichMachine which) { return which == WhichMachine::I ? MachineI : MachineII; }
    const MachineInUse& MachineOf(WhichMachine which) const { return which == WhichMachine::I ? MachineI : MachineII; }

    /// Number of sets above which a long operation shows its progress.
    qint32 iProgressThreshold() const { return iGridRows[kProgressThresholdEntry]; }
};

/// Values of `iExitAction`.
inline constexpr qint16 kExitNone = 0;
inline constexpr qint16 kExitCancelled = 2;
inline constexpr qint16 kExitRestarting = 13;
inline constexpr qint16 kExitRestartWanted = 15;

/// The block. It exists once and for the whole run.
ApplicationBlock& App();

/// Puts the block into its state at start-up. `executableDirectory` becomes `sProgramDir` without its trailing
/// separator. The pointers to objects of other rooms and the hooks stay as they are.
void InitialiseApplicationBlock(const QString& executableDirectory);

/// True in the net configuration that measures three phases with the formula S = sqrt(3) U I.
bool IsAron();

/// Whether the project has a machine for the simulation. A new project keeps the flag of the one before, but no
/// machine.
bool HasSecondMachine();

/// Rows, machine or options of the evaluation have changed: its results don't belong to the recording any more.
void RecordingChanged();

/// Empties the three row buffers, so that a quantity which the net configuration doesn't store reads as 0.
void ResetRowBuffers();

} // namespace korvanel
