#include <cstring>
#include <fstream>

#include "db/jet_import.h"

namespace kwfy::db {

bool IsJetFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    char header[19] = {};
    if (!in.read(header, sizeof header)) return false;
    // Jet 3/4 and ACE files name their engine at offset 4.
    return std::memcmp(header + 4, "Standard Jet DB", 15) == 0 ||
           std::memcmp(header + 4, "Standard ACE DB", 15) == 0;
}

}  // namespace kwfy::db
