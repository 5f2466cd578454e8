// Processes of a test's own. What a child finds wrong is printed by it and fails the test. A child inherits
// whatever its parent has open: no store may be, since SQLite would take it for its own.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <exception>
#include <iostream>

template <class Body>
pid_t StartChild(Body body) {
    std::cout.flush();
    const pid_t child = fork();
    if (child != 0) return child;
    try {
        body();
    } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
    }
    std::cout.flush();
    _exit(testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
}

inline void ExpectSuccess(pid_t child) {
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS) << "child: " << status;
}

inline void Kill(pid_t child) {
    kill(child, SIGKILL);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
}

template <class Body>
void InChild(Body body) {
    ExpectSuccess(StartChild(body));
}
