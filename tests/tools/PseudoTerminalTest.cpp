#include "simulator/PseudoTerminal.h"
#include "tools/OpenLine.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace korvanel::simulator::test {
namespace {

class SimulatorLink : public ::testing::Test
{
protected:
    QString PathOf(const char* name) const { return folder.filePath(QLatin1String(name)); }

    QTemporaryDir folder;
};

TEST(SimulatorPseudoTerminal, CarriesEveryByteBothWays)
{
    PseudoTerminal terminal;
    const OpenLine slave(QString::fromStdString(terminal.Device()));
    ASSERT_TRUE(slave.IsOpen());
    Bytes all;
    for (int value = 0; value < 256; ++value)
        all.push_back(static_cast<Byte>(value));
    slave.Write(all);
    Bytes arrived;
    EXPECT_TRUE(Comes([&] {
        const std::optional<Bytes> bytes = terminal.Read();
        arrived.insert(arrived.end(), bytes->begin(), bytes->end());
        return arrived.size() >= all.size();
    }));
    EXPECT_EQ(arrived, all);
    terminal.Write(all);
    EXPECT_EQ(slave.Read(all.size()), all);
}

TEST(SimulatorPseudoTerminal, LosesWhatNobodyReadsWithoutWaiting)
{
    PseudoTerminal terminal;
    for (int round = 0; round < 1000; ++round)
        terminal.Write(Bytes(1000, 'x'));
    EXPECT_TRUE(terminal.Read()->empty());
}

TEST(SimulatorPseudoTerminal, StaysUsableWhileAndAfterProgramsOpenIt)
{
    PseudoTerminal terminal;
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(terminal.Read()->empty());
        const OpenLine slave(QString::fromStdString(terminal.Device()));
        ASSERT_TRUE(slave.IsOpen());
        terminal.Write(Bytes{1});
        EXPECT_EQ(slave.Read(1), Bytes{1});
    }
}

TEST_F(SimulatorLink, ReplacesALinkButNothingElse)
{
    const std::string path = PathOf("link").toStdString();
    ASSERT_TRUE(QFile::link("/nowhere", PathOf("link")));
    {
        const DeviceLink link(path, "/dev/null");
        EXPECT_EQ(QFileInfo(PathOf("link")).symLinkTarget(), "/dev/null");
    }
    EXPECT_FALSE(QFileInfo(PathOf("link")).isSymLink());
    QFile file(PathOf("link"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_THROW(DeviceLink(path, "/dev/null"), std::runtime_error);
    EXPECT_TRUE(file.exists());
    EXPECT_THROW(DeviceLink(PathOf("missing/link").toStdString(), "/dev/null"), std::runtime_error);
}

TEST_F(SimulatorLink, OfSomebodyElseIsLeftAlone)
{
    const DeviceLink older(PathOf("link").toStdString(), "/dev/null");
    {
        const DeviceLink newer(PathOf("link").toStdString(), "/dev/zero");
        DeviceLink(PathOf("other").toStdString(), "/dev/null");
    }
    EXPECT_FALSE(QFileInfo(PathOf("link")).isSymLink());
    const DeviceLink newest(PathOf("link").toStdString(), "/dev/zero");
    {
        const DeviceLink passing(PathOf("passing").toStdString(), "/dev/full");
        QFile::remove(PathOf("passing"));
        ASSERT_TRUE(QFile::link("/dev/zero", PathOf("passing")));
    }
    EXPECT_EQ(QFileInfo(PathOf("passing")).symLinkTarget(), "/dev/zero");
}

} // namespace
} // namespace korvanel::simulator::test
