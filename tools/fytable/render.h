// The output formats of "fytable show": an aligned text table, CSV, JSON and
// an Excel workbook.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "fee_view.h"

namespace fytable {

// Columns a text takes in a terminal: 2 for each East Asian wide or
// full-width character, 1 for any other code point; invalid UTF-8 counts
// one per byte.
int DisplayWidth(std::string_view text);

// The visible columns under their captions, padded by display width; the
// name indented two blanks per outline level below 1; numeric columns
// right-aligned; then the total line.
void WriteTable(const FeeView& view, std::ostream& out);
// The visible columns and a last column "层次" (outline level), quoted as
// RFC 4180 asks, lines ending in CRLF.
void WriteCsv(const FeeView& view, std::ostream& out);
// {"category", "columns", "rows": [{key, name, rate, explanation, amount,
// formula, level, calcKey, rateSpec, classRates}], "total"}; amounts and the
// total as numbers (null when not calculated).
void WriteJson(const FeeView& view, std::ostream& out);
// One sheet named after the category: captions, rows (amounts as numbers,
// names indented by level), the total. Throws kwfy::Error when the file
// cannot be written.
void WriteXlsx(const FeeView& view, const std::string& path);

}  // namespace fytable
