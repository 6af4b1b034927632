// RunInChild: fork, limits, pipes and a deadline.
#include "db/jet_child.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <thread>

#include "kwfy/error.h"

#if defined(__SANITIZE_ADDRESS__)
#define KWFY_CHILD_NO_ADDRESS_LIMIT 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KWFY_CHILD_NO_ADDRESS_LIMIT 1
#endif
#endif

namespace kwfy::db {

namespace {

using Clock = std::chrono::steady_clock;
constexpr size_t kDiagnosticsKept = 16 * 1024;

class Pipe {
public:
    Pipe() {
        if (pipe2(fd_, O_CLOEXEC) != 0)
            throw Error(std::string("cannot create a pipe: ") + std::strerror(errno));
    }
    ~Pipe() {
        CloseRead();
        CloseWrite();
    }
    int Read() const { return fd_[0]; }
    int Write() const { return fd_[1]; }
    void CloseRead() { Close(fd_[0]); }
    void CloseWrite() { Close(fd_[1]); }

private:
    static void Close(int& fd) {
        if (fd >= 0) close(fd);
        fd = -1;
    }
    int fd_[2] = {-1, -1};
};

#ifndef KWFY_CHILD_NO_ADDRESS_LIMIT
int64_t CurrentAddressSpace() {
    long pages = 0;
    if (FILE* statm = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(statm, "%ld", &pages) != 1) pages = 0;
        std::fclose(statm);
    }
    return int64_t(pages) * sysconf(_SC_PAGESIZE);
}
#endif

void ApplyLimits(const ChildLimits& limits) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    rlim_t cpu = static_cast<rlim_t>(limits.timeLimitSeconds) + 1;
    rlimit cpuLimit{cpu, cpu + 1};
    setrlimit(RLIMIT_CPU, &cpuLimit);
#ifndef KWFY_CHILD_NO_ADDRESS_LIMIT
    rlim_t bytes = static_cast<rlim_t>(CurrentAddressSpace() + limits.memoryLimitBytes);
    rlimit as{bytes, bytes};
    setrlimit(RLIMIT_AS, &as);
#endif
}

[[noreturn]] void RunChild(const std::function<int(int)>& work, const ChildLimits& limits,
                           Pipe& messages, Pipe& diagnostics) {
    messages.CloseRead();
    diagnostics.CloseRead();
    dup2(diagnostics.Write(), STDOUT_FILENO);
    dup2(diagnostics.Write(), STDERR_FILENO);
    ApplyLimits(limits);
    int status = 125;
    try {
        status = work(messages.Write());
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
    } catch (...) {
    }
    std::fflush(stderr);
    // _exit: the parent's atexit handlers and buffered streams are not ours.
    _exit(status);
}

// Reads what is available from fd into buffer; false at end of file.
bool Drain(int fd, std::string& buffer) {
    char chunk[4096];
    ssize_t n = read(fd, chunk, sizeof chunk);
    if (n < 0) return errno == EINTR || errno == EAGAIN;
    buffer.append(chunk, static_cast<size_t>(n));
    return n > 0;
}

class ChildKiller {
public:
    explicit ChildKiller(pid_t pid) : pid_(pid) {}
    ~ChildKiller() {
        if (pid_ > 0) {
            kill(pid_, SIGKILL);
            waitpid(pid_, nullptr, 0);
        }
    }
    void Release() { pid_ = -1; }

private:
    pid_t pid_;
};

}  // namespace

void SendLine(int fd, const std::string& text) {
    std::string line = text + "\n";
    const char* p = line.data();
    size_t left = line.size();
    while (left > 0) {
        ssize_t n = write(fd, p, left);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return;
        p += n;
        left -= static_cast<size_t>(n);
    }
}

ChildOutcome RunInChild(const std::function<int(int)>& work, const ChildLimits& limits,
                        const std::function<void(const std::string&)>& onLine) {
    Pipe messages;
    Pipe diagnostics;
    std::fflush(nullptr);  // or the child would inherit and never flush them
    pid_t pid = fork();
    if (pid < 0) throw Error(std::string("cannot start a child process: ") + std::strerror(errno));
    if (pid == 0) RunChild(work, limits, messages, diagnostics);

    ChildKiller killer(pid);
    messages.CloseWrite();
    diagnostics.CloseWrite();
    const auto deadline = Clock::now() + std::chrono::seconds(limits.timeLimitSeconds);
    ChildOutcome outcome;
    std::string pending;
    bool messagesOpen = true;
    bool diagnosticsOpen = true;
    bool timedOut = false;
    while ((messagesOpen || diagnosticsOpen) && !timedOut) {
        auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0) {
            timedOut = true;
            break;
        }
        pollfd fds[2] = {{messagesOpen ? messages.Read() : -1, POLLIN, 0},
                         {diagnosticsOpen ? diagnostics.Read() : -1, POLLIN, 0}};
        int ready = poll(fds, 2, static_cast<int>(std::min<int64_t>(left.count(), 1000)));
        if (ready < 0 && errno != EINTR) break;
        if (fds[0].revents) {
            messagesOpen = Drain(messages.Read(), pending);
            for (size_t end; (end = pending.find('\n')) != std::string::npos;) {
                std::string line = pending.substr(0, end);
                pending.erase(0, end + 1);
                onLine(line);
            }
        }
        if (fds[1].revents) {
            diagnosticsOpen = Drain(diagnostics.Read(), outcome.diagnostics);
            if (outcome.diagnostics.size() > 2 * kDiagnosticsKept)
                outcome.diagnostics.erase(0, outcome.diagnostics.size() - kDiagnosticsKept);
        }
    }
    int status = 0;
    while (!timedOut) {
        pid_t done = waitpid(pid, &status, WNOHANG);
        if (done == pid) break;
        if (done < 0 && errno != EINTR)
            throw Error(std::string("waitpid: ") + std::strerror(errno));
        if (Clock::now() >= deadline) timedOut = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    if (timedOut) {
        outcome.status = ChildOutcome::Status::TimedOut;
        return outcome;  // the killer ends and reaps the child
    }
    killer.Release();
    if (WIFSIGNALED(status)) {
        outcome.status = ChildOutcome::Status::Signalled;
        outcome.code = WTERMSIG(status);
    } else {
        outcome.code = WEXITSTATUS(status);
    }
    return outcome;
}

std::string DescribeOutcome(const ChildOutcome& outcome, const ChildLimits& limits) {
    switch (outcome.status) {
        case ChildOutcome::Status::TimedOut:
            return "reading did not finish within " + std::to_string(limits.timeLimitSeconds) +
                   " seconds";
        case ChildOutcome::Status::Signalled:
            if (outcome.code == SIGXCPU)
                return "reading used more than " + std::to_string(limits.timeLimitSeconds) +
                       " seconds of processor time";
            return std::string("the reader crashed (") + strsignal(outcome.code) + ")";
        case ChildOutcome::Status::Exited:
            break;
    }
    return "the reader failed (exit status " + std::to_string(outcome.code) + ")";
}

}  // namespace kwfy::db
