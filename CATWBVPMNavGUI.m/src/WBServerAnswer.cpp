#include "WBServerAnswer.h"

#include "WBPanelTexts.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "CATWBServices.h"

#include <string_view>

namespace
{

constexpr int kErrorStyle = 0x10000000;
constexpr int kWarningStyle = 0x8000000;

/// A line that begins so says that there is no result to speak of, in every language.
bool HasErrors(const CATUnicodeString& warning)
{
    constexpr std::string_view kError = "ERROR";
    return warning.View().starts_with(kError) || warning.Contains("\n" + CATUnicodeString(kError));
}

} // namespace

std::optional<CATUnicodeString> WBCheckedAnswer(CATDialog* window, const CATUnicodeString& answer,
                                                const CATUnicodeString& noAnswer)
{
    const CATUnicodeString marker = CATENOWBCSCommonDefinitions::errMsgHeader;
    if (answer.Contains(marker)) {
        // As everywhere, as many characters as the marker has are cut off the start.
        CATWBServices::DisplayMsg(window,
                                  WBPanelText("ServerError.Title", "@The server reports an error"),
                                  answer.Part(marker.Length()), kErrorStyle);
        return std::nullopt;
    }
    if (answer.IsEmpty()) {
        CATWBServices::DisplayMsg(
            window, WBPanelText("CommunicationError.Title", "@No answer from the server"), noAnswer,
            kErrorStyle);
        return std::nullopt;
    }
    return answer;
}

void WBTellUnreadable(CATDialog* window)
{
    CATWBServices::DisplayMsg(
        window, WBPanelText("AnswerError.Title", "@The answer cannot be read"),
        WBPanelText("AnswerError.Text",
                    "@The answer of the server is incomplete or damaged, so nothing "
                    "was taken from it: what is shown is as it was before."),
        kErrorStyle);
}

void WBShowWarning(CATDialog* window, const CATUnicodeString& warning,
                   const WBWarningTitles& titles)
{
    if (warning.IsEmpty()) {
        return;
    }
    CATUnicodeString shown;
    CATWBServices::CleanWarningForDisplay(warning, shown);
    const bool isError = HasErrors(warning);
    CATWBServices::DisplayMsg(window, isError ? titles.errors : titles.warnings, shown,
                              isError ? kErrorStyle : kWarningStyle);
}
