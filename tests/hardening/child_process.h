// A child program started with fork/exec, its standard output and error read
// through one pipe, so a test can wait for it to reach a point, kill it there
// and look at what it left behind.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace kwfy::hardening {

class ChildProcess {
public:
    // Starts argv[0] with the arguments; throws std::runtime_error on failure.
    explicit ChildProcess(const std::vector<std::string>& argv);
    ~ChildProcess();  // kills and reaps a child still running
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Reads the child's output until a line equal to line arrives; false when
    // the output ends or the time runs out first.
    bool WaitForLine(const std::string& line, int timeoutMs);
    void Kill();
    // Reaps the child, reading the rest of its output. The exit status, or
    // 128 + the signal that ended it.
    int Wait();
    // Everything the child wrote to its standard output so far.
    const std::string& Output() const { return output_; }

private:
    bool ReadSome(int timeoutMs);
    pid_t pid_ = -1;
    int out_ = -1;
    std::string output_;
    size_t scanned_ = 0;
    int status_ = -1;
};

}  // namespace kwfy::hardening
