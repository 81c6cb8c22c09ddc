#include "instruments/AddressSearch.h"

#include "core/Common.h"
#include "instruments/Catalogue.h"
#include "instruments/DevManaging.h"
#include "instruments/Frames.h"
#include "instruments/SerialPort.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

namespace korvanel {

bool ring_for_address(int iAddress)
{
    ApplicationBlock& app = App();
    const QScopedValueRollback address(app.lModbusAddress, qint32{iAddress});
    const auto showErrorsAgain = qScopeGuard([&app] { app.bShowDevErrors = true; });
    app.bShowDevErrors = false;
    const bool isThere = DevCommand(kDevSettings) && DevCommand(kDevOpen) && DevCommand(kDevInfo);
    if (app.ThePort->IsOpen())
        DevCommand(kDevClose);
    return isThere;
}

SearchResult TestAddress(int iAddress, const AddressObserver& observe)
{
    return SearchInterval(iAddress, iAddress, observe);
}

SearchResult SearchInterval(int iFrom, int iTo, const AddressObserver& observe)
{
    if (!IsBusAddress(iFrom) || !IsBusAddress(iTo))
        return {SearchOutcome::OutOfRange, 0, {}};
    const QScopedValueRollback device(App().sDevice, QString::fromUtf8(FamilyWithAddresses().basicEntry));
    const QScopedValueRollback deviceId(App().sDeviceId);
    for (int address = iFrom; address <= iTo; ++address) {
        observe(address);
        if (ring_for_address(address))
            return {SearchOutcome::Found, address, App().sDeviceId};
    }
    return {};
}

} // namespace korvanel
