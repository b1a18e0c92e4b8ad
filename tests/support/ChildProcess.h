#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

// Runs `body` in a forked process, where it may drop privileges or be killed. Returns the status from
// waitpid(): 0 if no expectation failed in the process.
inline int inChild(const std::function<void()> &body)
{
    fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        body();
        fflush(stdout);
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int ending = -1;
    waitpid(child, &ending, 0);
    return ending;
}
