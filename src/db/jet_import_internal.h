// What the Jet cache shares with the importer.
#pragma once

#include <string>

#include "db/jet_import.h"

namespace kwfy::db {

// Imports source into a private temporary file beside dest and renames it to
// dest, replacing any file there. Otherwise as ImportJet.
JetImportReport ImportJetReplacing(const std::string& source, const std::string& dest,
                                   const JetImportOptions& options);

}  // namespace kwfy::db
