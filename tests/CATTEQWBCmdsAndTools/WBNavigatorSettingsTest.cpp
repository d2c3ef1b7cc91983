#include "CATWBServices.h"

#include "CATEnvironment.h"
#include "CATMsgCatalog.h"
#include "CATSettingRepository.h"
#include "ModuleSession.h"

#include <filesystem>
#include <optional>
#include <string>
#include <unistd.h>

namespace
{

/// A user's settings directory of the test's own, or none at all.
class IsStableOrderUsed : public testing::Test
{
protected:
    IsStableOrderUsed()
    {
        CATMsgCatalog::SetLanguage("en");
        std::filesystem::create_directories(m_directory);
        UseDirectory(m_directory.string());
    }
    ~IsStableOrderUsed() override
    {
        CATSettingRepository::CloseAll();
        CATSetEnvironmentSource({});
        std::filesystem::remove_all(m_directory);
    }
    static void UseDirectory(const std::optional<std::string>& directory)
    {
        CATSettingRepository::CloseAll();
        CATSetEnvironmentSource([directory](const char* name) -> std::optional<std::string> {
            return std::string(name) == "CATUserSettingPath" ? directory : std::nullopt;
        });
    }
    static CATSettingRepository& Navigator()
    {
        return *CATSettingRepository::GetRepository("VPMNavigator");
    }

    const SilentStreams m_silent;
    const std::filesystem::path m_directory =
        std::filesystem::temp_directory_path() / ("wb-module-" + std::to_string(getpid()));
    CATUnicodeString m_message = "old";
};

TEST_F(IsStableOrderUsed, OneMeansYes)
{
    Navigator().WriteSetting("StableOrdering", 1);
    const DiagnosticCapture heard;
    EXPECT_TRUE(CATWBServices::IsStableOrderUsed(m_message));
    EXPECT_EQ(m_message, "");
    EXPECT_THAT(heard.Lines(), testing::ElementsAre("Using \"Stable order\" option"));
}

TEST_F(IsStableOrderUsed, AnyOtherValueMeansNo)
{
    for (const int value : {0, 2, -1}) {
        Navigator().WriteSetting("StableOrdering", value);
        const DiagnosticCapture heard;
        EXPECT_FALSE(CATWBServices::IsStableOrderUsed(m_message)) << value;
        EXPECT_EQ(m_message, "");
        EXPECT_THAT(heard.Lines(), testing::ElementsAre("Not using \"Stable order\" option"));
    }
}

TEST_F(IsStableOrderUsed, MissingRepositoryIsToldToTheUser)
{
    UseDirectory(std::nullopt);
    EXPECT_FALSE(CATWBServices::IsStableOrderUsed(m_message));
    EXPECT_EQ(m_message, "The settings of the navigator cannot be opened. Its option for a stable "
                         "order is taken to be off.");
}

TEST_F(IsStableOrderUsed, UnreadableSettingIsToldToTheUser)
{
    Navigator().WriteSetting("StableOrdering", CATUnicodeString("on"));
    EXPECT_FALSE(CATWBServices::IsStableOrderUsed(m_message));
    EXPECT_EQ(m_message, "The navigator's option for a stable order cannot be read. It is taken to "
                         "be off.");
}

TEST_F(IsStableOrderUsed, MissingSettingIsToldToTheUser)
{
    EXPECT_FALSE(CATWBServices::IsStableOrderUsed(m_message));
    EXPECT_EQ(m_message, "The navigator's option for a stable order cannot be read. It is taken to "
                         "be off.");
}

} // namespace
