// A program that measures what a user sees over the project that its one argument names: it prints the longest time in
// milliseconds.
#pragma once

#include "Recording.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>

namespace korvanel::bench {

/// The whole program. `measure` gives the longest time in nanoseconds over the open project; 0 is a failure.
inline int MeasureOverProject(int argc, char* argv[], qint64 (*measure)())
{
    constexpr double kNanosecondsPerMillisecond = 1e6;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc != 2)
        return EXIT_FAILURE;
    PrepareBlock();
    OpenForPage(QString::fromLocal8Bit(argv[1]));
    const qint64 longest = measure();
    std::printf("%.2f\n", static_cast<double>(longest) / kNanosecondsPerMillisecond);
    return longest > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace korvanel::bench
