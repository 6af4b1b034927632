#include "db/schema.h"

#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace kwfy::db {
namespace {

TEST(Schema, EveryKindCreatesItsTables) {
    test::TempDir dir;
    for (auto kind :
         {FileKind::Project, FileKind::RateStandard, FileKind::RateFile, FileKind::Template,
          FileKind::Config, FileKind::Parameter, FileKind::RateTemplateIndex}) {
        std::string path = dir.File("kind" + std::to_string(int(kind)) + ".db");
        CreateFile(path, kind);
        auto db = Database::OpenReadOnly(path);
        for (const auto& table : Tables(kind)) {
            EXPECT_TRUE(db.TableExists(table.name)) << table.name;
            auto rs = db.Query("SELECT * FROM \"" + table.name + "\"");
            EXPECT_EQ(rs.FieldNames().size(), table.columns.size()) << table.name;
        }
    }
    EXPECT_THROW(Table(FileKind::Config, "FY"), Error);
}

TEST(Schema, OptionalColumnsFollowTheOptions) {
    test::TempDir dir;
    CreateFile(dir.File("old.db"), FileKind::Project,
               {.withLevel = false, .withFYFileName = false});
    CreateFile(dir.File("new.db"), FileKind::Project);
    auto old = Database::Open(dir.File("old.db"));
    auto now = Database::Open(dir.File("new.db"));
    EXPECT_FALSE(old.OpenTable("FY").FieldExists("Level"));
    EXPECT_FALSE(old.OpenTable("FY_FLFileName").FieldExists("FY_FileName"));
    EXPECT_TRUE(now.OpenTable("FY").FieldExists("Level"));
    EXPECT_TRUE(now.OpenTable("FY_FLFileName").FieldExists("FY_FileName"));
}

TEST(Schema, HotQueriesUseAnIndex) {
    test::TempDir dir;
    CreateFile(dir.File("p.db"), FileKind::Project);
    auto db = Database::Open(dir.File("p.db"));
    for (const char* query :
         {"SELECT * FROM Items_Price WHERE ItemsID=1 AND Key='$A$'",
          "SELECT * FROM Items_Price WHERE Key='$A$'",
          "SELECT * FROM FY WHERE WorkID=1 AND QFClass='A' AND NodeID=0 ORDER BY Code",
          "SELECT * FROM FY_Mark WHERE WorkID=1 AND MarkKey='M' AND QFClass='A'",
          "SELECT Key, Sum(Items_Price.Price) AS SumPrice FROM Items_Price LEFT JOIN Items ON "
          "Items_Price.ItemsID=Items.ID WHERE WorkID=1 AND QFClass='A' GROUP BY Items_Price.Key"}) {
        auto plan = db.Query(std::string("EXPLAIN QUERY PLAN ") + query);
        for (; !plan.Eof(); plan.MoveNext()) {
            std::string step = plan.Text("detail");
            if (step.rfind("SCAN", 0) == 0) {
                EXPECT_NE(step.find("USING"), std::string::npos) << query << ": " << step;
            }
        }
    }
}

}  // namespace
}  // namespace kwfy::db
