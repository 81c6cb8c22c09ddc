// Entry of every test program: the user's settings of the test lie in a folder of its own.
#include <QTemporaryDir>

#include <gtest/gtest.h>

#ifdef KORVANEL_WITH_WIDGETS
#include <QApplication>
#else
#include <QCoreApplication>
#endif

int main(int argc, char* argv[])
{
    // The same on every machine: no display, the formats of no locale, the time of no zone.
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("TZ", "UTC");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    qputenv("HOME", settings.path().toUtf8());
    ::testing::InitGoogleTest(&argc, argv);
#ifdef KORVANEL_WITH_WIDGETS
    const QApplication application(argc, argv);
#else
    const QCoreApplication application(argc, argv);
#endif
    return RUN_ALL_TESTS();
}
