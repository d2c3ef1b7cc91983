#include "SampleProducts.h"

#include "TemporaryDirectory.h"
#include "WBStore.h"

#include <gmock/gmock.h>

#include <cstdlib>

using testing::EndsWith;
using testing::HasSubstr;

TEST(SampleProducts, TheDatabaseHoldsBothSamples)
{
    const TemporaryDirectory folder;
    std::string problem;
    const std::string path = SampleDatabase(folder.Path(), problem);
    ASSERT_FALSE(path.empty()) << problem;
    const wb::Store::Opened opened = wb::Store::Open(path);
    ASSERT_TRUE(opened.store) << opened.error;
    std::vector<std::string> roots;
    for (const wb::PartLine& root : opened.store->Roots()) {
        roots.push_back(root.identifier);
    }
    EXPECT_THAT(roots, testing::ElementsAre("LA1", "SC1"));
}

TEST(SampleProducts, TheSecondCallFindsTheFirstOnesDatabase)
{
    const TemporaryDirectory folder;
    std::string problem;
    const std::string path = SampleDatabase(folder.Path(), problem);
    const auto made = std::filesystem::last_write_time(path);
    EXPECT_EQ(SampleDatabase(folder.Path(), problem), path);
    EXPECT_EQ(std::filesystem::last_write_time(path), made);
    EXPECT_FALSE(std::filesystem::exists(path + ".unfinished"));
}

TEST(SampleProducts, ChangedSamplesGetADatabaseOfTheirOwn)
{
    const TemporaryDirectory folder;
    std::string problem;
    const std::string shipped = SampleDatabase(folder.Path(), problem);
    std::filesystem::create_directories(folder.At("data"));
    std::filesystem::copy(WB_SOURCE_DIR "/data/small_satellite.csv",
                          folder.At("data/light_aeroplane.csv"));
    setenv("WB_RESOURCE_PATH", folder.Path().c_str(), 1);
    const std::string changed = SampleDatabase(folder.Path(), problem);
    unsetenv("WB_RESOURCE_PATH");
    EXPECT_FALSE(changed.empty()) << problem;
    EXPECT_NE(changed, shipped);
}

TEST(SampleProducts, AWrongSampleIsRefusedAndLeavesNoDatabase)
{
    const TemporaryDirectory folder;
    std::filesystem::create_directories(folder.At("data"));
    folder.Write("data/light_aeroplane.csv", "parent,what\n");
    setenv("WB_RESOURCE_PATH", folder.Path().c_str(), 1);
    std::string problem;
    EXPECT_EQ(SampleDatabase(folder.Path(), problem), "");
    unsetenv("WB_RESOURCE_PATH");
    EXPECT_THAT(problem, HasSubstr("what"));
}

TEST(SampleProducts, UserDirectoriesFollowTheEnvironment)
{
    const TemporaryDirectory folder;
    setenv("XDG_DATA_HOME", folder.At("data-home").c_str(), 1);
    setenv("XDG_CONFIG_HOME", folder.At("config-home").c_str(), 1);
    EXPECT_EQ(UserDataDirectory(), folder.At("data-home") + "/wb");
    EXPECT_TRUE(std::filesystem::is_directory(folder.At("data-home/wb")));
    EXPECT_EQ(UserSettingsDirectory(), folder.At("config-home") + "/wb");
    unsetenv("XDG_DATA_HOME");
    unsetenv("XDG_CONFIG_HOME");
    setenv("HOME", folder.At("home").c_str(), 1);
    EXPECT_THAT(UserDataDirectory(), EndsWith("/home/.local/share/wb"));
    EXPECT_THAT(UserSettingsDirectory(), EndsWith("/home/.config/wb"));
}
