// What the user does in the fee grid and the toolbar, the answers the user
// will give to the next message boxes and dialogs, and the host's event
// handlers.
#include <algorithm>

#include "kwfy/error.h"
#include "kwfy/kw_fytable.h"
#include "script/ops.h"
#include "script/script_host.h"

namespace kwfy::script {

namespace {

// Twips of a row whose height is left at the grid's default.
constexpr int kDefaultRowHeight = 255;

// The middle of a cell in twips from the grid's top left corner, as the grid
// would report a click there.
std::pair<int, int> CellMiddle(const GridModel& g, int row, int col) {
    int x = 0, y = 0;
    for (int c = 0; c < col; ++c) x += g.ColWidth(c);
    for (int r = 0; r < row; ++r) y += g.RowHeight(r) ? g.RowHeight(r) : kDefaultRowHeight;
    int h = g.RowHeight(row) ? g.RowHeight(row) : kDefaultRowHeight;
    return {x + g.ColWidth(col) / 2, y + h / 2};
}

void CheckCell(const GridModel& g, int row, int col) {
    if (row < 0 || row >= g.Rows() || col < 0 || col >= g.Cols())
        throw Error("cell " + std::to_string(row) + "," + std::to_string(col) +
                    " is outside the grid");
}

bool InSelection(const GridModel& g, int row, int col) {
    return row >= std::min(g.Row(), g.RowSel()) && row <= std::max(g.Row(), g.RowSel()) &&
           col >= std::min(g.Col(), g.ColSel()) && col <= std::max(g.Col(), g.ColSel());
}

void RegisterGridActions(Registry& r) {
    r.Add("select", "ROW COL [ENDROW ENDCOL]", 2, 4, [](Call& call) {
        if (call.Count() == 3) throw UsageError("give both ENDROW and ENDCOL, or neither");
        int row = call.Get<int>(0), col = call.Get<int>(1);
        int rowSel = call.Count() == 4 ? call.Get<int>(2) : -1;
        int colSel = call.Count() == 4 ? call.Get<int>(3) : -1;
        call.Control().FeeGridModel().UserSelect(row, col, rowSel, colSel);
    });
    r.Add("edit", "ROW COL TEXT", 3, 3, [](Call& call) {
        int row = call.Get<int>(0), col = call.Get<int>(1);
        GridModel& g = call.Control().FeeGridModel();
        CheckCell(g, row, col);
        if (!g.UserEdit(row, col, call.Text(2)))
            throw Error("cell " + std::to_string(row) + "," + std::to_string(col) +
                        " cannot be edited now");
    });
    r.Add("dblclick", "", 0, 0, [](Call& call) { call.Control().FeeGridModel().UserDblClick(); });
    r.Add("key", "CODE [SHIFT]", 1, 2, [](Call& call) {
        int shift = call.Count() > 1 ? call.Get<int>(1) : 0;
        call.Control().FeeGridModel().UserKeyDown(call.Get<int>(0), shift);
    });
    // A right click leaves a selection that holds the clicked cell as it is;
    // elsewhere it first makes the clicked cell current.
    r.Add("rclick", "ROW COL", 2, 2, [](Call& call) {
        GridModel& g = call.Control().FeeGridModel();
        int row = call.Get<int>(0), col = call.Get<int>(1);
        CheckCell(g, row, col);
        auto [x, y] = CellMiddle(g, row, col);
        if (!InSelection(g, row, col)) g.UserSelect(row, col);
        g.UserMouseDown(2, 0, x, y);
    });
}

void RegisterToolActions(Registry& r) {
    r.Add("click", "TOOLKEY", 1, 1, [](Call& call) {
        if (!call.Control().Toolbar().UserClick(call.Text(0)))
            throw Error("no visible, enabled tool " + call.Text(0) + " to click");
    });
    r.Add("choose", "TOOLKEY TEXT", 2, 2, [](Call& call) {
        if (!call.Control().Toolbar().UserChoose(call.Text(0), call.Text(1)))
            throw Error("cannot choose \"" + call.Text(1) + "\" in tool " + call.Text(0));
    });
    r.Add("settext", "TOOLKEY TEXT", 2, 2, [](Call& call) {
        if (!call.Control().Toolbar().UserSetText(call.Text(0), call.Text(1)))
            throw Error("cannot type into tool " + call.Text(0));
    });
    r.Add("toolkey", "TOOLKEY CODE", 2, 2, [](Call& call) {
        if (!call.Control().Toolbar().UserKeyDown(call.Text(0), call.Get<int>(1)))
            throw Error("no visible, enabled tool " + call.Text(0) + " to type in");
    });
    r.Add("closeband", "BAND", 1, 1,
          [](Call& call) { call.Control().Toolbar().UserCloseBand(call.Text(0)); });
}

void RegisterAnswers(Registry& r) {
    r.Add("answer", "Yes|No|OK|Cancel ...", 1, 64, [](Call& call) {
        std::vector<MsgAnswer> answers;
        for (size_t i = 0; i < call.Count(); ++i) {
            const std::string& a = call.Text(i);
            if (a == "Yes")
                answers.push_back(MsgAnswer::Yes);
            else if (a == "No")
                answers.push_back(MsgAnswer::No);
            else if (a == "OK")
                answers.push_back(MsgAnswer::OK);
            else if (a == "Cancel")
                answers.push_back(MsgAnswer::Cancel);
            else
                throw UsageError("argument " + std::to_string(i + 1) + " \"" + a +
                                 "\" is not Yes, No, OK or Cancel");
        }
        for (MsgAnswer a : answers) call.Ui().QueueAnswer(a);
    });
    r.Add("answer-file", "PATH|cancel", 1, 1, [](Call& call) {
        if (call.Text(0) == "cancel")
            call.Ui().QueueFile(std::nullopt);
        else
            call.Ui().QueueFile(call.Text(0));
    });
    r.Add("answer-dialog", "NAME [FIELD=VALUE ...]", 1, 256, [](Call& call) {
        std::vector<std::pair<std::string, std::string>> fields;
        for (size_t i = 1; i < call.Count(); ++i) {
            const std::string& a = call.Text(i);
            auto eq = a.find('=');
            if (eq == std::string::npos || eq == 0)
                throw UsageError("argument " + std::to_string(i + 1) + " is not FIELD=VALUE");
            fields.emplace_back(a.substr(0, eq), a.substr(eq + 1));
        }
        call.Ui().QueueDialog(call.Text(0), std::move(fields));
    });
}

void RegisterHostStatements(Registry& r) {
    r.Add("on", "EVENT [STATEMENT ...]", 1, 256, [](Call& call) {
        std::vector<std::string> statement;
        for (size_t i = 1; i < call.Count(); ++i) statement.push_back(call.Text(i));
        call.Host().AddEventHandler(call.Text(0), std::move(statement));
    });
    r.Add("echo", "[TEXT ...]", 0, 256, [](Call& call) {
        std::string line;
        for (size_t i = 0; i < call.Count(); ++i) line += (i ? " " : "") + call.Text(i);
        call.Print(OneLine(line));
    });
}

}  // namespace

void RegisterActionOps(Registry& r) {
    RegisterGridActions(r);
    RegisterToolActions(r);
    RegisterAnswers(r);
    RegisterHostStatements(r);
}

}  // namespace kwfy::script
