// A forked process that runs one function, for tests of what processes do to each other. It talks
// to the test through two pipes, so that neither has to guess how far the other is.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

namespace diary::test {

class ChildProcess {
public:
    // The child's side of the pipes.
    class Side {
    public:
        Side(int in, int out) : m_in(in), m_out(out) {}
        // Tells the test one thing, or waits until the test has told one. False at the end.
        bool tell() const { return ::write(m_out, "x", 1) == 1; }
        bool await() const {
            char byte = 0;
            return ::read(m_in, &byte, 1) == 1;
        }

    private:
        int m_in;
        int m_out;
    };

    // The child ends with the function's value as its exit code.
    explicit ChildProcess(const std::function<int(const Side& test)>& body) {
        int down[2] = {};
        int up[2] = {};
        if (::pipe(down) != 0 || ::pipe(up) != 0) ::abort();
        m_pid = ::fork();
        if (m_pid == 0) {
            ::close(down[1]);
            ::close(up[0]);
            ::_exit(body(Side(down[0], up[1])));
        }
        ::close(down[0]);
        ::close(up[1]);
        m_in = up[0];
        m_out = down[1];
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess() {
        if (m_pid > 0) kill();
        ::close(m_in);
        ::close(m_out);
    }

    [[nodiscard]] pid_t pid() const { return m_pid; }
    bool tell() const { return Side(m_in, m_out).tell(); }
    bool await() const { return Side(m_in, m_out).await(); }

    // Waits for the end and gives the exit code, or the signal's number below zero.
    int join() {
        int status = 0;
        ::waitpid(m_pid, &status, 0);
        m_pid = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    int kill() {
        ::kill(m_pid, SIGKILL);
        return join();
    }

private:
    pid_t m_pid = -1;
    int m_in = -1;
    int m_out = -1;
};

}  // namespace diary::test
