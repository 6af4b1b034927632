// Counts how often a database file is opened by any connection in this
// process, for tests of how many times an operation opens a file.
#pragma once

#include <string>

namespace kwfy::test {

// While an OpenCounter lives, every connection opened through the default
// SQLite file layer is counted by the main database file it opens. Only one
// counter may live at a time.
class OpenCounter {
public:
    OpenCounter();
    ~OpenCounter();
    OpenCounter(const OpenCounter&) = delete;
    OpenCounter& operator=(const OpenCounter&) = delete;

    // Opens of the file at `path` since the counter was made (the path as
    // the code under test passed it, "/" and "\" alike).
    int Opens(const std::string& path) const;
};

}  // namespace kwfy::test
