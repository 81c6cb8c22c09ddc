// Work on the project's file whose failure the user is told at once, so that a page never meets one.
#pragma once

#include <QString>

#include <functional>

namespace korvanel {

/// Runs work on the project's file. A file that somebody else has locked is told as such, any other failure with the
/// complaint in front of the reason; both return false. What else the work throws comes through.
bool ToldAccess(const QString& complaint, const std::function<void()>& work);

} // namespace korvanel
