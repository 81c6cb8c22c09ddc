// Lines to the simulated instruments that are spoken to in text, as the tests of the simulator use them.
#pragma once

#include "simulator/Log.h"
#include "tools/SimulatorRequests.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace korvanel::simulator::test {

inline InstrumentSetup AtConstantLoad()
{
    InstrumentSetup setup;
    setup.profile = "constant";
    return setup;
}

inline Bytes BytesOf(const std::string& text)
{
    return {text.begin(), text.end()};
}

inline std::string PlainText(ByteView bytes)
{
    return {bytes.begin(), bytes.end()};
}

/// What the last column of the log says of an exchange.
inline std::string LoggedText(const Exchange& exchange)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("log");
    Log(path.toStdString()).Write(0, exchange);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromLatin1(file.readAll()).trimmed().section('\n', -1).section('\t', 5).toStdString();
}

class LineBench : public Bench
{
public:
    explicit LineBench(const std::string& family, const InstrumentSetup& setup = AtConstantLoad())
        : Bench(family, setup)
    {}

    /// What a line alone becomes.
    Exchange Send(const std::string& line)
    {
        const std::vector<Exchange> exchanges = Exchanges(BytesOf(line + "\r\n"));
        EXPECT_EQ(exchanges.size(), 1U) << line;
        return exchanges.empty() ? Exchange() : exchanges.front();
    }
    /// The whole reply; empty if there is none.
    std::string Ask(const std::string& line) { return PlainText(Send(line).answer.reply); }
};

} // namespace korvanel::simulator::test
