// Recognising Jet files by their header.
#include <cstring>
#include <fstream>

#include "db/jet_import.h"

namespace kwfy::db {

bool IsJetFile(const std::string& path) {
    // Page 0 holds a format id at offset 4: "Standard Jet DB" (Jet 3 and 4)
    // or "Standard ACE DB" (ACE), NUL-terminated.
    static constexpr char kJet[] = "Standard Jet DB";
    static constexpr char kAce[] = "Standard ACE DB";
    static_assert(sizeof kJet == sizeof kAce);
    char head[4 + sizeof kJet] = {};
    std::ifstream in(path, std::ios::binary);
    if (!in.read(head, sizeof head)) return false;
    const char* id = head + 4;
    return std::memcmp(id, kJet, sizeof kJet) == 0 || std::memcmp(id, kAce, sizeof kAce) == 0;
}

}  // namespace kwfy::db
