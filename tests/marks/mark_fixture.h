// A project database and a rate standard with one region mark, for the
// condition-mark tests.
//
// Rate standard: FL_JJF depends on DQ; FL_GLF on DQ and DX (DX is not defined);
// FL_QT has particular coefficients. FL_JJF is 5% in 一类地区 and 0 in 二类地区
// for any class, and 4% / 7% for the classes 土建 / 安装.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "control/control_core.h"
#include "db/database.h"
#include "db/schema.h"
#include "platform/scripted_ui.h"
#include "support/temp_dir.h"

namespace kwfy::test {

struct AfterEditCounter : FYTableListener {
    int afterEdit = 0;
    void AfterEdit() override { ++afterEdit; }
};

class MarkFixture : public ::testing::Test {
  protected:
    void SetUp() override {
        path = dir.File("work.mdb");
        rateStd = dir.File("std.RXFL");
        db::CreateFile(path, db::FileKind::Project);
        db::CreateFile(rateStd, db::FileKind::RateStandard);
        auto rs = db::Database::Open(rateStd);
        for (auto [id, key] : {std::pair{1, "FL_JJF"}, {2, "FL_GLF"}, {3, "FL_QT"}})
            rs.Execute("INSERT INTO FY_FL (ID, Key) VALUES (?,?)", {int64_t(id), std::string(key)});
        for (auto [id, mark] : {std::pair{1, "DQ"}, {2, "DQ"}, {2, "DX"}})
            rs.Execute("INSERT INTO FY_FL_WithMark (FLID, WithMarkKey) VALUES (?,?)",
                       {int64_t(id), std::string(mark)});
        rs.Execute("INSERT INTO FY_Mark (Key, ShortName, WithItem) VALUES (?,?,?)",
                   {std::string("DQ"), std::string("地区类别"),
                    std::string("一类地区|二类地区|三类地区（山区）")});
        const char* value = "INSERT INTO FY_FL_Value (FLID, Class, Ruler, Value) VALUES (1,?,?,?)";
        rs.Execute(value, {std::string(""), std::string("DQ=一类地区"), std::string("5%")});
        rs.Execute(value, {std::string(""), std::string("DQ=二类地区"), std::string("0")});
        rs.Execute(value, {std::string("土建"), std::string("DQ=一类地区"), std::string("4%")});
        rs.Execute(value, {std::string("安装"), std::string("DQ=一类地区"), std::string("7")});
        rs.Execute("INSERT INTO PatCoe (Class, Key, Coe) VALUES ('FL_QT', 'GLF', '1')");

        core.ctx.WorkDBFullName = path;
        core.ctx.WorkID = 1;
        core.ctx.AppPath = "/opt/app";
        core.work.CurQFClass = "建安费";
        core.work.RateStdPath = rateStd;
        core.events.Add(&events);
        core.fee.SetColumnIndexes();
        core.fee.InitGridLayout();
        Band& main = core.toolbar.GetBand("Main");
        for (int i = 0; i < 9; ++i) main.Add(NamedTool("Std" + std::to_string(i)));
    }

    db::Database Db() { return db::Database::Open(path); }

    static Tool NamedTool(std::string key, ToolKind kind = ToolKind::Button) {
        Tool t;
        t.key = std::move(key);
        t.kind = kind;
        return t;
    }

    // Stored FY rows of the category, one per rate text; returns their IDs.
    std::vector<int64_t> StoreRows(const std::vector<std::string>& rates) {
        auto db = Db();
        std::vector<int64_t> ids;
        int code = 0;
        for (const auto& fl : rates) {
            auto t = db.OpenTable("FY");
            t.AddNew();
            t.Set("WorkID", int64_t(1));
            t.Set("QFClass", core.work.CurQFClass);
            t.Set("NodeID", int64_t(0));
            t.Set("Code", int64_t(++code));
            t.Set("FL", fl);
            t.Update();
            ids.push_back(t.LastID());
        }
        return ids;
    }

    // Grid rows as the loader leaves them: stored rate text and shown rate.
    void GridRows(const std::vector<std::pair<std::string, std::string>>& specAndRate) {
        for (const auto& [spec, rate] : specAndRate) {
            core.grid.AddRow();
            const int r = core.grid.Rows() - 1;
            core.fee.setRateSpec(r, spec);
            core.fee.setRate(r, rate);
        }
    }

    void StoreChoice(const std::string& mark, const std::string& value) {
        Db().Execute("INSERT INTO FY_Mark (WorkID, QFClass, MarkKey, Value) VALUES (1,?,?,?)",
                     {core.work.CurQFClass, mark, value});
    }

    // "mark=value" of every stored choice of the project and category.
    std::vector<std::string> StoredChoices() {
        std::vector<std::string> out;
        auto rs = Db().Query("SELECT * FROM FY_Mark WHERE WorkID=1 AND QFClass=? ORDER BY MarkKey",
                             {core.work.CurQFClass});
        for (; !rs.Eof(); rs.MoveNext()) out.push_back(rs.Text("MarkKey") + "=" + rs.Text("Value"));
        return out;
    }

    std::vector<std::string> ToolKeys(const std::string& band) {
        std::vector<std::string> out;
        for (const auto& t : core.toolbar.GetBand(band).Tools()) out.push_back(t.key);
        return out;
    }

    TempDir dir;
    std::string path, rateStd;
    ScriptedUi ui;
    ControlCore core{ui};
    AfterEditCounter events;
};

}  // namespace kwfy::test
