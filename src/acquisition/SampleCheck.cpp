#include "acquisition/SampleCheck.h"

#include "core/Common.h"

#include <algorithm>
#include <cmath>

namespace korvanel {

namespace {

constexpr double kHighestFrequency = 1000;
enum MaskPosition
{
    kVoltageMark,
    kCurrentMark,
    kPowerMark,
    kFrequencyMark
};

template <typename Values>
bool AreFinite(const Values& values)
{
    return std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
}

} // namespace

QString CheckedMask(const QString& mask, const tValueRow& row, const std::array<double, 2>& trigger, qint32 set)
{
    const bool isBeforeTrigger = !(row.dU[kSum] >= trigger[0] && row.dI[kSum] >= trigger[1]);
    if (isBeforeTrigger && set <= 1)
        return QStringLiteral("EEEE");
    QString checked = mask;
    const auto mark = [&checked](MaskPosition position, bool isGood) {
        if (!isGood)
            checked[position] = u'E';
    };
    mark(kVoltageMark, AreFinite(row.dU));
    mark(kCurrentMark, AreFinite(row.dI));
    mark(kPowerMark, AreFinite(row.dP) && AreFinite(row.dQ) && AreFinite(row.dS));
    mark(kFrequencyMark, row.df >= 0 && row.df <= kHighestFrequency);
    return checked;
}

void ValidateSample()
{
    tMeasuredRow& row = App().MeasuredRow;
    row.sValidMask = CheckedMask(row.sValidMask, row, App().dTrigger, row.lSet);
}

} // namespace korvanel
