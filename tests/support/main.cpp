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
