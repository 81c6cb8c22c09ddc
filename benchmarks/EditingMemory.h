// Operations of the editor, each on a copy of the open project, for the peak memory of the process that runs them.
// False if one fails.
#pragma once

namespace korvanel::bench {

inline constexpr int kMarkedSets = 100;
inline constexpr double kOtherInterval = 3; ///< seconds; the recordings have one

/// Makes a copy of the open project the open one.
bool CopyOpenProject();
/// Makes the open project ready for an operation: `kMarkedSets` sets from the front third on are marked.
void PrepareEdit();

// Without a history, as recordings that are too long for one are edited.
bool DuplicateSets();
bool RemoveSets();
bool NumberTimes();
bool ChangeInterval();

// Noted and taken back, with as many of the sets as can be noted at most.
bool DuplicateSetsNoted();
bool ChangeIntervalNoted();

/// Most megabytes that the noted ones may take: the notes, and what any operation takes beside them.
double MostMegabytesNoted();

} // namespace korvanel::bench
