// A temporary folder removed with its content when the object goes away.
#pragma once

#include <string>

namespace kwfy::test {

class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& Path() const { return path_; }
    // Path of a file inside the folder.
    std::string File(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

}  // namespace kwfy::test
