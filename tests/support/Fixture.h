// What nearly every test stands on: a fresh application block with built-in texts, a folder of its own, a shell that
// answers from a script, and a clock that moves only when told.
#pragma once

#include "core/Clock.h"
#include "core/Common.h"
#include "core/Texts.h"
#include "core/clsSymbols.h"
#include "support/RecordingShell.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace korvanel::test {

class FixedClock : public Clock
{
public:
    QDateTime now{QDate(2026, 3, 14), QTime(15, 9, 26)};
    mutable double seconds = 1000; ///< of the high-resolution clock
    QDateTime Now() const override { return now; }
    double Seconds() const override { return seconds; }
    void BusyWait(double wait) const override { seconds += wait; }
};

class BlockTest : public ::testing::Test
{
protected:
    BlockTest()
    {
        App() = ApplicationBlock();
        SetBuiltInTexts();
        InitialiseApplicationBlock(folder.path());
        App().DecimalChar = u',';
        App().OtherDecimalChar = u'.';
        App().sProgramTitle = QStringLiteral("KORVANEL ");
        App().TheShell = &shell;
        App().TheClock = &clock;
        StartDayClock();
        App().Symbols = &symbols;
    }
    ~BlockTest() override { App() = ApplicationBlock(); }

    QString PathOf(const QString& name) const { return folder.filePath(name); }
    QByteArray ContentOf(const QString& name) const
    {
        QFile file(PathOf(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }
    void WriteContent(const QString& name, const QByteArray& content) const
    {
        QFile file(PathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
        ASSERT_EQ(file.write(content), content.size());
    }

    QTemporaryDir folder;
    RecordingShell shell;
    FixedClock clock;
    clsSymbols symbols;
};

} // namespace korvanel::test
