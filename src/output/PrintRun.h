// The printing itself, as page and dialog start it: with its progress and a button to stop it.
#pragma once

class QWidget;

namespace korvanel {

class ReportOutput;
struct ReportWatch;

/// Notes the moment in `dtPrinted` and has a report printed. False if nothing was put out, which is told.
bool RunPrint(QWidget& parent, ReportOutput& output, bool (*print)(ReportOutput& output, const ReportWatch& watch));

} // namespace korvanel
