// The curves of the online graph: which quantities are drawn, when a sample is good enough for one, and where its point
// lies. The graph runs from left to right and begins anew at the left edge, with a gap moving ahead of the newest
// point.
#pragma once

#include "core/Quantities.h"

#include <QString>

#include <optional>
#include <vector>

namespace korvanel {

struct OnlineCurve
{
    int quantity;
    const char* pattern; ///< of the mask of a sample that can be drawn; "?" stands for any mark
    int scaleEnd = -1;   ///< index into `ScaleEnds`; -1: `fixedEnd`
    double fixedEnd = 1; ///< of quantities that know no measuring range
};

/// Curves of a net configuration: the quantities that it stores and that have a scale.
std::vector<OnlineCurve> OnlineCurvesOf(int netConf);

/// Full scale of a curve with the scale ends of the block.
double ScaleEndOf(const OnlineCurve& curve);

/// Whether a mask matches a pattern of the same length.
bool MatchesMask(const QString& mask, const char* pattern);

/// Column of a sample in a graph of a width in pixels: from 1, again and again up to `width` - 1. Samples count from 1.
int OnlineColumn(qint32 sample, int width);

/// Height of a value from the upper edge, in pixels: the magnitude counts, and what is beyond full scale is clipped to
/// the edge. Nothing if the value or the scale gives no point.
std::optional<double> OnlineHeight(double value, double divisor, double scaleEnd, int height);

} // namespace korvanel
