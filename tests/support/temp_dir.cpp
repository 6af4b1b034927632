#include "support/temp_dir.h"

#include <cstdlib>
#include <filesystem>
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

}  // namespace kwfy::test
