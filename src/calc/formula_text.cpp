#include "calc/formula_text.h"

#include <algorithm>
#include <cmath>

#include "calc/number_text.h"

namespace kwfy::calc {
namespace {

constexpr std::string_view kFullOpen = "\xEF\xBC\x88";   // "（"
constexpr std::string_view kFullClose = "\xEF\xBC\x89";  // "）"
constexpr int kMaxMemberNumber = 32767;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsRangeBoundChar(char c) {
    return IsDigit(c) || c == ']' || IsOperatorChar(c);
}

// Reads a range bound: the leading number of the text, when it is a member
// number.
int MemberNumber(std::string_view text) {
    double v = Val(text);
    if (!(v >= -kMaxMemberNumber && v <= kMaxMemberNumber)) return -1;
    return static_cast<int>(std::lround(v));
}

// What one ExpandRange call may still generate.
struct RangeBudget {
    int members = kMaxRangeMembers;
    size_t chars = kMaxRangeText;
};

// The expansion of the "..." at p, or the empty text when it cannot be
// expanded within the budget, which it charges. Sets the end of the
// inserted members.
std::string ExpandAt(std::string_view text, size_t p, RangeBudget& budget, size_t* insertedEnd) {
    long k = static_cast<long>(p) - 1;
    while (k >= 0 && IsRangeBoundChar(text[k])) --k;
    if (k < 0) return {};
    const size_t s = static_cast<size_t>(k);
    const int first = MemberNumber(text.substr(s + 1));

    long h = k;
    while (h >= 0 && !IsOperatorChar(text[h]) && text[h] != '[') --h;
    size_t headStart = h < 0 ? 0 : (text[h] == '[' ? static_cast<size_t>(h) : h + 1);
    std::string_view head = text.substr(headStart, s - headStart + 1);
    std::string_view closer = head.starts_with('[') ? "]" : "";

    size_t e = std::min(p + 4, text.size());
    while (e < text.size() && !IsOperatorChar(text[e]) && text[e] != ']') ++e;
    long q = static_cast<long>(std::min(e, text.size() - 1));
    while (q >= 0 && IsRangeBoundChar(text[q])) --q;
    const int last = MemberNumber(text.substr(static_cast<size_t>(q + 1)));

    if (first < 1 || last - first < 2) return {};
    const int count = last - first - 1;
    // Each member: joiner, head, up to 5 digits, closer.
    const size_t chars = static_cast<size_t>(count) * (head.size() + closer.size() + 6);
    if (count > budget.members || chars > budget.chars) return {};
    budget.members -= count;
    budget.chars -= chars;
    const char joiner = text[p - 1];
    std::string out(text.substr(0, p));
    for (int m = first + 1; m < last; ++m) {
        if (m > first + 1) out += joiner;
        out.append(head).append(std::to_string(m)).append(closer);
    }
    *insertedEnd = out.size();
    out.append(text.substr(p + 3));
    return out;
}

}  // namespace

bool IsOperatorChar(char c) {
    return c == '+' || c == '-' || c == '*' || c == '/' || c == '(' || c == ')';
}

bool IsOperator(std::string_view text) {
    return text.size() == 1 && IsOperatorChar(text[0]);
}

std::vector<std::string> SplitFormula(std::string_view formula) {
    // Positions are those of "@" + formula + "@": 0 and n + 1 are the guards.
    const size_t n = formula.size();
    auto at = [&](size_t k) { return k == 0 || k == n + 1 ? '@' : formula[k - 1]; };

    // nextBracket[k]: the first "[" or "]" after position k, 0 when none.
    std::vector<char> nextBracket(n + 2, 0);
    for (size_t k = n + 1; k-- > 0;) {
        char c = at(k + 1);
        nextBracket[k] = (c == '[' || c == ']') ? c : (k + 1 <= n ? nextBracket[k + 1] : 0);
    }

    std::vector<std::string> items;
    char prevBracket = 0;
    long lastOp = -1;      // last operator after the last bracket
    long lastGoodOp = -1;  // last operator before it that a backward scan stops at
    for (size_t k = 1; k <= n + 1; ++k) {
        const char c = at(k);
        const bool op = k <= n && IsOperatorChar(c);
        const bool inside = prevBracket == '[' && nextBracket[k] == ']';
        if (k == n + 1 || (op && !inside)) {
            // The backward scan for the item's start skips operators that
            // follow a "]" with no "[" between; it stops at the opening guard.
            long stop = lastOp >= 0 ? lastOp : (lastGoodOp >= 0 ? lastGoodOp : 0);
            items.push_back(TrimBrackets(formula.substr(stop, k - 1 - stop)));
        }
        if (c == '[') {
            if (lastOp >= 0) lastGoodOp = lastOp;
            lastOp = -1;
            prevBracket = c;
        } else if (c == ']') {
            lastOp = -1;
            prevBracket = c;
        } else if (op) {
            lastOp = static_cast<long>(k);
        }
    }
    return items;
}

std::string TrimBrackets(std::string_view text) {
    if (text.starts_with('('))
        text.remove_prefix(1);
    else if (text.starts_with(kFullOpen))
        text.remove_prefix(kFullOpen.size());
    if (text.ends_with(')'))
        text.remove_suffix(1);
    else if (text.ends_with(kFullClose))
        text.remove_suffix(kFullClose.size());
    return std::string(text);
}

std::string_view StripSquareBrackets(std::string_view item) {
    if (item.size() >= 2 && item.front() == '[' && item.back() == ']')
        return item.substr(1, item.size() - 2);
    return item;
}

std::string ExpandRange(std::string_view formula) {
    std::string text(formula);
    RangeBudget budget;
    size_t from = 0;
    size_t p;
    while ((p = text.find("...", from)) != std::string::npos) {
        size_t insertedEnd = 0;
        std::string expanded = ExpandAt(text, p, budget, &insertedEnd);
        if (expanded.empty()) {
            from = p + 3;
            continue;
        }
        text = std::move(expanded);
        from = insertedEnd;
    }
    return text;
}

size_t FindText(std::string_view text, std::string_view find, size_t from) {
    if (find.empty() || from > text.size()) return std::string_view::npos;
    auto it = std::search(text.begin() + from, text.end(), find.begin(), find.end(),
                          [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
    return it == text.end() ? std::string_view::npos : static_cast<size_t>(it - text.begin());
}

std::string ReplaceItem(std::string_view formula, std::string_view item, std::string_view value) {
    if (item.empty() || value == item) return std::string(formula);
    size_t pos = FindText(formula, item);
    if (pos == std::string_view::npos) return std::string(formula);
    std::string out(formula.substr(0, pos));
    if (value.starts_with('-') && pos > 0 && IsOperatorChar(formula[pos - 1]))
        out.append("(0").append(value).append(")");
    else
        out.append(value);
    out.append(formula.substr(pos + item.size()));
    return out;
}

std::string ReplaceText(std::string_view text, std::string_view find,
                        std::string_view replacement) {
    if (find.empty()) return std::string(text);
    std::string out;
    size_t from = 0;
    size_t pos;
    while ((pos = FindText(text, find, from)) != std::string_view::npos) {
        out.append(text.substr(from, pos - from)).append(replacement);
        from = pos + find.size();
    }
    out.append(text.substr(from));
    return out;
}

}  // namespace kwfy::calc
