// What can be entered by hand: the columns with their limits, and what an entry means for the row. Everything else in a
// row follows from these.
#pragma once

#include "core/Quantities.h"
#include "core/RowFields.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace korvanel {

/// The quantities that are laid between others.
inline constexpr std::array<RowField, 4> kInterpolated{Element<&tValueRow::dU, kSum>, Element<&tValueRow::dI, kSum>,
                                                       Single<&tValueRow::df>, Element<&tValueRow::dP, kSum>};

/// Whether the rows of a net configuration can be edited: those whose energies no instrument has counted.
bool AreRowsEditable(int netConf);

struct EntryColumn
{
    int quantity = 0;
    double minimum = 0; ///< of what may be entered, in base units
    double maximum = 0;
    RowField field = nullptr;

    /// Of the reactive power nothing but the sign can be entered: it says whether the current lags or leads, and its
    /// magnitude follows from the others.
    bool IsSign() const { return quantity == kQ; }
};

/// The column of a quantity in a net configuration; none if it can't be entered there.
const EntryColumn* EntryColumnOf(int quantity, int netConf);

/// The columns of a net configuration that can be entered, in the order in which the grid shows them.
std::vector<const EntryColumn*> EntryColumns();

/// A typed text as a value of a column, "-" and "+" alone as a sign; none where it is no number in the limits, which is
/// told. The text becomes the one that was understood.
std::optional<double> TypedValue(QString& text, const EntryColumn& column);

/// Puts an entry into a row. A zero counts as a positive sign.
void Enter(tValueRow& row, const EntryColumn& column, double value);

/// The text of a value to begin an entry with: with all its digits.
QString EntryText(const tValueRow& row, const EntryColumn& column);

} // namespace korvanel
