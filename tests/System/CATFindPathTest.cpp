#include "CATFindPath.h"
#include "TemporaryDirectory.h"
#include "TestEnvironment.h"

#include <gtest/gtest.h>

namespace
{

TEST(CATFindPath, FindsTheFirstDirectoryThatHasTheFile)
{
    const TemporaryDirectory directory;
    directory.Write("a/only", "");
    directory.Write("a/both", "");
    directory.Write("b/both", "");
    const CATUnicodeString path = directory.At("b") + ";" + directory.At("a");
    EXPECT_EQ(CATFindPath("both", path), directory.At("b/both"));
    EXPECT_EQ(CATFindPath("only", path), directory.At("a/only"));
    EXPECT_EQ(CATFindPath("none", path), "");
}

TEST(CATFindPath, SkipsEmptyEntriesAndDirectories)
{
    const TemporaryDirectory directory;
    directory.Write("a/name/inside", "");
    directory.Write("b/name", "");
    const CATUnicodeString path = ";;" + directory.At("a") + ";;" + directory.At("b") + "/;";
    EXPECT_EQ(CATFindPath("name", path), directory.At("b/name"));
    EXPECT_EQ(CATFindPath("", path), "");
    EXPECT_EQ(CATFindPath("name", ""), "");
}

TEST(CATFindResource, LooksThroughTheVariablesDirectoriesBeforeItsOwn)
{
    const TemporaryDirectory directory;
    directory.Write("catalogs/X.toml", "");
    TestEnvironment environment;
    environment.Set("WB_RESOURCE_PATH", "/nowhere;" + directory.Path());
    const std::vector<std::string> directories = CATResourceDirectories();
    ASSERT_EQ(directories.size(), 3U);
    EXPECT_EQ(directories[0], "/nowhere");
    EXPECT_EQ(directories[1], directory.Path());
    EXPECT_EQ(CATFindResource("catalogs/X.toml"), directory.At("catalogs/X.toml"));
    EXPECT_EQ(CATFindResource("catalogs/Y.toml"), "");
}

TEST(CATFindResource, OwnDirectoryStandsBesideTheLibraries)
{
    const TestEnvironment environment;
    const std::filesystem::path build(WB_BINARY_DIR);
    EXPECT_EQ(CATResourceDirectories(),
              std::vector<std::string>{(std::filesystem::canonical(build) / "resources").string()});
}

} // namespace
