// Entry of every test program: the user's settings lie in a folder of its own, and each test begins without any.
#include "core/SettingsStore.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#ifdef KORVANEL_WITH_WIDGETS
#include <QApplication>
#else
#include <QCoreApplication>
#endif

namespace {

/// What a test leaves in the store of settings is not the next one's.
class SettingsOfANewUser : public ::testing::EmptyTestEventListener
{
    void OnTestStart(const ::testing::TestInfo& /*test*/) override
    {
        using namespace korvanel;
        for (const QString& section : {kSettingsSection, kPortsSection, kGraphColoursSection, kRecentSection})
            DeleteSection(kSettingsApplication, section);
    }
};

} // namespace

int main(int argc, char* argv[])
{
    // The same on every machine: no display, the formats of no locale, the time of no zone.
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("TZ", "UTC");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir settings;
    const QTemporaryDir work; // what a test writes without a path is nobody else's
    QDir::setCurrent(work.path());
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    qputenv("HOME", settings.path().toUtf8());
    ::testing::InitGoogleTest(&argc, argv);
#ifdef KORVANEL_WITH_WIDGETS
    const QApplication application(argc, argv);
#else
    const QCoreApplication application(argc, argv);
#endif
    ::testing::UnitTest::GetInstance()->listeners().Append(new SettingsOfANewUser);
    return RUN_ALL_TESTS();
}
