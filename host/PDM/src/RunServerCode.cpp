#include "RunServerCode.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "CATPDMMessages.h"
#include "CATServerCall.h"
#include "CATToldCalls.h"

#include <string>

namespace
{
/// The error marker in front makes every reader of answers show the sentence to the user.
CATUnicodeString CancelledAnswer()
{
    return CATUnicodeString(CATENOWBCSCommonDefinitions::errMsgHeader) + PDMText(kCancelled);
}
} // namespace

long RunServerCode(const CATUnicodeString& method, const CATVariant& input, CATVariant& output)
{
    CATUnicodeString request;
    ConvertVariant(input, request);
    const std::string methodName = method.ToStdString();
    const std::string requestText = request.ToStdString();
    std::string answer;
    const CATServerCallEnd end =
        CATCallServer([&](CATServerCaller& caller, CATServerCallState& state) {
            answer = caller.CallMethod(methodName, requestText, state);
        });
    if (end != CATServerCallEnd::NotMade) {
        CATTellServerCall(method);
    }
    if (end == CATServerCallEnd::Cancelled) {
        return BuildVariant(CancelledAnswer(), output);
    }
    if (end != CATServerCallEnd::Done || answer.empty()) {
        BuildVariant({}, output);
        return E_FAIL;
    }
    return BuildVariant(answer, output);
}

CATUnicodeString RunServerCode(const CATUnicodeString& method, const CATUnicodeString& request)
{
    CATVariant input;
    CATVariant output;
    CATUnicodeString answer;
    BuildVariant(request, input);
    RunServerCode(method, input, output);
    ConvertVariant(output, answer);
    return answer;
}
