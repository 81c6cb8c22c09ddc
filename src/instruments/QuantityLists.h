// Which quantities a net configuration measures and which the program calculates, as the net configuration page
// lists them.
#pragma once

#include <QString>

namespace korvanel {

/// Lines such as "Spannung (1,2,3,avg) - U", joined with line breaks. A "*" marks a quantity that not every instrument
/// supplies.
QString MeasuredList(int netConf);
QString CalculatedList(int netConf);

} // namespace korvanel
