#include "feetable/category_box.h"

#include <algorithm>

#include "db/sqlite_util.h"
#include "kwfy/error.h"

namespace kwfy::feetable {

namespace {

// Text comparison as the database's NOCASE collation does it (ASCII letters).
bool SameText(const std::string& a, const std::string& b) {
    auto lower = [](unsigned char c) { return (c >= 'A' && c <= 'Z') ? c + ('a' - 'A') : c; };
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [&](char x, char y) {
               return lower(static_cast<unsigned char>(x)) == lower(static_cast<unsigned char>(y));
           });
}

void AddOnce(std::vector<std::string>& list, std::string category) {
    if (category.empty()) return;
    for (const auto& known : list)
        if (SameText(known, category)) return;
    list.push_back(std::move(category));
}

Tool& CategoryTool(ControlCore& core) {
    Tool* box = core.toolbar.FindTool("Main", kCategoryBox);
    if (!box)
        throw Error(std::string("the toolbar band \"Main\" has no tool \"") + kCategoryBox + "\"");
    return *box;
}

// The subtree is read row by row and the walk stops where it ends, so a node
// near the top of a large project does not read every item.
std::vector<std::string> SubtreeCategories(db::Database& project, const Context& ctx) {
    std::string sql = "SELECT ID, Level, QFClass FROM Items WHERE WorkID=?";
    db::Params params{int64_t(ctx.WorkID)};
    if (!ctx.TableClass.empty()) {
        sql += " AND TableClass=?";
        params.push_back(ctx.TableClass);
    }
    sql += " ORDER BY OCode";
    db::detail::Statement st(project.Handle(), project.Path(), sql);
    st.Bind(params);

    std::vector<std::string> list;
    bool inside = false;
    double nodeLevel = 0;
    while (st.Step()) {
        const double level = st.Column(1).Number();
        if (!inside) {
            if (st.Column(0).Int() != ctx.NodeID) continue;
            inside = true;
            nodeLevel = level;
        } else if (level <= nodeLevel) {
            break;
        }
        AddOnce(list, st.Column(2).Text());
    }
    return list;
}

}  // namespace

std::vector<std::string> GetNodeQFClassList(db::Database& project, const Context& ctx) {
    if (ctx.NodeID >= 1) return SubtreeCategories(project, ctx);
    std::vector<std::string> list;
    auto rs = project.Query("SELECT QFClass FROM Items WHERE WorkID=? GROUP BY QFClass",
                            {int64_t(ctx.WorkID)});
    for (; !rs.Eof(); rs.MoveNext()) AddOnce(list, rs.Text("QFClass"));
    return list;
}

void FillQFClassCombo(ControlCore& core, db::Database& project, const std::string& category) {
    BusyScope busy(core.work);
    std::vector<std::string> list = GetNodeQFClassList(project, core.ctx);
    if (core.ctx.QFKind == 1 || list.empty()) list = {category};
    Tool& box = CategoryTool(core);
    box.items = std::move(list);
    SelectCategory(core, category);
    core.toolbar.RecalcLayout();
}

const std::vector<std::string>& CategoryBoxItems(ControlCore& core) {
    return CategoryTool(core).items;
}

const std::string& CategoryBoxText(ControlCore& core) {
    return CategoryTool(core).text;
}

void SelectCategory(ControlCore& core, const std::string& category) {
    Tool& box = CategoryTool(core);
    auto it = std::find(box.items.begin(), box.items.end(), category);
    if (it == box.items.end())
        it = std::find_if(box.items.begin(), box.items.end(),
                          [&](const std::string& item) { return SameText(item, category); });
    box.listIndex = it == box.items.end() ? -1 : int(it - box.items.begin());
    box.text = it == box.items.end() ? category : *it;
}

}  // namespace kwfy::feetable
