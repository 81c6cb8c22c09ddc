// Finding the bus address of an instrument: one address is tried, or an interval is walked through until an instrument
// answers. The block is as before when a search is over; what was found is the result.
#pragma once

#include <QString>

#include <functional>

namespace korvanel {

enum class SearchOutcome
{
    Found,
    NotFound,
    OutOfRange ///< an address outside 1 to 247; nothing was sent
};

struct SearchResult
{
    SearchOutcome outcome = SearchOutcome::NotFound;
    int address = 0;  ///< that answered
    QString deviceId; ///< model and number of the instrument that was found
};

/// Called with each address before it is tried.
using AddressObserver = std::function<void(int address)>;

/// Whether the driver of `sDevice` gets an answer at the address; no answer and a port that can't be opened are silent.
/// `lModbusAddress` is as before when it returns, and errors are shown again by the dispatcher.
bool ring_for_address(int iAddress);

/// Tries one address.
SearchResult TestAddress(int iAddress, const AddressObserver& observe);

/// Tries the addresses from `iFrom` to `iTo` up to the first that answers. With `iFrom` above `iTo` there are none.
SearchResult SearchInterval(int iFrom, int iTo, const AddressObserver& observe);

} // namespace korvanel
