// Running untrusted work in a child process with a time and a memory limit.
//
// The Jet reader runs this way because libmdb may crash, loop or allocate
// without bound on a damaged file; the parent stays safe and reports the
// failure. Uses fork(): call only from a single-threaded program, or at least
// never while another thread holds a lock the child would need.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace kwfy::db {

struct ChildLimits {
    int timeLimitSeconds = 120;
    // Address space the child may add to what it inherits; not applied in
    // AddressSanitizer builds, whose shadow memory needs terabytes of it.
    int64_t memoryLimitBytes = int64_t(2) << 30;
};

struct ChildOutcome {
    enum class Status { Exited, Signalled, TimedOut };
    Status status = Status::Exited;
    int code = 0;             // exit status, or the signal that ended the child
    std::string diagnostics;  // the end of what the child wrote to stdout/stderr
};

// Runs work in a forked child; work writes newline-terminated messages to the
// descriptor it is given (see SendLine) and returns the child's exit status.
// Each message line reaches onLine in the parent as it arrives. A child still
// running at the time limit is killed with SIGKILL. If onLine throws, the
// child is killed and the exception passed on. Throws Error when the child
// cannot be started.
ChildOutcome RunInChild(const std::function<int(int messageFd)>& work, const ChildLimits& limits,
                        const std::function<void(const std::string& line)>& onLine);

// Writes text and a newline to fd, retrying short writes.
void SendLine(int fd, const std::string& text);

// A one-line description of how the child ended, for error messages.
std::string DescribeOutcome(const ChildOutcome& outcome, const ChildLimits& limits);

}  // namespace kwfy::db
