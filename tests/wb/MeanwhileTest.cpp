#include "TemporaryDirectory.h"

#include <sys/stat.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>

namespace
{
/// Two imports at once: the first waits for its table, which comes through a pipe, while the second
/// makes the database. The table that then arrives is wrong.
class Meanwhile : public testing::Test
{
protected:
    int Import(const std::string& arguments) const
    {
        return WEXITSTATUS(std::system(Command(arguments).c_str()));
    }
    /// The status of the first import; the second must succeed.
    int ImportBehindAnother(const std::string& arguments) const
    {
        const std::string pipe = folder.At("pipe.csv");
        EXPECT_EQ(mkfifo(pipe.c_str(), 0600), 0);
        std::FILE* first = popen(Command("pipe.csv " + arguments).c_str(), "r");
        {
            // Opening waits until the first import has begun to read.
            std::ofstream table(pipe);
            EXPECT_EQ(Import("good.csv --into x.db"), 0);
            table << "part,quantity\nBAD,many\n";
        }
        return WEXITSTATUS(pclose(first));
    }

    TemporaryDirectory folder;
    std::string good = folder.Write("good.csv", "part\nGOOD\n");

private:
    std::string Command(const std::string& arguments) const
    {
        return "cd '" + folder.Path() + "' && '" WB_PROGRAM "' import " + arguments +
               " >/dev/null 2>&1";
    }
};
} // namespace

TEST_F(Meanwhile, ARefusedFirstImportLeavesWhatAnotherMade)
{
    EXPECT_EQ(ImportBehindAnother("--into x.db"), 1);
    EXPECT_TRUE(std::filesystem::exists(folder.At("x.db")));
    EXPECT_EQ(Import("good.csv --into x.db"), 0);
}

TEST_F(Meanwhile, ARefusedCheckLeavesWhatAnotherMade)
{
    EXPECT_EQ(ImportBehindAnother("--into x.db --check"), 1);
    EXPECT_TRUE(std::filesystem::exists(folder.At("x.db")));
}

TEST_F(Meanwhile, NoFileOfARefusedFirstImportStays)
{
    folder.Write("bad.csv", "part,quantity\nBAD,many\n");
    EXPECT_EQ(Import("bad.csv --into x.db"), 1);
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
        EXPECT_EQ(entry.path().extension(), ".csv") << entry.path();
    }
}

TEST_F(Meanwhile, ALinkThatLeadsNowhereIsFollowed)
{
    std::filesystem::create_symlink("y.db", folder.At("x.db"));
    EXPECT_EQ(Import("good.csv --into x.db"), 0);
    EXPECT_TRUE(std::filesystem::is_regular_file(folder.At("y.db")));
}
