#include "hardening/child_process.h"

#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>

namespace kwfy::hardening {

ChildProcess::ChildProcess(const std::vector<std::string>& argv) {
    int fds[2];
    if (pipe(fds) != 0) throw std::runtime_error("pipe failed");
    // Everything exec needs is prepared before the fork.
    std::vector<char*> args;
    for (const auto& a : argv) args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);
    pid_ = fork();
    if (pid_ < 0) throw std::runtime_error("fork failed");
    if (pid_ == 0) {
        dup2(fds[1], STDOUT_FILENO);
        dup2(fds[1], STDERR_FILENO);
        close(fds[0]);
        close(fds[1]);
        execv(args[0], args.data());
        _exit(127);
    }
    close(fds[1]);
    out_ = fds[0];
}

ChildProcess::~ChildProcess() {
    if (status_ < 0 && pid_ > 0) {
        Kill();
        Wait();
    }
    if (out_ >= 0) close(out_);
}

bool ChildProcess::ReadSome(int timeoutMs) {
    pollfd p{out_, POLLIN, 0};
    if (poll(&p, 1, timeoutMs) <= 0) return false;
    char buffer[4096];
    ssize_t n = read(out_, buffer, sizeof buffer);
    if (n <= 0) return false;
    output_.append(buffer, size_t(n));
    return true;
}

bool ChildProcess::WaitForLine(const std::string& line, int timeoutMs) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(timeoutMs);
    for (;;) {
        size_t eol;
        while ((eol = output_.find('\n', scanned_)) != std::string::npos) {
            bool match = output_.compare(scanned_, eol - scanned_, line) == 0;
            scanned_ = eol + 1;
            if (match) return true;
        }
        auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        if (left.count() <= 0 || !ReadSome(int(left.count()))) return false;
    }
}

void ChildProcess::Kill() {
    if (status_ < 0 && pid_ > 0) kill(pid_, SIGKILL);
}

int ChildProcess::Wait() {
    if (status_ >= 0) return status_;
    while (ReadSome(-1)) {
    }
    int raw = 0;
    while (waitpid(pid_, &raw, 0) < 0) {
    }
    status_ = WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + WTERMSIG(raw);
    return status_;
}

}  // namespace kwfy::hardening
