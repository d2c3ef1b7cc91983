#include "WBValueDetails.h"

#include "CATDiagnostics.h"
#include "CATENOWBCSCommonDefinitions.h"
#include "CATVariant.h"
#include "CATWBToken.h"
#include "ENOWBAllDataBuffer.h"
#include "RunServerCode.h"

namespace
{

const CATUnicodeString kSeparator = "|";

CATUnicodeString RequestFor(const ENOWBAllDataBuffer& record)
{
    CATUnicodeString root;
    CATUnicodeString instance;
    CATUnicodeString part;
    CATUnicodeString version;
    record.GetCurrentPRCID(root);
    record.GetCurrentInstanceID(instance);
    record.GetCurrentPartID(part);
    record.GetCurrentPartVersion(version);
    CATUnicodeString request;
    for (const CATUnicodeString& field :
         {root, instance, part, version,
          CATUnicodeString::FromInt(record.GetInstancePathDepth())}) {
        request.Append(field).Append(kSeparator);
    }
    if (record.GetInstancePathDepth() > 0) {
        request.Append(record.GetInstancePath()).Append(kSeparator);
    }
    return request;
}

/// "0" or "1".
bool ReadFlag(const CATUnicodeString& text, bool& flag)
{
    flag = text == CATUnicodeString("1");
    return flag || text == CATUnicodeString("0");
}

} // namespace

WBValueDetails WBValueDetails::Ask(const ENOWBAllDataBuffer& record)
{
    CATVariant input;
    CATVariant output;
    CATUnicodeString answer;
    BuildVariant(RequestFor(record), input);
    WBValueDetails details;
    if (RunServerCode("WBGetValueDetails", input, output) != S_OK ||
        ConvertVariant(output, answer) != S_OK || !details.Read(answer)) {
        CATDiagnosticErrors().Line("The server does not tell which values are known: ", answer);
    }
    return details;
}

bool WBValueDetails::Read(const CATUnicodeString& answer)
{
    CATWBToken fields(answer);
    const CATUnicodeString partName = fields.NextString();
    int count = 0;
    if (fields.NextString().ReadInt(count) != 1 || count < 0) {
        return false;
    }
    std::map<std::string, Known, std::less<>> known;
    for (int index = 0; index < count; ++index) {
        const CATUnicodeString name = fields.NextString();
        Known flags;
        if (!ReadFlag(fields.NextString(), flags.mass) ||
            !ReadFlag(fields.NextString(), flags.centre) ||
            !ReadFlag(fields.NextString(), flags.inertia)) {
            return false;
        }
        known.insert_or_assign(name.ToStdString(), flags);
    }
    // What a count that lies leaves over would have its zeros shown as known ones.
    if (!fields.IsAtEnd()) {
        return false;
    }
    m_partName = partName;
    m_known = std::move(known);
    return true;
}

bool WBValueDetails::Says(const CATUnicodeString& massType) const
{
    return m_known.find(massType.View()) != m_known.end();
}

WBValueDetails::Known WBValueDetails::Of(const CATUnicodeString& massType) const
{
    const auto found = m_known.find(massType.View());
    return found == m_known.end() ? Known() : found->second;
}
