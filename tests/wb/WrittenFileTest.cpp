#include "WrittenFile.h"

#include "TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{
struct WrittenFile : testing::Test
{
    WrittenFile() { folder.Write("a.db", "x"); }

    std::string Problem(const std::string& written, const std::string& other) const
    {
        return WrittenFileProblem(written, {{"the database", other}});
    }

    TemporaryDirectory folder;
    const std::string database = folder.At("a.db");
};
} // namespace

TEST_F(WrittenFile, IsRefusedWhereItIsAnotherOne)
{
    EXPECT_EQ(Problem(database, database),
              "expected a file of its own, found \"" + database + "\", which is the database");
    EXPECT_EQ(Problem(folder.At("b.csv"), database), "");
}

TEST_F(WrittenFile, IsFoundUnderEveryName)
{
    std::filesystem::create_symlink("a.db", folder.At("link.db"));
    std::filesystem::create_hard_link(database, folder.At("second.db"));
    for (const char* name : {"./a.db", "nowhere/../a.db", "link.db", "second.db"}) {
        EXPECT_NE(Problem(folder.At(name), database), "") << name;
    }
}

TEST_F(WrittenFile, IsFoundBeforeItIsMade)
{
    EXPECT_NE(Problem(folder.At("new.csv"), folder.At("./new.csv")), "");
    EXPECT_EQ(Problem(folder.At("new.csv"), folder.At("newer.csv")), "");
}

TEST_F(WrittenFile, IsFoundWithAndWithoutAFolderBeforeItIsMade)
{
    const std::string name = "nobody-makes-this.csv";
    EXPECT_NE(Problem("./" + name, name), "");
    EXPECT_NE(Problem(name, std::filesystem::absolute(name).string()), "");
}

TEST_F(WrittenFile, DevicesAndStreamsAndMissingNamesAreNone)
{
    for (const char* name : {"/dev/null", "-", ""}) {
        EXPECT_EQ(Problem(name, name), "") << name;
    }
}

TEST_F(WrittenFile, EachOfTheOthersIsLookedAt)
{
    EXPECT_EQ(WrittenFileProblem(database, {{"the story", ""}, {"the product", database}}),
              "expected a file of its own, found \"" + database + "\", which is the product");
}
