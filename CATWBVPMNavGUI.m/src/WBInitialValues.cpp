#include "WBInitialValues.h"

#include "WBPanelTexts.h"
#include "WBServerAnswer.h"

#include "CATHandle.h"
#include "CATWBAllDataBuffer.h"
#include "RunServerCode.h"

namespace
{

CATUnicodeString Field(const CATUnicodeString& text)
{
    return text + "|";
}

struct Identity
{
    explicit Identity(const CATWBAllDataBuffer& record)
    {
        record.GetCurrentInstanceID(instance);
        record.GetCurrentPartID(part);
        record.GetCurrentPartVersion(version);
        record.GetCurrentPRCID(root);
        hasInstance = Field(record.HasInstInENOVIA() ? "1" : "0");
        path = Field(CATUnicodeString::FromInt(record.GetInstancePathDepth()));
        if (record.GetInstancePathDepth() > 0) {
            path += Field(record.GetInstancePath());
        }
    }
    CATUnicodeString hasInstance;
    CATUnicodeString instance;
    CATUnicodeString part;
    CATUnicodeString version;
    CATUnicodeString root;
    CATUnicodeString path; // count and names
};

} // namespace

CATUnicodeString WBInitialValuesRequest(const CATWBAllDataBuffer& record)
{
    const Identity identity(record);
    // The server requires an empty second field.
    return identity.hasInstance + Field({}) + Field(identity.root) + Field(identity.instance) +
           Field(identity.part) + Field(identity.version) + identity.path;
}

bool WBReadAnew(CATDialog* window, CATWBAllDataBuffer& record)
{
    const std::optional<CATUnicodeString> answer = WBCheckedAnswer(
        window, RunServerCode("WBCompPartGetInitialValues", WBInitialValuesRequest(record)),
        WBPanelText("NotReadAnew.Text", "@The server did not answer, so the values that are shown "
                                        "may be older than those of the database."));
    if (!answer) {
        return false;
    }
    const Identity identity(record);
    const CATUnicodeString stream = identity.hasInstance + Field(identity.instance) +
                                    Field(identity.part) + Field(identity.version) +
                                    Field(identity.root) + identity.path + *answer;
    const auto fresh = CATHandle<CATWBAllDataBuffer>::Adopt(new CATWBAllDataBuffer);
    if (fresh->SetAllData(stream, true) != S_OK) {
        WBTellUnreadable(window);
        return false;
    }
    fresh->SetIsLeaf(record.IsLeaf());
    if (!record.HasInstInENOVIA()) {
        // Its place comes from the session and not from the server.
        CATRawColldouble place;
        record.GetListOfTransMatrix(place);
        fresh->SetListOfTransMatrix(place);
    }
    record = *fresh;
    return true;
}
