// A file system that is full from a size on, for this process alone.
#pragma once

#include <gtest/gtest.h>

#include <csignal>

#include <sys/resource.h>

namespace korvanel::test {

class FullDisk
{
public:
    explicit FullDisk(rlim_t size)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &former);
        const rlimit limit{size, former.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &former); }

private:
    rlimit former{};
};

} // namespace korvanel::test
