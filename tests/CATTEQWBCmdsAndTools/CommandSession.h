#pragma once

#include "../System/TestEnvironment.h"
#include "CommandServer.h"
#include "ModuleSession.h"
#include "TemporaryDirectory.h"

#include "CATApplicationFrame.h"
#include "CATDlgNotify.h"
#include "CATMsgCatalog.h"
#include "CATSession.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// A box that a command showed.
struct ShownBox
{
    std::string title;
    std::string text;
    int style;
    bool blocking = false;
    bool operator==(const ShownBox&) const = default;
};
inline void PrintTo(const ShownBox& box, std::ostream* stream)
{
    *stream << box.title << ": " << box.text << " (" << std::hex << box.style << ")";
}

/// A session with a main window, in which a command runs; its texts are English until the test
/// says otherwise.
class CommandSession : public testing::Test
{
protected:
    CommandSession()
    {
        CATSetServerCaller(server);
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) -> std::optional<int> {
            boxes.push_back(
                {box.title.ToStdString(), box.text.ToStdString(), box.style, box.blocking});
            return 1;
        });
        frame = std::make_unique<CATApplicationFrame>(
            new CATDlgDialog(&CATSession::Root(), "MainWindow", 0));
    }
    ~CommandSession() override
    {
        CATSession::Close();
        frame.reset();
        CATDlgNotify::SetAnswerer({});
        CATSetServerCaller(nullptr);
        environment.Unset(kResources);
        CATMsgCatalog::SetLanguage("en");
    }

    /// From now on the catalog of that name has none of the texts that are asked for.
    void LoseTextsOf(const std::string& catalog)
    {
        m_resources.Write("catalogs/" + catalog + ".toml", "Other = \"another text\"\n");
        environment.Set(kResources, m_resources.Path());
        CATMsgCatalog::SetLanguage("en"); // reads the catalogs anew
    }

    std::shared_ptr<CommandServer> server = std::make_shared<CommandServer>();
    TestEnvironment environment;
    DiagnosticCapture output{CATDiagnosticOutput()};
    DiagnosticCapture errors{CATDiagnosticErrors()};
    std::unique_ptr<CATApplicationFrame> frame;
    std::vector<ShownBox> boxes;

private:
    static constexpr const char* kResources = "WB_RESOURCE_PATH";
    TemporaryDirectory m_resources;
};
