#include "evaluation/Rating.h"

#include "core/Common.h"
#include "core/Quantities.h"
#include "core/Texts.h"
#include "core/texts/ValueNamesTexts.h"
#include "data/RowQuantities.h"

#include <algorithm>
#include <array>

namespace korvanel {

namespace {

enum : int
{
    kUnrated = 0,
    kGood = 1,
    kMedium = 2,
    kBad = 3
};

struct Range
{
    double low;
    double high;
    bool Contains(double value) const { return value >= low && value <= high; }
};

constexpr Range kVoltages{0, 100'000};
constexpr Range kCurrents{0, 100'000};
constexpr Range kPowers{-1e9, 1e9};
constexpr Range kEnergies{-3.6e11, 3.6e11};
constexpr Range kAngles{-180, 180};
constexpr Range kFactors{-1, 1};

struct RangeOfQuantities
{
    int first;
    int last;
    Range range;
};
/// What a value can be at all.
constexpr RangeOfQuantities kPlausible[] = {
    {kU, kU, kVoltages},
    {kI, kI, kCurrents},
    {kF, kF, {0, 1000}},
    {kP, kQ, kPowers}, // P, S, Q
    {kCosPhi, kCosPhi, kFactors},
    {kN, kN, {0, 6000}},
    {kM, kM, {-10'000, 10'000}},
    {kPmech, kPmech, kPowers},
    {kEta, kEta, {0, 0.99999999}},
    {kPhi, kPhi, kAngles},
    {kWp, kWpMinus, kEnergies},
    {kU1, kU1 + 2, kVoltages},
    {kI1, kI1 + 2, kCurrents},
    {kP1, kS1 + 2, kPowers}, // P, Q, S of the phases
    {kPhi1, kPhi1 + 2, kAngles},
    {kCosPhi1, kCosPhi1 + 2, kFactors},
    {kINeutral, kINeutral, kCurrents},
    {kWpAbs, kWqMinusRel, kEnergies},
};

constexpr std::array<Range, kQuantityCount> PlausibleRanges()
{
    std::array<Range, kQuantityCount> ranges{};
    for (const RangeOfQuantities& entry : kPlausible)
        for (int quantity = entry.first; quantity <= entry.last; ++quantity)
            ranges[static_cast<std::size_t>(quantity)] = entry.range;
    return ranges;
}
constexpr std::array<Range, kQuantityCount> kPlausibleRanges = PlausibleRanges();

constexpr int kRowQuantities[] = {kU, kF, kM, kP, kN, kPmech, kEta};

/// A band around a rated value, as shares of it; its ends belong to it.
struct Band
{
    double low;
    double high;
    bool Contains(double value, double rated) const { return value >= low * rated && value <= high * rated; }
};
struct Tolerance
{
    Band good;
    Band medium;
};
constexpr Tolerance kVoltageTolerance{{0.95, 1.05}, {0.9, 1.1}};
constexpr Tolerance kFrequencyTolerance{{0.98, 1.02}, {0.95, 1.05}};

int RateBand(double value, const std::optional<double>& rated, const Tolerance& tolerance)
{
    if (!rated)
        return kUnrated;
    if (tolerance.good.Contains(value, *rated))
        return kGood;
    return tolerance.medium.Contains(value, *rated) ? kMedium : kBad;
}

/// The electrical power may have either sign up to that of the rated point, and half as much again for a while.
int RatePower(double value, double Pel)
{
    constexpr double kOverload = 1.5;
    const double limit = std::abs(Pel);
    const auto isWithin = [value](double most) { return value >= -most && value <= most; };
    return isWithin(limit) ? kGood : isWithin(kOverload * limit) ? kMedium : kBad;
}

int RateShare(double share, double good)
{
    return share <= good ? kGood : share <= 1 ? kMedium : kBad;
}

} // namespace

Rater::Rater(const RatedData& ratedData, int netConf) : rated(ratedData), hasMachine(HasMachine(netConf)) {}

int Rater::AgainstRatedData(double value, int quantity) const
{
    const bool isRated = rated.Pmech.has_value();
    switch (quantity) {
    case kU:
    case kU1:
    case kU1 + 1:
    case kU1 + 2:
        return RateBand(value, rated.U, kVoltageTolerance);
    case kF:
        return RateBand(value, rated.f, kFrequencyTolerance);
    case kP:
    case kP1:
    case kP1 + 1:
    case kP1 + 2:
        return isRated ? RatePower(value, rated.Pel) : kUnrated;
    case kM:
        return isRated ? kUnrated : kMedium;
    case kN:
    case kPmech:
    case kEta:
        return isRated ? kUnrated : kBad;
    default:
        return kUnrated;
    }
}

int Rater::Rate(double value, int quantity) const
{
    if (quantity < 0 || quantity >= kQuantityCount)
        return kUnrated;
    if (!kPlausibleRanges[static_cast<std::size_t>(quantity)].Contains(value))
        return kBad;
    return hasMachine ? AgainstRatedData(value, quantity) : kUnrated;
}

int Rater::RateRow(const tValueRow& row) const
{
    int worst = kUnrated;
    for (const int quantity : kRowQuantities)
        worst = std::max(worst, Rate(QuantityValue(row, quantity), quantity));
    return worst;
}

int RateStallShare(double share)
{
    constexpr double kGoodStallShare = 0.8;
    return RateShare(share, kGoodStallShare);
}

int RateRatedShare(double share)
{
    constexpr double kGoodRatedShare = 0.85;
    return RateShare(share, kGoodRatedShare);
}

qint32 RatingColour(int rating)
{
    return kRatingColours.at(static_cast<std::size_t>(rating));
}

const QString& RatingWord(int rating)
{
    static constexpr std::array<TextRef, kRatingCount> kWords{&texts::ratingNone, &texts::ratingGood,
                                                              &texts::ratingMedium, &texts::ratingBad};
    return TextOf(kWords.at(static_cast<std::size_t>(rating)));
}

std::span<const int> RatedQuantities()
{
    return kRowQuantities;
}

namespace {

int RatingOf(double value, int quantity, RatingMode mode)
{
    switch (mode) {
    case RatingMode::Mmax:
        return RateStallShare(value);
    case RatingMode::Extrem:
        return RateRatedShare(value);
    case RatingMode::MachineI:
        return Rater(RatedDataOf(WhichMachine::I), App().iNetConfIndex).Rate(value, quantity);
    case RatingMode::MachineII:
        return Rater(RatedDataOf(WhichMachine::II), App().iNetConfIndex).Rate(value, quantity);
    case RatingMode::Set:
    case RatingMode::None:
        break;
    }
    return kUnrated;
}

} // namespace

qint32 RateValue(double value, int quantity, RatingMode mode, bool wantWord)
{
    const int rating = RatingOf(value, quantity, mode);
    qint16& worst = App().iRowWorstRating;
    if (mode == RatingMode::Set)
        worst = kUnrated;
    else if (mode == RatingMode::MachineI || mode == RatingMode::MachineII)
        worst = std::max(worst, static_cast<qint16>(rating));
    if (wantWord)
        App().sRatingWord = RatingWord(rating);
    return RatingColour(rating);
}

int RateRow(const tValueRow& row, RatingMode mode)
{
    RateValue(0, 0, RatingMode::Set, false);
    for (const int quantity : kRowQuantities)
        RateValue(QuantityValue(row, quantity), quantity, mode, false);
    return App().iRowWorstRating;
}

} // namespace korvanel
