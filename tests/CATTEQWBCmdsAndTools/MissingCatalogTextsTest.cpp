#include "CATWBServices.h"

#include "CATDlgDialog.h"
#include "CATDlgNotify.h"
#include "CATEnvironment.h"
#include "CATMsgCatalog.h"
#include "CATSettingRepository.h"
#include "CATWBVPMNavGUITable.h"
#include "ModuleSession.h"

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <unistd.h>

// A catalog that an installation has replaced may lack a key: the user then sees what the program
// holds itself.

namespace
{

class MissingCatalogTexts : public testing::Test
{
protected:
    MissingCatalogTexts()
    {
        std::filesystem::create_directories(m_directory / "catalogs");
        for (const char* catalog : {"CATIWBWarning", "CATWBVPMNavReportPanel"}) {
            const std::string name = std::string(catalog) + ".toml";
            std::ofstream(m_directory / "catalogs" / name) << "Other = \"another text\"\n";
        }
        UseSettingsIn(m_directory.string());
        CATMsgCatalog::SetLanguage("en");
    }
    ~MissingCatalogTexts() override
    {
        CATSettingRepository::CloseAll();
        CATSetEnvironmentSource({});
        CATMsgCatalog::SetLanguage("en");
        std::filesystem::remove_all(m_directory);
    }
    void UseSettingsIn(const std::optional<std::string>& settings) const
    {
        CATSettingRepository::CloseAll();
        const std::string resources = m_directory.string();
        CATSetEnvironmentSource([=](const char* variable) -> std::optional<std::string> {
            const std::string name = variable;
            if (name == "WB_RESOURCE_PATH") {
                return resources;
            }
            return name == "CATUserSettingPath" ? settings : std::nullopt;
        });
    }

    const SilentStreams m_silent;
    const std::filesystem::path m_directory =
        std::filesystem::temp_directory_path() / ("wb-catalogs-" + std::to_string(getpid()));
};

TEST_F(MissingCatalogTexts, QuestionIsWordedByTheProgram)
{
    CATWBVPMNavGUITable table;
    table.getFilter = [](const CATUnicodeString&) {
        return CATUnicodeString("0|No Filter");
    };
    const CATWBVPMNavGUITable before = CATWBVPMNavGUISetTable(table);
    std::optional<CATDlgNotify::Shown> shown;
    CATDlgNotify::SetAnswerer([&shown](const CATDlgNotify::Shown& box) {
        shown = box;
        return std::optional<int>(3);
    });
    CATDlgDialog parent(nullptr, "Parent", 0x4001);
    EXPECT_TRUE(CATWBServices::ValidateFilterCondition(&parent, "ROOT"));
    CATDlgNotify::SetAnswerer({});
    CATWBVPMNavGUISetTable(before);
    ASSERT_TRUE(shown.has_value());
    EXPECT_EQ(shown->title, "WBWarnings001.Title");
    EXPECT_EQ(shown->text, "No W&B filter is currently defined.\nThe processing time may be "
                           "important for large PRC.\nDo you want to continue?");
}

TEST_F(MissingCatalogTexts, MissingSettingsRepositoryIsNamedByItsKey)
{
    UseSettingsIn(std::nullopt);
    CATUnicodeString message("old");
    EXPECT_FALSE(CATWBServices::IsStableOrderUsed(message));
    EXPECT_EQ(message, "SettingRepositoryError001");
}

TEST_F(MissingCatalogTexts, UnreadableSettingIsNamedByItsKey)
{
    CATUnicodeString message("old");
    EXPECT_FALSE(CATWBServices::IsStableOrderUsed(message));
    EXPECT_EQ(message, "SettingRepositoryError002");
}

} // namespace
