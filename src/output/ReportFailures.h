// Why a report doesn't come out.
#pragma once

#include <QString>

#include <functional>
#include <stdexcept>

namespace korvanel {

/// Is told the share of the pages that are drawn, 0 to 1; false stops the report.
using ReportProgress = std::function<bool(double share)>;

/// The user has stopped a report.
class ReportStopped : public std::runtime_error
{
public:
    ReportStopped() : std::runtime_error("stopped") {}
};

/// A report can't be put out; the text is for the user.
class ReportFailed : public std::runtime_error
{
public:
    explicit ReportFailed(const QString& message) : std::runtime_error(message.toStdString()) {}
};

} // namespace korvanel
