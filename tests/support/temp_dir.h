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

// The whole content of a file ("" when it cannot be read).
std::string ReadBytes(const std::string& path);
// Writes a file holding exactly these bytes, replacing what was there.
void WriteBytes(const std::string& path, const std::string& bytes);

}  // namespace kwfy::test
