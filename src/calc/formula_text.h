// Text helpers over fee formulas: operator test, cutting a formula into its
// operand items, the "..." range shorthand, and putting values in the place
// of items.
//
// Formulas are UTF-8. Every character these helpers look for is ASCII, except
// the full-width brackets "（" and "）" that TrimBrackets also removes, so
// multi-byte characters pass through untouched. Text searches (ReplaceText,
// ReplaceItem) ignore ASCII letter case only; other characters must match
// exactly.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kwfy::calc {

// True for the six formula operators + - * / ( ).
bool IsOperatorChar(char c);

// True when text is exactly one operator character; false for anything else,
// the empty text and the full-width brackets included.
bool IsOperator(std::string_view text);

// The operand items of a formula, in order: the texts between operators,
// each passed through TrimBrackets. Element k of the result is item k + 1 of
// the 1-based item list (there is no unused slot 0). Operators inside square
// brackets do not separate ("[1-2]*3" gives "[1-2]", "3"); items keep their
// square brackets. Empty items count: "A*(B+C)" gives "A", "", "B", "C", "".
// The result always holds at least one item (the empty formula gives one
// empty item). Linear in the length of the formula.
std::vector<std::string> SplitFormula(std::string_view formula);

// Removes one leading "(" or "（" and then, independently, one trailing ")"
// or "）".
std::string TrimBrackets(std::string_view text);

// Removes the square brackets of an item written "[...]"; other items are
// returned as they are.
std::string_view StripSquareBrackets(std::string_view item);

// Most members, and most characters of members, that one ExpandRange call
// generates in total. A range that would take either total past its bound is
// left unexpanded.
inline constexpr int kMaxRangeMembers = 1024;
inline constexpr size_t kMaxRangeText = 16 * 1024;

// Expands every range shorthand "first op ... op last" into the members
// first..last joined by op: "[1]+...+[5]" gives "[1]+[2]+[3]+[4]+[5]",
// "A1*...*A3" gives "A1*A2*A3". Member numbers are 16-bit (1..32767).
// A "..." that cannot be expanded (no start number, a start number below 1
// or beyond 32767, an end less than two above the start, or too many
// members, see kMaxRangeMembers) stays in the text as it is, where it counts
// 0 as an operand, and is not looked at again; "[1]+...+[2]" thus still sums
// to [1]+[2]. Always ends; the result is at most kMaxRangeText characters
// longer than the formula.
std::string ExpandRange(std::string_view formula);

// Replaces the first occurrence of item in formula by value. Returns formula
// unchanged when item is empty, value equals item, or item does not occur.
// A negative value ("-2") after an operator is written "(0-2)"; at the start
// of the formula it stays "-2" (the evaluator reads a leading "-" as "0-").
std::string ReplaceItem(std::string_view formula, std::string_view item, std::string_view value);

// Replaces every non-overlapping occurrence of find, scanning left to right.
// An empty find returns text unchanged.
std::string ReplaceText(std::string_view text, std::string_view find, std::string_view replacement);

// Position of the first occurrence of find at or after `from` under the same
// case rule, or std::string_view::npos. An empty find is never found.
size_t FindText(std::string_view text, std::string_view find, size_t from = 0);

}  // namespace kwfy::calc
