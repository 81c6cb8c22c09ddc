// What the check of a language file has to tell a translator.
#pragma once

#include <QString>

#include <algorithm>
#include <vector>

namespace korvanel {

enum class Severity
{
    Error,  ///< the program would refuse the file, or show something wrong
    Warning ///< worth a look; it may be meant
};

struct Complaint
{
    int line; ///< of the file, from 1
    Severity severity;
    QString text;

    friend bool operator==(const Complaint&, const Complaint&) = default;
};

using Complaints = std::vector<Complaint>;

inline bool HasErrors(const Complaints& complaints)
{
    return std::any_of(complaints.begin(), complaints.end(),
                       [](const Complaint& complaint) { return complaint.severity == Severity::Error; });
}

} // namespace korvanel
