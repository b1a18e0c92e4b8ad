#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

// Runs `body` in a copy of this process, where it may give up privileges or get killed. The result is how the
// copy ended, as waitpid tells it: 0 if no expectation failed in it.
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
