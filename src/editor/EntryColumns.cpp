#include "editor/EntryColumns.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NetConfigurations.h"
#include "core/NumberText.h"

#include <algorithm>
#include <cmath>

namespace korvanel {

namespace {

constexpr double kMostVoltage = 100'000;
constexpr double kMostCurrent = 100'000;
constexpr double kMostFrequency = 1000;
constexpr double kMostPower = 1'000'000'000;

constexpr std::array kColumns{
    EntryColumn{.quantity = kU, .maximum = kMostVoltage, .field = Element<&tValueRow::dU, kSum>},
    EntryColumn{.quantity = kI, .maximum = kMostCurrent, .field = Element<&tValueRow::dI, kSum>},
    EntryColumn{.quantity = kF, .maximum = kMostFrequency, .field = Single<&tValueRow::df>},
    EntryColumn{.quantity = kP, .minimum = -kMostPower, .maximum = kMostPower, .field = Element<&tValueRow::dP, kSum>},
    // Of its magnitude nothing is taken, so any that a row may hold can be entered.
    EntryColumn{.quantity = kQ,
                .minimum = -kMostVoltage * kMostCurrent * 2,
                .maximum = kMostVoltage * kMostCurrent * 2,
                .field = Element<&tValueRow::dQ, kSum>},
    EntryColumn{.quantity = kU1, .maximum = kMostVoltage, .field = Element<&tValueRow::dU, kPhase1>},
    EntryColumn{.quantity = kU1 + 1, .maximum = kMostVoltage, .field = Element<&tValueRow::dU, kPhase2>},
    EntryColumn{.quantity = kU1 + 2, .maximum = kMostVoltage, .field = Element<&tValueRow::dU, kPhase3>},
};

bool IsShown(int quantity, int netConf)
{
    const auto& layout = TraitsOf(netConf).layout;
    return std::any_of(layout.begin(), layout.end(), [quantity](std::span<const qint16> group) {
        return std::find(group.begin(), group.end(), quantity) != group.end();
    });
}

} // namespace

bool AreRowsEditable(int netConf)
{
    return !HasRegisters(netConf);
}

const EntryColumn* EntryColumnOf(int quantity, int netConf)
{
    if (!AreRowsEditable(netConf) || !IsShown(quantity, netConf))
        return nullptr;
    const auto* column = std::find_if(kColumns.begin(), kColumns.end(),
                                      [quantity](const EntryColumn& c) { return c.quantity == quantity; });
    return column == kColumns.end() ? nullptr : column;
}

std::vector<const EntryColumn*> EntryColumns()
{
    std::vector<const EntryColumn*> columns;
    for (const qint16 quantity : App().ColumnLayout)
        if (const EntryColumn* column = EntryColumnOf(quantity, App().iNetConfIndex))
            columns.push_back(column);
    return columns;
}

std::optional<double> TypedValue(QString& text, const EntryColumn& column)
{
    const QString sign = text.trimmed();
    if (column.IsSign() && (sign == u'-' || sign == u'+'))
        return sign == u'-' ? -1 : 1;
    if (!CheckNumberRange(text, column.minimum, column.maximum))
        return std::nullopt;
    return LocalNumber(text);
}

void Enter(tValueRow& row, const EntryColumn& column, double value)
{
    if (column.IsSign())
        row.dPhi[kSum] = std::abs(row.dPhi[kSum]) * (value < 0 ? -1 : 1);
    else
        column.field(row) = value;
}

QString EntryText(const tValueRow& row, const EntryColumn& column)
{
    return NumberText(column.field(const_cast<tValueRow&>(row))); // the accessor only looks
}

} // namespace korvanel
