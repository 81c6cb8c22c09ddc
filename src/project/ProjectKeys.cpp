#include "project/ProjectKeys.h"

#include "core/Clock.h"
#include "core/LocalFormats.h"
#include "core/texts/FormF1Texts.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <stdexcept>

namespace korvanel {

namespace {

constexpr double kAnyNumber = std::numeric_limits<double>::max();

/// Limits of a field's type, where nothing narrower is told.
std::pair<double, double> LimitsOf(const ProjectField& field)
{
    if (std::holds_alternative<qint16*>(field))
        return {std::numeric_limits<qint16>::min(), std::numeric_limits<qint16>::max()};
    if (std::holds_alternative<qint32*>(field))
        return {std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()};
    return {-kAnyNumber, kAnyNumber};
}

class KeyList
{
public:
    explicit KeyList(ProjectTable ofTable) : table(ofTable) {}

    void Add(std::string name, ProjectField field)
    {
        const auto [minimum, maximum] = LimitsOf(field);
        Add(std::move(name), field, minimum, maximum);
    }
    void Add(std::string name, ProjectField field, double minimum, double maximum)
    {
        keys.push_back({table, std::move(name), field, minimum, maximum});
    }
    void AddMeasurementHeader(std::string name, ProjectField field)
    {
        AddOfRecording(std::move(name), field);
        keys.back().isMeasurementHeader = true;
    }
    /// What is said of the sets beside their heading.
    void AddOfRecording(std::string name, ProjectField field)
    {
        Add(std::move(name), field);
        keys.back().isOfRecording = true;
    }
    /// For the key that was added last.
    void StoreOnDemand() { keys.back().isOnDemand = true; }
    /// One array of numbered keys: "Name 0", "Name 1" and so on.
    template <typename Array>
    void AddSeries(const char* name, Array& fields)
    {
        for (std::size_t i = 0; i < fields.size(); ++i)
            Add(Numbered(name, i), &fields[i]);
    }
    /// Two arrays in turn, index by index.
    template <typename Array>
    void AddPairs(const char* first, Array& firstFields, const char* second, Array& secondFields)
    {
        for (std::size_t i = 0; i < firstFields.size(); ++i) {
            Add(Numbered(first, i), &firstFields[i]);
            Add(Numbered(second, i), &secondFields[i]);
        }
    }
    std::vector<ProjectKey> Take() { return std::move(keys); }

private:
    static std::string Numbered(const char* name, std::size_t index)
    {
        return std::string(name) + ' ' + std::to_string(index);
    }
    ProjectTable table;
    std::vector<ProjectKey> keys;
};

std::vector<ProjectKey> OverviewKeys(ApplicationBlock& app)
{
    KeyList list(ProjectTable::Overview);
    list.Add("Project Name", &app.sProjectName);
    list.Add("Project Created", &app.dtProjectCreated);
    list.Add("Project Saved", &app.dtProjectSaved);
    list.Add("Company", &app.sCompany);
    list.Add("Editor", &app.sEditor);
    list.Add("Description", &app.sDescription);
    list.AddMeasurementHeader("Measurement Begin", &app.dtMeasurementBegin);
    list.AddMeasurementHeader("Measurement End", &app.dtMeasurementEnd);
    list.AddMeasurementHeader("Measurement Term", &app.sMeasurementTerm);
    list.AddMeasurementHeader("Measurement Device ID", &app.sDeviceId);
    list.AddOfRecording("Measurement Device", &app.sDevice);
    list.AddOfRecording("Measurement Interval", &app.dInterval);
    return list.Take();
}

std::vector<ProjectKey> SettingsKeys(ApplicationBlock& app)
{
    KeyList list(ProjectTable::Settings);
    list.Add("iNetConfIndex", &app.iNetConfIndex, 0, kNetConfCount - 1);
    list.Add("COM", &app.lComPort);
    list.Add("MODBUS", &app.lModbusAddress);
    list.Add("Sound", &app.lSound);
    list.Add("iCalcMethod", &app.iCalcMethod, 0, 1);
    list.Add("PrintSetsOpt", &app.PrintSetsOpt);
    list.Add("StartAtSet", &app.StartAtSet);
    list.Add("StopAtSet", &app.StopAtSet);
    list.Add("bASMSim", &app.bASMSim);
    list.AddPairs("Checks", app.Checks, "PrChecks", app.PrChecks);
    list.AddPairs("dTransPrimary", app.dTransPrimary, "dTransSecondary", app.dTransSecondary);
    list.AddSeries("ScaleEnds", app.ScaleEnds);
    list.AddSeries("dTrigger", app.dTrigger);
    list.AddSeries("PrintIt", app.PrintIt);
    list.AddSeries("Export", app.Export);
    list.AddOfRecording("bEnergiesOutdated", &app.bEnergiesOutdated);
    list.StoreOnDemand();
    return list.Take();
}

void ResetColumnChoices(ApplicationBlock& app)
{
    for (std::size_t i = 0; i < app.Checks.size(); ++i)
        if (i != kWpPlus && i != kWpMinus) // the positive and negative energies stay as the user last had them
            app.Checks[i] = i <= kWq || i == kINeutral ? 1 : 0;
    app.PrChecks = app.Checks;
}

void ResetMachines(ApplicationBlock& app)
{
    app.MachineI.record = {};
    app.MachineII = {};
    app.MachineI.status = {};
    app.Estimate = {};
    app.DiagramLimits = ApplicationBlock().DiagramLimits;
    app.ModelErrors = 0;
    app.bMotorDbCheck = false;
    // The check of no-load data compares with the factor that the build before has left, whatever the project was.
    app.MachineI.model = {.cosphi_o = app.MachineI.model.cosphi_o};
}

void ComputeConstants(ApplicationBlock& app)
{
    app.PI = 4 * std::atan(1.0);
    app.E = std::exp(1.0);
    app.SQRT3 = std::sqrt(3.0);
    app.LN10 = std::numbers::ln10;
}

} // namespace

const char* TableName(ProjectTable table)
{
    return table == ProjectTable::Overview ? "Overview" : "Settings";
}

const std::vector<ProjectKey>& ProjectKeys()
{
    static const std::vector<ProjectKey> all = [] {
        std::vector<ProjectKey> keys = OverviewKeys(App());
        for (ProjectKey& key : SettingsKeys(App()))
            keys.push_back(std::move(key));
        return keys;
    }();
    return all;
}

const ProjectKey& KeyOf(const ProjectField& field)
{
    const auto& keys = ProjectKeys();
    const auto key = std::find_if(keys.begin(), keys.end(), [&](const ProjectKey& k) { return k.field == field; });
    if (key == keys.end())
        throw std::out_of_range("a field that isn't stored");
    return *key;
}

void ResetProjectData()
{
    constexpr qint32 kDefaultModbusAddress = 33;
    ApplicationBlock& app = App();
    ComputeConstants(app);
    app.sProjectName = texts::defaultProjectName;
    app.dtProjectCreated = PresentMoment();
    app.dtProjectSaved = ZeroDate();
    app.sCompany = texts::defaultCompany;
    app.sEditor = texts::defaultEditor;
    app.sDescription = texts::defaultDescription;
    app.dtMeasurementBegin = ZeroDate();
    app.dtMeasurementEnd = ZeroDate();
    app.sMeasurementTerm.clear();
    app.sDeviceId.clear();
    app.sDevice.clear();
    app.dInterval = 1;

    app.iNetConfIndex = 0;
    app.lComPort = 1;
    if (app.lModbusAddress == 0)
        app.lModbusAddress = kDefaultModbusAddress;
    app.lSound = 0;
    app.iCalcMethod = 1;
    app.PrintSetsOpt = 0;
    app.StartAtSet = 1;
    app.StopAtSet = 56;
    ResetColumnChoices(app);
    app.dTransPrimary = {1, 1};
    app.dTransSecondary = {1, 1};
    app.ScaleEnds = {500, 10, 50, 100, 50, 5000};
    app.dTrigger = {0, 0};
    app.PrintIt.fill(1);
    app.Export = {1, 0};
    app.bEnergiesOutdated = false;

    app.bDevConnected = false; // what was identified for another project says nothing of this one
    app.lMarkedSets = 1;
    app.fDevScaleU = app.fDevScaleI = app.fDevScaleP = 1;
    app.iSetCount = 0;
    app.iCurrentSet = 1;
    app.ResultPage.firstSet = 1;
    app.DiagramPage = {};
    app.dTWindow = 0; // that of another recording
    app.MeasureGrid = {};
    app.EditorGrid = {};
    RecordingChanged();
    app.bModelValid = false;
    ResetMachines(app);
    ResetRowBuffers();
}

} // namespace korvanel
