// What stands above a recording: its begin, its end and its duration. It goes when the sets go, begins with the first
// set, and is completed when the run ends, so that it never tells of other sets than those that are there.
#pragma once

namespace korvanel {

/// Deletes all sets and what is said of them, in one transaction. Throws DbError, with both as they were.
void ClearRecording();

/// Empties begin, end and duration in the block.
void ClearRecordingHeading();

/// Brings begin, end and duration in the block into line with the sets of the open project: what a power cut or a
/// killed program has left is completed from the time stamps of the first and the last set, and a heading that belongs
/// to other sets is replaced, its duration by an empty one. Sets without time stamps, as made by hand, change nothing.
/// Throws DbError.
void MendRecordingHeading();

} // namespace korvanel
