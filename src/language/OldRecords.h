// The sets of a project of the predecessor, read in blocks with their marks of correction, however many there are.
#pragma once

#include "language/OldProjectFile.h"

#include <optional>
#include <span>
#include <stdexcept>
#include <vector>

namespace korvanel {

/// One set as the file has it: V, A, Hz, W, degrees, s.
struct OldRecord
{
    float U = 0;
    float I = 0;
    float f = 0;
    float P = 0;
    std::optional<float> phi;
    float t = 0;
    std::optional<quint8> mark; ///< of correction, where the file has one
};

/// The file doesn't hold any more what it held a moment before.
class OldFileChanged : public std::runtime_error
{
public:
    OldFileChanged() : std::runtime_error("the file has changed") {}
};

class OldRecordReader
{
public:
    OldRecordReader(ByteSource& ofSource, const OldProject& ofProject);
    /// The next sets, in order; none behind the last one. Throws OldFileChanged.
    std::span<const OldRecord> NextBlock();

private:
    void ReadMarks();

    ByteSource& source;
    const OldProject& project;
    qint64 done = 0;
    std::vector<char> bytes;
    std::vector<OldRecord> block;
};

/// The step of the sets in seconds, if they lie on an even grid of at least one second, as exactly as single precision
/// holds the times. Throws OldFileChanged.
std::optional<double> EvenStep(ByteSource& source, const OldProject& project);

/// What a set without a phase angle gets for it, in degrees: that of the active power against the apparent power of
/// three phases. It is never below 0, so the current lags.
double PhiOfOldRecord(double U, double I, double P);

} // namespace korvanel
