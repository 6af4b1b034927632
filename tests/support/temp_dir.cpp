#include "support/temp_dir.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace kwfy::test {

TempDir::TempDir() {
    std::string tmpl = (std::filesystem::temp_directory_path() / "kwfy-test-XXXXXX").string();
    if (!mkdtemp(tmpl.data())) throw std::runtime_error("mkdtemp failed");
    path_ = tmpl;
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

}  // namespace kwfy::test
