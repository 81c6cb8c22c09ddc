// The printing itself, as page and dialog start it: with its progress and a button to stop it.
#pragma once

class QWidget;

namespace korvanel {

class Report;
class ReportOutput;

/// Prints, and notes the moment in `dtPrinted`. `make` puts the report together then. False if nothing was put out,
/// which is told.
bool RunPrint(QWidget& parent, ReportOutput& output, Report (*make)());

} // namespace korvanel
