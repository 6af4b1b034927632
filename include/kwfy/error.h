// kwfy::Error: the one exception type of the core library.
//
// Database, file and configuration failures are reported as an Error whose
// message names the file (or table, or row) concerned and what went wrong.
// A bad formula is never an Error: it evaluates to a defined value.
#pragma once

#include <stdexcept>
#include <string>

namespace kwfy {

class Error : public std::runtime_error {
public:
    explicit Error(const std::string& message) : std::runtime_error(message) {}
    Error(const std::string& file, const std::string& message)
        : std::runtime_error(file.empty() ? message : file + ": " + message), file_(file) {}

    // The file the failure concerns, empty when none applies.
    const std::string& file() const { return file_; }

private:
    std::string file_;
};

}  // namespace kwfy
