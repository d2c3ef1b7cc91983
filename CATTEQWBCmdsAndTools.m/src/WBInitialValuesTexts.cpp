#include "WBInitialValuesTexts.h"

#include "CATDiagnostics.h"
#include "CATWBToken.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace
{

constexpr const char* kSeparator = "|";

CATUnicodeString Joined(std::initializer_list<CATUnicodeString> fields)
{
    CATUnicodeString text;
    for (const CATUnicodeString& field : fields) {
        text += field;
        text += kSeparator;
    }
    return text;
}

CATUnicodeString Flag(bool isSet)
{
    return isSet ? "1|" : "0|";
}

std::ptrdiff_t SeparatorsIn(const CATUnicodeString& text)
{
    const std::string_view view = text.View();
    return std::count(view.begin(), view.end(), '|');
}

} // namespace

CATUnicodeString WBObjectServiceInput(const CATUnicodeString& rootIdentifier,
                                      const CATUnicodeString& configuration,
                                      const CATUnicodeString& fieldA,
                                      const CATUnicodeString& fieldB)
{
    return Joined({rootIdentifier, configuration, fieldA, fieldB});
}

bool WBReadObjectRecord(const CATUnicodeString& answer, WBInstanceIdentity& identity)
{
    CATWBToken fields(answer);
    const CATUnicodeString hasChildren = fields.NextString();
    if (!(hasChildren == "0") && !(hasChildren == "1")) {
        CATDiagnosticErrors().Line("Unable to tell if the current instance is a leaf or not!");
        return false;
    }
    identity.isLeaf = !(hasChildren == "1");
    identity.instance = fields.NextString();
    identity.part = fields.NextString();
    identity.version = fields.NextString();

    // A count that is no number means no path; it goes on to the server as it came.
    identity.countText = fields.NextString();
    int count = 0;
    identity.countText.ReadInt(count);
    identity.hasPath = count > 0;
    identity.path = CATUnicodeString();
    if (count > SeparatorsIn(answer)) {
        // A broken count must not cost the session's memory.
        CATDiagnosticErrors().Line("The instance path is announced longer than it is: ", count);
        return false;
    }
    for (int position = 1; position <= count; ++position) {
        if (position > 1) {
            identity.path += kSeparator;
        }
        identity.path += fields.NextString();
    }
    return true;
}

void WBTakeProductPath(int depth, const CATUnicodeString& leafName, const CATUnicodeString& path,
                       WBInstanceIdentity& identity)
{
    // Root and leaf travel in fields of their own, so the path lacks these two.
    const int count = depth - 2;
    identity.instance = leafName;
    identity.countText = CATUnicodeString::FromInt(count);
    identity.hasPath = count > 0;
    identity.path = path;
}

CATUnicodeString WBInitialValuesRequest(const WBInstanceIdentity& identity)
{
    // The flag ends with a separator and one more follows: the server requires the empty second
    // field, so a single separator here would shift everything behind it.
    CATUnicodeString request = Flag(identity.hasInstance) + kSeparator;
    request +=
        Joined({identity.rootIdentifier, identity.instance, identity.part, identity.version});
    request += identity.countText;
    // A product just below its root sends its empty path too ("0|"); a navigator item without a
    // path sends the count alone.
    if (identity.hasPath || !identity.hasInstance) {
        request += kSeparator + identity.path;
    }
    return request;
}

CATUnicodeString WBInitialValuesStream(const WBInstanceIdentity& identity,
                                       const CATUnicodeString& answer)
{
    CATUnicodeString stream = Flag(identity.hasInstance);
    stream += Joined({identity.instance, identity.part, identity.version, identity.rootIdentifier,
                      identity.countText});
    // The codec reads as many names as the count says: with 0 there is not even an empty one.
    if (identity.hasPath) {
        stream += identity.path + kSeparator;
    }
    return stream + answer;
}
