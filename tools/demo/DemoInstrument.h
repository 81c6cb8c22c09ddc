// The instruments that the demo can be shown with: what the simulator calls them, which entry of the program's list
// they are, and how what they send turns into what is stored.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace korvanel {

/// A value of a sample, on the line and in the file.
struct DemoValue
{
    int code;         ///< of the query; -1 if it stands in a block with the others
    const char* name; ///< in the log of a block
    const char* column;
    double factor; ///< from what was sent to what is stored
};

struct DemoInstrument
{
    const char* family;            ///< of the simulator
    const char* entry;             ///< of the list of instruments
    bool hasAddress;               ///< one that can be searched for
    double tolerance;              ///< of a stored value, relative to what was sent
    std::vector<DemoValue> values; ///< in the order in which a sample asks for them
};

/// Null if there is none of that family.
const DemoInstrument* FindDemoInstrument(const QString& family);

QStringList DemoFamilies();

} // namespace korvanel
