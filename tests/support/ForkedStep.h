// Runs a step in a process of its own that may give up rights or change its mounts, which a test
// can't take back afterwards.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <functional>
#include <string>

namespace diary::test {

// The step's words: empty if all went well, else what didn't.
inline std::string wordsOfFork(const std::function<std::string()>& step) {
    int pipe[2] = {};
    if (::pipe(pipe) != 0) return "no pipe";
    const pid_t child = ::fork();
    if (child == 0) {
        std::string words;
        try {
            words = step();
        } catch (const std::exception& error) {
            words = error.what();
        }
        const bool isTold =
            ::write(pipe[1], words.data(), words.size()) == static_cast<ssize_t>(words.size());
        ::_exit(isTold ? 0 : 1);
    }
    ::close(pipe[1]);
    std::string words;
    char buffer[512];
    for (ssize_t count = 0; (count = ::read(pipe[0], buffer, sizeof buffer)) > 0;) {
        words.append(buffer, static_cast<std::size_t>(count));
    }
    ::close(pipe[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) words += "the process died";
    return words;
}

}  // namespace diary::test
