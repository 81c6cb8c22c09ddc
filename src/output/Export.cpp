#include "output/Export.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/Paths.h"
#include "core/ProjectDb.h"
#include "core/Shell.h"
#include "core/Texts.h"
#include "core/Units.h"
#include "core/clsProgSettings.h"
#include "core/clsSymbols.h"
#include "core/texts/DialoguesTexts.h"
#include "core/texts/FormF6Texts.h"
#include "core/texts/PrintExportTexts.h"
#include "data/PassOverSets.h"
#include "data/RowQuantities.h"
#include "data/SetReader.h"
#include "evaluation/Rating.h"
#include "evaluation/WinManaging2.h"
#include "output/ExportText.h"
#include "output/OwnFiles.h"
#include "output/ProjectItems.h"

#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvanel {

namespace {

struct ExportColumn
{
    int quantity;
    bool needsMachine = false;
    double divisor = 1; ///< beside that of the quantity
};

/// In the order of the file. The reactive power stands before the apparent power, unlike the numbering; the shaft power
/// is written in kW under the heading of the list of sets, which has it in W: spreadsheets that users keep count on it.
constexpr ExportColumn kColumns[] = {
    {.quantity = kU},
    {.quantity = kI},
    {.quantity = kF},
    {.quantity = kP},
    {.quantity = kQ},
    {.quantity = kS},
    {.quantity = kPhi},
    {.quantity = kCosPhi},
    {.quantity = kN, .needsMachine = true},
    {.quantity = kM, .needsMachine = true},
    {.quantity = kPmech, .needsMachine = true, .divisor = kPerKilo},
    {.quantity = kEta, .needsMachine = true},
    {.quantity = kWp, .needsMachine = true},
    {.quantity = kWpPlus, .needsMachine = true},
    {.quantity = kWpMinus, .needsMachine = true},
    {.quantity = kWq, .needsMachine = true},
};

/// Writes sets line by line.
class SetLines
{
public:
    explicit SetLines(ExportText& exportText)
        : text(exportText), hasMachine(HasMachine(App().iNetConfIndex)),
          rater(RatedDataOf(WhichMachine::I), App().iNetConfIndex)
    {
        std::copy_if(std::begin(kColumns), std::end(kColumns), std::back_inserter(columns),
                     [this](const ExportColumn& column) { return hasMachine || !column.needsMachine; });
        for (int rating = 0; rating < kRatingCount; ++rating)
            words[static_cast<std::size_t>(rating)] = RatingWord(rating).toStdString();
    }

    void WriteHead()
    {
        text.AddText(texts::headSet);
        for (const ExportColumn& column : columns)
            text.AddText(ColumnHeading(column.quantity));
        if (hasMachine) {
            text.AddText(ColumnHeading(kColumnMethod));
            text.AddText(ColumnHeading(kColumnSuitability));
        }
        text.AddText(ColumnHeading(kColumnTime));
        text.AddText(ColumnHeading(kColumnTimeStamp));
        text.EndLine();
    }

    void Write(qint32 set, const tValueRow& row, std::string_view storedTime)
    {
        text.AddWhole(set);
        int worst = 0;
        for (const ExportColumn& column : columns) {
            const double value = QuantityValue(row, column.quantity);
            text.AddNumber(value / DisplayDivisor(column.quantity) / column.divisor);
            worst = hasMachine ? std::max(worst, rater.Rate(value, column.quantity)) : 0;
        }
        if (hasMachine) {
            AddMethod(row.sMethod);
            text.AddFitting(words[static_cast<std::size_t>(worst)]);
        }
        text.AddTime(row.dt);
        text.AddStoredDate(storedTime);
        text.EndLine();
    }

private:
    /// Nearly always the method of the set before.
    void AddMethod(const QString& method)
    {
        if (method != lastMethod) {
            lastMethod = method;
            lastMethodField = TypedFieldText(method).toStdString();
        }
        text.AddFitting(lastMethodField);
    }

    ExportText& text;
    bool hasMachine;
    QString lastMethod;
    std::string lastMethodField;
    Rater rater;
    std::vector<ExportColumn> columns;
    std::array<std::string, kRatingCount> words;
};

void WriteSets(ExportText& text)
{
    SetLines lines(text);
    lines.WriteHead();
    const ProjectDbScope scope;
    PassOverSets([&lines] {
        constexpr qint32 kProgressSteps = 100;
        const qint32 step = std::max(1, App().iSetCount / kProgressSteps);
        SetReader reader(ProjectDb(), App().iNetConfIndex);
        for (qint32 done = 1; reader.Next(); ++done) {
            lines.Write(reader.Set(), reader.Row(), reader.StoredTimeUtf8());
            if (done % step == 0)
                AdvanceOverSets(done);
        }
    });
}

template <typename Item>
void WriteItem(ExportText& text, const Item& item, const QString& value)
{
    text.AddText(TextOf(item.label));
    text.AddText(item.isTyped ? TypedFieldText(value) : value);
    text.EndLine(item.unit ? TextOf(item.unit) : QString());
}

void WriteCells(ExportText& text, const QStringList& cells)
{
    for (const QString& cell : cells)
        text.AddText(cell);
    text.EndLine();
}

void WriteTable(ExportText& text, const ResultTable& table)
{
    WriteCells(text, table.heads);
    for (const ResultRow& row : table.rows) {
        if (row.kind == ResultRowKind::Heading)
            text.EndLine(row.cells.value(0));
        else
            WriteCells(text, row.cells);
    }
}

const QString kSpreadsheet = QStringLiteral(".xls");

FileQuestion ExportQuestion()
{
    const QString& last = App().ProgSettings->ExportPath();
    const QString directory = !last.isEmpty() && QFileInfo(last).isDir() ? last : App().sProgramDir;
    const QString name = QFileInfo(FileNameOf(App().sProjectPath)).completeBaseName();
    const QString file = (name.isEmpty() ? QStringLiteral("PROJECT1") : name) + kSpreadsheet;
    return {texts::titleSaveAs, JoinPath(directory, file), texts::filterExport, {}, kSpreadsheet};
}

/// A name without any dot takes the extension, as in the dialog that asks whether to overwrite.
QString WithDefaultExtension(const QString& path)
{
    return FileNameOf(path).contains(u'.') ? path : path + kSpreadsheet;
}

} // namespace

void ExportEvaluation(const QString& path)
{
    if (IsOwnFile(path))
        throw std::runtime_error((path + u'\n' + texts::exportOwnFile).toStdString());
    ExportText text(path);
    WriteSets(text);
    text.EndLine();
    text.EndLine();
    for (const ProjectItem& item : ProjectItems())
        WriteItem(text, item, item.value());
    const bool hasMachine = HasMachine(App().iNetConfIndex);
    if (hasMachine)
        for (const MachineItem& item : MachineItems())
            WriteItem(text, item, item.value(App().MachineI.record));
    WriteTable(text, ExtremTable(App().MachineI));
    WriteTable(text, EnergyTable(App().MachineI));
    if (hasMachine)
        WriteTable(text, UtilisationTable(App().MachineI));
    text.Finish();
}

void ExportFromPage()
{
    RunGuarded(texts::exportName, [] {
        App().TheShell->SetBusyMenus(false);
        const auto atEnd = qScopeGuard([] { App().TheShell->SetBusyMenus(true); });
        const std::optional<QString> chosen = App().TheShell->AskSavePath(ExportQuestion());
        if (!chosen || chosen->isEmpty())
            return;
        const QString path = WithDefaultExtension(*chosen);
        ExportEvaluation(path);
        App().ProgSettings->SetExportPath(path.chopped(FileNameOf(path).size()));
    });
}

} // namespace korvanel
