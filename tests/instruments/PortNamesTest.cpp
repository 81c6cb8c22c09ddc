#include "instruments/PortNames.h"

#include "core/SettingsStore.h"
#include "support/Fixture.h"

namespace korvanel::test {
namespace {

const PortSources kLinux{.isWindows = false,
                         .reported = {"/dev/ttyUSB0", "/dev/ttyACM0"},
                         .assigned = {{2, "/dev/pump"}, {9, "/dev/pts/4"}}};
const PortSources kWindows{.isWindows = true, .reported = {"\\\\.\\COM7", "\\\\.\\COM3"}, .assigned = {{1, "x"}}};

std::vector<std::pair<int, QString>> Listed(const PortSources& sources)
{
    std::vector<std::pair<int, QString>> listed;
    for (const PortName& port : PortsOf(sources))
        listed.emplace_back(port.number, port.device);
    return listed;
}

TEST(PortNames, AssignedDeviceComesBeforeTheReportedOne)
{
    EXPECT_EQ(DeviceOfPort(2, kLinux), "/dev/pump");
    EXPECT_EQ(DeviceOfPort(9, kLinux), "/dev/pts/4");
}

TEST(PortNames, OtherNumbersAreThoseOfTheReportedPorts)
{
    EXPECT_EQ(DeviceOfPort(1, kLinux), "/dev/ttyUSB0");
}

TEST(PortNames, BeyondTheReportedPortsTheNumberIsThatOfTheBoard)
{
    EXPECT_EQ(DeviceOfPort(3, kLinux), "/dev/ttyS2");
    EXPECT_EQ(DeviceOfPort(1, {}), "/dev/ttyS0");
    EXPECT_EQ(DeviceOfPort(2147483647, {}), "/dev/ttyS2147483646");
}

TEST(PortNames, WindowsCallsThemByTheirNumber)
{
    EXPECT_EQ(DeviceOfPort(3, kWindows), "COM3");
    EXPECT_EQ(DeviceOfPort(1, kWindows), "COM1");
}

TEST(PortNames, ListShowsNumbersInOrderWithTheirDevices)
{
    using List = std::vector<std::pair<int, QString>>;
    EXPECT_EQ(Listed(kLinux), (List{{1, "/dev/ttyUSB0"}, {2, "/dev/pump"}, {9, "/dev/pts/4"}}));
    EXPECT_EQ(Listed(kWindows), (List{{3, "\\\\.\\COM3"}, {7, "\\\\.\\COM7"}}));
    EXPECT_TRUE(Listed({}).empty());
}

class PortSettingsTest : public BlockTest
{
protected:
    ~PortSettingsTest() override { DeleteSection(kSettingsApplication, "Ports"); }
};

TEST_F(PortSettingsTest, AssignmentsComeFromTheUsersSettings)
{
    const auto store = [](const char* key, const char* device) {
        StoreValue(kSettingsApplication, "Ports", key, device);
    };
    store("COM5", "/dev/pts/7");
    store("COM0", "/dev/no");
    store("COM-2", "/dev/no");
    store("COMx", "/dev/no");
    store("LPT6", "/dev/no");
    store("COM6", "   ");
    const PortSources sources = SystemPortSources();
    EXPECT_EQ(sources.assigned, (std::vector<std::pair<int, QString>>{{5, "/dev/pts/7"}}));
    EXPECT_EQ(DeviceOfPort(5, sources), "/dev/pts/7");
}

} // namespace
} // namespace korvanel::test
