// The program's end of a pseudo-terminal, for tests that play the program.
#pragma once

#include "simulator/Bytes.h"

#include <QElapsedTimer>
#include <QString>
#include <QThread>

#include <gtest/gtest.h>

#include <cerrno>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace korvanel::simulator::test {

// Generous, for a machine under load; nothing waits longer than it has to.
inline constexpr int kPatienceMs = 30000;

class OpenLine
{
public:
    explicit OpenLine(const QString& path) : descriptor(open(path.toUtf8().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK))
    {}
    ~OpenLine() { Close(); }
    OpenLine(const OpenLine&) = delete;
    OpenLine& operator=(const OpenLine&) = delete;

    bool IsOpen() const { return descriptor >= 0; }
    int Descriptor() const { return descriptor; }
    void Close()
    {
        if (descriptor >= 0)
            close(descriptor);
        descriptor = -1;
    }
    void Write(const Bytes& bytes) const
    {
        ASSERT_EQ(write(descriptor, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    /// That many bytes, or what has come when the time is over or the line breaks off.
    Bytes Read(std::size_t count, int milliseconds = kPatienceMs) const
    {
        Bytes all;
        QElapsedTimer timer;
        timer.start();
        while (all.size() < count && timer.elapsed() < milliseconds) {
            pollfd waiting = {descriptor, POLLIN, 0};
            poll(&waiting, 1, static_cast<int>(milliseconds - timer.elapsed()));
            Byte buffer[512];
            const ssize_t got = read(descriptor, buffer, std::min(sizeof buffer, count - all.size()));
            if (got > 0)
                all.insert(all.end(), buffer, buffer + got);
            else if (got == 0 || errno != EAGAIN)
                break;
        }
        return all;
    }
    /// True once the other end is gone.
    bool IsHungUp() const
    {
        pollfd waiting = {descriptor, 0, 0};
        return poll(&waiting, 1, kPatienceMs) == 1 && (waiting.revents & POLLHUP) != 0;
    }

private:
    int descriptor;
};

/// Waits for a condition; false if it never comes true.
template <typename Condition>
bool Comes(Condition&& condition)
{
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < kPatienceMs; QThread::msleep(5))
        if (condition())
            return true;
    return false;
}

} // namespace korvanel::simulator::test
