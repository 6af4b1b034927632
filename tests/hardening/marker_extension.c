/* A loadable extension that only leaves a mark: loading it creates the file
 * named by KWFY_EXTENSION_MARKER. Hostile files try to load it from views and
 * triggers; the mark shows whether they ever succeeded. */
#include <sqlite3ext.h>
#include <stdio.h>
#include <stdlib.h>
SQLITE_EXTENSION_INIT1

int sqlite3_extension_init(sqlite3* db, char** error, const sqlite3_api_routines* api) {
    (void)db;
    (void)error;
    SQLITE_EXTENSION_INIT2(api);
    const char* marker = getenv("KWFY_EXTENSION_MARKER");
    FILE* f = marker ? fopen(marker, "w") : NULL;
    if (f) fclose(f);
    return SQLITE_OK;
}
