#include "WBMessages.h"

#include "CATDlgNotify.h"
#include "CATMsgCatalog.h"
#include "RunServerCode.h"

#include <memory>

namespace
{

constexpr int kQuestionStyle = 0x8800200;
constexpr int kRefused = 4;
constexpr const char* kReportCatalog = "CATWBVPMNavReportPanel";

} // namespace

bool ConfirmComputeWithoutFilter(CATDialog& parent)
{
    const auto box = std::make_unique<CATDlgNotify>(&parent, "ContinueCompute", kQuestionStyle);
    box->SetTitle(
        CATMsgCatalog::BuildMessage(kReportCatalog, "WBWarnings001.Title", "WBWarnings001.Title"));
    box->SetText(CATMsgCatalog::BuildMessage(
        kReportCatalog, "WBNoFilter.Message",
        "@No W&B filter is currently defined.\nThe processing time may be important for large "
        "PRC.\nDo you want to continue?"));
    return box->DisplayBlocking() != kRefused;
}

void ShowMessage(CATDialog& parent, const CATString& name, const CATUnicodeString& text, int style)
{
    auto box = std::make_unique<CATDlgNotify>(&parent, name, style);
    box->SetText(text);
    box.release()->DisplayNonBlocking(); // the box deletes itself when it is closed
}

CATUnicodeString PendingServerWarning()
{
    return RunServerCode("WBWarningMsg");
}
