#include "ComputePartSession.h"

#include "CATEnvironment.h"
#include "CATMsgCatalog.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

// An installation may have replaced the command's catalog by one that lacks keys: the user then
// sees what the program holds itself.

namespace
{

using testing::ElementsAre;

class ComputePartTexts : public ComputePart
{
protected:
    ComputePartTexts()
    {
        std::filesystem::create_directories(m_resources / "catalogs");
        std::ofstream(m_resources / "catalogs" / "CATTEQWBComputePartCmd.toml")
            << "Other = \"another text\"\n";
        CATSetEnvironmentSource([this](const char* name) -> std::optional<std::string> {
            if (std::string_view(name) == "WB_RESOURCE_PATH") {
                return m_resources.string();
            }
            return std::nullopt;
        });
        CATMsgCatalog::SetLanguage("en");
    }
    ~ComputePartTexts() override
    {
        CATSetEnvironmentSource({});
        CATMsgCatalog::SetLanguage("en");
        std::filesystem::remove_all(m_resources);
    }

private:
    std::filesystem::path m_resources =
        std::filesystem::temp_directory_path() / ("wb-compute-part-" + std::to_string(getpid()));
};

} // namespace

TEST_F(ComputePartTexts, PromptHasADefault)
{
    StartIn(kNavigator);
    EXPECT_EQ(frame->Prompt(), "Select a Part/Assy in this workbench");
}

TEST_F(ComputePartTexts, WrongEnvironmentHasADefault)
{
    aeroplane.document->environment = "FILE";
    StartIn(kStructure);
    Pick(aeroplane.Path(4));
    EXPECT_THAT(boxes, ElementsAre(Box{"Wrong Environment",
                                       "The selected object belongs to a document outside the PDM.",
                                       0x10000000}));
}

TEST_F(ComputePartTexts, CommunicationErrorHasADefault)
{
    StartIn(kNavigator);
    server->answer = "";
    Pick(Firewall());
    EXPECT_THAT(boxes, ElementsAre(Box{"Communication Error", "The server could not be reached.",
                                       0x10000000}));
}

TEST_F(ComputePartTexts, ServerErrorHasADefault)
{
    StartIn(kNavigator);
    server->answer = "#WB_ERROR#No such part.";
    Pick(Firewall());
    EXPECT_THAT(boxes, ElementsAre(Box{"Server Error", "No such part.", 0x10000000}));
}
