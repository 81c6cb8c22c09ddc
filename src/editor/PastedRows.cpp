#include "editor/PastedRows.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "core/clsSymbols.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF5Texts.h"
#include "core/texts/FormF6Texts.h"
#include "data/ComputedQuantities.h"
#include "data/FileManaging.h"
#include "data/RowQuantities.h"
#include "data/RowWriter.h"
#include "data/SetReader.h"
#include "data/ValueTables.h"
#include "editor/RowChange.h"
#include "editor/SetMoves.h"
#include "editor/ToldChange.h"

#include <algorithm>

namespace korvanel {

QString CopiedRows(qint32 first, qint32 count)
{
    QString text = texts::headSet;
    for (const qint16 column : App().ColumnLayout)
        text += u'\t' + ColumnHeading(column);
    text += u'\n';
    OpenDbGuarded();
    const bool isRead = VisitSets(first, first + count - 1, [&text](const ShownSet& shown) {
        text += QString::number(shown.set);
        for (const qint16 column : App().ColumnLayout)
            text += u'\t' + SetText(shown.row, shown.timeText, column);
        text += u'\n';
        return true;
    });
    CloseDbGuarded();
    return isRead ? text : QString();
}

namespace {

QStringList LinesOf(const QString& text)
{
    QStringList lines = text.split(u'\n');
    for (QString& line : lines)
        if (line.endsWith(u'\r'))
            line.chop(1);
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty())
        lines.removeLast();
    return lines;
}

/// A cell as a number, whichever of the two decimal characters it has.
std::optional<double> NumberIn(const QString& cell)
{
    return LocalNumber(ToLocalDecimal(cell.trimmed()));
}

bool IsHeading(const QStringList& cells)
{
    return std::none_of(cells.begin(), cells.end(), [](const QString& cell) { return NumberIn(cell).has_value(); });
}

/// Which cells of a line are for which column.
struct Places
{
    std::vector<const EntryColumn*> columns = {};
    std::vector<qsizetype> cells = {};
    qsizetype width = 0; ///< cells of a line; 0 for any number
    QString complaint = {};
};

/// By the names in the heading; the sign of the reactive power may be missing.
Places PlacesByHeading(const QStringList& heading)
{
    Places places;
    for (const EntryColumn* column : EntryColumns()) {
        const QString name = ColumnHeading(column->quantity);
        const qsizetype cell = heading.indexOf(name);
        if (cell >= 0) {
            places.columns.push_back(column);
            places.cells.push_back(cell);
        } else if (!column->IsSign() && places.complaint.isEmpty()) {
            places.complaint = FillPlaceholders(texts::pasteNoColumn, {name});
        }
    }
    return places;
}

/// By the order of the grid; one cell less means that the sign is missing.
Places PlacesInOrder(qsizetype width)
{
    Places places{.columns = EntryColumns(), .width = width};
    const auto all = static_cast<qsizetype>(places.columns.size());
    if (width == all - 1)
        std::erase_if(places.columns, [](const EntryColumn* column) { return column->IsSign(); });
    const auto wanted = static_cast<qsizetype>(places.columns.size());
    if (width != wanted)
        places.complaint =
            FillPlaceholders(texts::pasteWidth, {QString::number(1), QString::number(width), QString::number(all)});
    for (qsizetype cell = 0; cell < wanted; ++cell)
        places.cells.push_back(cell);
    return places;
}

bool HasKnownName(const QStringList& heading)
{
    const auto columns = EntryColumns();
    return std::any_of(columns.begin(), columns.end(), [&heading](const EntryColumn* column) {
        return heading.contains(ColumnHeading(column->quantity));
    });
}

/// What is wrong with a cell; empty for a number within the limits.
QString ComplaintAbout(const std::optional<double>& value, const EntryColumn& column)
{
    if (!value)
        return texts::pasteNoNumber;
    if (*value < column.minimum || *value > column.maximum)
        return FillPlaceholders(texts::numberRange, {NumberText(column.minimum), NumberText(column.maximum)});
    return {};
}

/// Adds one line to the rows; false if a cell of it is bad.
bool TakeLine(PastedRows& pasted, const Places& places, const QStringList& cells, qsizetype number)
{
    constexpr int kShownOfCell = 40;
    if (places.width > 0 && cells.size() != places.width) {
        pasted.complaint = FillPlaceholders(
            texts::pasteWidth, {QString::number(number), QString::number(cells.size()), QString::number(places.width)});
        return false;
    }
    PastedRow row;
    for (std::size_t i = 0; i < places.columns.size(); ++i) {
        const QString cell = cells.value(places.cells[i]);
        const std::optional<double> value = NumberIn(cell);
        const QString complaint = ComplaintAbout(value, *places.columns[i]);
        if (!complaint.isEmpty()) {
            pasted.complaint = FillPlaceholders(
                texts::pasteBadCell, {QString::number(number), QString::number(places.cells[i] + 1),
                                      ColumnHeading(places.columns[i]->quantity), cell.left(kShownOfCell), complaint});
            return false;
        }
        row.push_back(*value);
    }
    pasted.rows.push_back(std::move(row));
    return true;
}

} // namespace

PastedRows ReadPastedRows(const QString& text, std::optional<qint32> marked)
{
    PastedRows pasted;
    const QStringList lines = LinesOf(text);
    const QChar separator = text.contains(u'\t') ? u'\t' : u';';
    const QStringList first = lines.value(0).split(separator);
    const bool hasHeading = IsHeading(first);
    const qsizetype begin = hasHeading ? 1 : 0;
    if (lines.size() <= begin) {
        pasted.complaint = texts::pasteEmpty;
        return pasted;
    }
    const Places places = hasHeading && HasKnownName(first) ? PlacesByHeading(first)
                                                            : PlacesInOrder(lines[begin].split(separator).size());
    pasted.columns = places.columns;
    pasted.complaint = places.complaint;
    for (qsizetype i = begin; i < lines.size() && pasted.complaint.isEmpty(); ++i)
        TakeLine(pasted, places, lines[i].split(separator), i + 1);
    const auto rows = static_cast<qint32>(pasted.rows.size());
    if (pasted.complaint.isEmpty() && marked && rows != *marked)
        pasted.complaint = FillPlaceholders(texts::pasteOtherCount, {QString::number(rows), QString::number(*marked)});
    return pasted;
}

namespace {

/// Puts a pasted row into the current one, and computes what follows from it.
void EnterPasted(const std::vector<const EntryColumn*>& columns, const PastedRow& pasted)
{
    tValueRow& row = App().CurrentRow;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i]->IsSign())
            row.dPhi[kSum] = 1; // an angle of 0 has no sign to enter
        Enter(row, *columns[i], pasted[i]);
    }
    ComputeRow(true);
}

} // namespace

bool InsertPasted(const PastedRows& pasted, qint32 behind)
{
    const auto count = static_cast<qint32>(pasted.rows.size());
    return ChangeRows({.sets = static_cast<qint64>(App().iSetCount) + count,
                       .isDue = [behind, count] { return count > 0 && behind >= 0 && behind <= CountSets(); },
                       .work =
                           [&pasted, behind, count] {
                               MoveSets(behind + 1, CountSets(), count);
                               RowWriter writer(ProjectDb(), App().iNetConfIndex, RowOrigin::ByHand);
                               qint32 set = behind;
                               for (const PastedRow& row : pasted.rows) {
                                   App().CurrentRow = {};
                                   EnterPasted(pasted.columns, row);
                                   writer.Append(App().CurrentRow, {.set = ++set, .time = {}, .mark = kCorrected});
                                   TellProgress(set);
                               }
                               RenumberAll();
                               App().iCurrentSet = behind + 1;
                               App().lMarkedSets = count;
                           }});
}

bool OverwriteWithPasted(const PastedRows& pasted, qint32 first)
{
    const auto count = static_cast<qint32>(pasted.rows.size());
    return ChangeRows({.sets = count,
                       .isDue = [first, count] { return count > 0 && AreThere(first, count); },
                       .work =
                           [&pasted, first, count] {
                               SetReader reader(ProjectDb(), App().iNetConfIndex, SetRange::One);
                               RowUpdater updater(ProjectDb(), App().iNetConfIndex);
                               qint32 set = first;
                               for (const PastedRow& row : pasted.rows) {
                                   reader.Seek(set);
                                   reader.Step();
                                   reader.FillInto(App().CurrentRow);
                                   reader.Release();
                                   EnterPasted(pasted.columns, row);
                                   updater.Update(App().CurrentRow, set);
                                   TellProgress(set++);
                               }
                               App().iCurrentSet = first;
                               App().lMarkedSets = count;
                           }});
}

} // namespace korvanel
