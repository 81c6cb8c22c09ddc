#include "acquisition/OnlineCurves.h"

#include "core/Common.h"
#include "data/RowQuantities.h"

#include <algorithm>
#include <cmath>

namespace korvanel {

namespace {

enum ScaleEnd
{
    kEndU,
    kEndI,
    kEndP,
    kEndF,
    kEndM,
    kEndN
};

constexpr const char* kVoltage = "N???";
constexpr const char* kCurrent = "?N??";
constexpr const char* kPowerOnly = "??N?";
constexpr const char* kFrequency = "???N";
constexpr const char* kUIP = "NNN?";
constexpr const char* kAllGood = "NNNN";
constexpr double kHalfTurn = 180;

constexpr OnlineCurve kCurves[] = {
    {.quantity = kU, .pattern = kVoltage, .scaleEnd = kEndU},
    {.quantity = kU1, .pattern = kVoltage, .scaleEnd = kEndU},
    {.quantity = kU1 + 1, .pattern = kVoltage, .scaleEnd = kEndU},
    {.quantity = kU1 + 2, .pattern = kVoltage, .scaleEnd = kEndU},
    {.quantity = kI, .pattern = kCurrent, .scaleEnd = kEndI},
    {.quantity = kI1, .pattern = kCurrent, .scaleEnd = kEndI},
    {.quantity = kI1 + 1, .pattern = kCurrent, .scaleEnd = kEndI},
    {.quantity = kI1 + 2, .pattern = kCurrent, .scaleEnd = kEndI},
    {.quantity = kINeutral, .pattern = kCurrent, .scaleEnd = kEndI},
    {.quantity = kF, .pattern = kFrequency, .scaleEnd = kEndF},
    {.quantity = kP, .pattern = kPowerOnly, .scaleEnd = kEndP},
    {.quantity = kP1, .pattern = kPowerOnly, .scaleEnd = kEndP},
    {.quantity = kP1 + 1, .pattern = kPowerOnly, .scaleEnd = kEndP},
    {.quantity = kP1 + 2, .pattern = kPowerOnly, .scaleEnd = kEndP},
    {.quantity = kQ, .pattern = kUIP, .scaleEnd = kEndP},
    {.quantity = kS, .pattern = kUIP, .scaleEnd = kEndP},
    {.quantity = kPhi, .pattern = kUIP, .fixedEnd = kHalfTurn},
    {.quantity = kCosPhi, .pattern = kUIP},
    {.quantity = kN, .pattern = kAllGood, .scaleEnd = kEndN},
    {.quantity = kM, .pattern = kAllGood, .scaleEnd = kEndM},
    {.quantity = kPmech, .pattern = kAllGood, .scaleEnd = kEndP},
    {.quantity = kEta, .pattern = kAllGood},
    {.quantity = kWp, .pattern = kPowerOnly, .scaleEnd = kEndP},
    {.quantity = kWpPlus, .pattern = kPowerOnly, .scaleEnd = kEndP},
    {.quantity = kWpMinus, .pattern = kPowerOnly, .scaleEnd = kEndP},
    {.quantity = kWq, .pattern = kUIP, .scaleEnd = kEndP},
};

} // namespace

std::vector<OnlineCurve> OnlineCurvesOf(int netConf)
{
    const std::vector<int> stored = StoredQuantities(netConf);
    std::vector<OnlineCurve> curves;
    std::copy_if(std::begin(kCurves), std::end(kCurves), std::back_inserter(curves), [&](const OnlineCurve& curve) {
        return std::find(stored.begin(), stored.end(), curve.quantity) != stored.end();
    });
    return curves;
}

double ScaleEndOf(const OnlineCurve& curve)
{
    return curve.scaleEnd < 0 ? curve.fixedEnd : App().ScaleEnds.at(static_cast<std::size_t>(curve.scaleEnd));
}

bool MatchesMask(const QString& mask, const char* pattern)
{
    const QLatin1String wanted(pattern);
    return mask.size() == wanted.size() && std::equal(mask.begin(), mask.end(), wanted.begin(),
                                                      [](QChar mark, QChar p) { return p == u'?' || p == mark; });
}

int OnlineColumn(qint32 sample, int width)
{
    return width < 2 ? 1 : (sample - 1) % (width - 1) + 1;
}

std::optional<double> OnlineHeight(double value, double divisor, double scaleEnd, int height)
{
    const double share = std::abs(value / divisor / scaleEnd);
    if (!std::isfinite(share))
        return std::nullopt;
    return std::max(0.0, height - share * height);
}

} // namespace korvanel
