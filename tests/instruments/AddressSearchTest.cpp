#include "instruments/AddressSearch.h"

#include "instruments/Frames.h"
#include "support/Fixture.h"
#include "support/IskraAtAddress.h"
#include "support/ScriptedPort.h"

namespace korvanel::test {
namespace {

class AddressSearch : public BlockTest
{
protected:
    AddressSearch()
    {
        App().ThePort = &port;
        App().bShowDevErrors = true;
        App().lModbusAddress = 33;
        App().lComPort = 4;
        App().sDevice = QStringLiteral("YOKOGAWA WT130 3Ø3W");
        App().sDeviceId = QStringLiteral("before");
        port.answer = IskraAtAddress(200);
    }
    /// The block after a search, whatever it found.
    void ExpectBlockUntouched() const
    {
        EXPECT_EQ(App().lModbusAddress, 33);
        EXPECT_EQ(App().lComPort, 4);
        EXPECT_EQ(App().sDevice, "YOKOGAWA WT130 3Ø3W");
        EXPECT_EQ(App().sDeviceId, "before");
        EXPECT_FALSE(App().bProjectDirty);
        EXPECT_TRUE(App().bShowDevErrors);
        EXPECT_FALSE(port.IsOpen());
        EXPECT_TRUE(shell.boxes.empty());
    }

    ScriptedPort port;
    std::vector<int> tried;
    AddressObserver record = [this](int address) { tried.push_back(address); };
};

TEST_F(AddressSearch, Ring_AsksModelAndNumberAtTheAddress)
{
    App().sDevice = QStringLiteral("ISKRA MI71XX 1Ø2W (1b)");
    EXPECT_TRUE(ring_for_address(200));
    EXPECT_EQ(port.requests, (std::vector<QByteArray>{Crc16Append(QByteArray::fromHex("C80400010003")),
                                                      Crc16Append(QByteArray::fromHex("C80400040001"))}));
    EXPECT_EQ(port.settings.number, 4);
    EXPECT_EQ(port.settings.dataBits, 8);
    EXPECT_EQ(App().lModbusAddress, 33);
    EXPECT_TRUE(App().bShowDevErrors);
    EXPECT_FALSE(port.IsOpen());
}

TEST_F(AddressSearch, Ring_NoAnswerIsSilentAndCostsTwoWaits)
{
    App().sDevice = QStringLiteral("ISKRA MI71XX 1Ø2W (1b)");
    EXPECT_FALSE(ring_for_address(199));
    EXPECT_EQ(port.requests.size(), 2U);
    EXPECT_NEAR(clock.seconds, 1000.3, 1e-9);
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(App().lModbusAddress, 33);
}

TEST_F(AddressSearch, Ring_ADeviceThatNobodyKnowsIsNotThere)
{
    App().sDevice = QStringLiteral("?");
    EXPECT_FALSE(ring_for_address(200));
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(port.openings, 0);
}

TEST_F(AddressSearch, Test_FindsTheInstrumentAndGivesItsIdentity)
{
    const SearchResult result = TestAddress(200, record);
    EXPECT_EQ(result.outcome, SearchOutcome::Found);
    EXPECT_EQ(result.address, 200);
    EXPECT_EQ(result.deviceId, "MI7140 4711");
    EXPECT_EQ(tried, std::vector{200});
    ExpectBlockUntouched();
}

TEST_F(AddressSearch, Test_AnotherAddressIsAMiss)
{
    EXPECT_EQ(TestAddress(199, record).outcome, SearchOutcome::NotFound);
    ExpectBlockUntouched();
}

TEST_F(AddressSearch, Test_AddressesOutsideAreRefusedUnsent)
{
    for (const int address : {248, 0, -1, 2147483647}) {
        EXPECT_EQ(TestAddress(address, record).outcome, SearchOutcome::OutOfRange) << address;
        EXPECT_EQ(SearchInterval(1, address, record).outcome, SearchOutcome::OutOfRange) << address;
        EXPECT_EQ(SearchInterval(address, 247, record).outcome, SearchOutcome::OutOfRange) << address;
    }
    EXPECT_TRUE(tried.empty());
    EXPECT_EQ(port.openings, 0);
    EXPECT_EQ(App().sDevice, "YOKOGAWA WT130 3Ø3W");
}

TEST_F(AddressSearch, Interval_OfTheWholeRangeFindsTheOneAddressAndStopsThere)
{
    const SearchResult result = SearchInterval(1, 247, record);
    EXPECT_EQ(result.outcome, SearchOutcome::Found);
    EXPECT_EQ(result.address, 200);
    EXPECT_EQ(tried.size(), 200U);
    EXPECT_EQ(tried.front(), 1);
    EXPECT_NEAR(clock.seconds, 1000 + 200 * 0.3, 1e-6);
    ExpectBlockUntouched();
}

TEST_F(AddressSearch, Interval_WithoutAnInstrumentTakesItsFullTime)
{
    port.answer = [](const QByteArray&) { return QByteArray(); };
    EXPECT_EQ(SearchInterval(1, 247, record).outcome, SearchOutcome::NotFound);
    EXPECT_EQ(tried.size(), 247U);
    EXPECT_EQ(port.openings, 247);
    EXPECT_NEAR(clock.seconds, 1000 + 247 * 0.3, 1e-6);
    ExpectBlockUntouched();
}

TEST_F(AddressSearch, Interval_BothBoundsAreTried)
{
    EXPECT_EQ(SearchInterval(198, 200, record).address, 200);
    EXPECT_EQ(tried, (std::vector{198, 199, 200}));
    tried.clear();
    EXPECT_EQ(SearchInterval(200, 210, record).address, 200);
    EXPECT_EQ(tried, std::vector{200});
}

TEST_F(AddressSearch, Interval_TurnedRoundTestsNothing)
{
    EXPECT_EQ(SearchInterval(201, 200, record).outcome, SearchOutcome::NotFound);
    EXPECT_TRUE(tried.empty());
    EXPECT_EQ(port.openings, 0);
    ExpectBlockUntouched();
}

TEST_F(AddressSearch, Interval_APortThatCantBeOpenedIsAMissWithoutABox)
{
    port.openError = "Zugriff verweigert";
    EXPECT_EQ(SearchInterval(1, 10, record).outcome, SearchOutcome::NotFound);
    EXPECT_EQ(tried.size(), 10U);
    EXPECT_TRUE(port.requests.empty());
    ExpectBlockUntouched();
}

TEST_F(AddressSearch, Interval_WrongRepliesAreNoInstrument)
{
    const std::function<QByteArray(const QByteArray&)> faults[] = {
        [](const QByteArray& request) { return request; }, // an echo of the line
        [](const QByteArray&) { return QByteArray(1024, '\xFF'); },
        [](const QByteArray& request) { return request.left(2); },
        [](const QByteArray& request) { return request[3] == 1 ? IskraAtAddress(5)(request) : QByteArray(); },
        [](const QByteArray& request) { return request[3] == 4 ? IskraAtAddress(5)(request) : QByteArray(); },
    };
    for (const auto& fault : faults) {
        port.answer = fault;
        EXPECT_EQ(SearchInterval(5, 6, record).outcome, SearchOutcome::NotFound);
        ExpectBlockUntouched();
    }
}

TEST_F(AddressSearch, Interval_ALineThatBreaksOffIsAMiss)
{
    port.answer = [this](const QByteArray&) -> QByteArray {
        port.isOpen = false;
        throw PortError("weg");
    };
    EXPECT_EQ(SearchInterval(1, 3, record).outcome, SearchOutcome::NotFound);
    ExpectBlockUntouched();
}

} // namespace
} // namespace korvanel::test
