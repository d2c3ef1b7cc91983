#include "WBPickReading.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "CATWBToken.h"

#include <algorithm>

namespace
{

bool IsControl(char byte)
{
    constexpr unsigned char kFirstPrintable = 0x20;
    constexpr unsigned char kDelete = 0x7f;
    const auto code = static_cast<unsigned char>(byte);
    return code < kFirstPrintable || code == kDelete;
}

/// A count is not believed before the names have been counted: it may be of any size.
bool HoldsNames(const CATUnicodeString& path, int count)
{
    const auto separators = std::ranges::count(path.View(), '|');
    return path.IsEmpty() ? count == 0 : count == separators + 1;
}

bool IsName(const CATUnicodeString& text)
{
    return !text.IsEmpty() && WBMayEnterRequests(text);
}

} // namespace

bool WBMayEnterRequests(const CATUnicodeString& text)
{
    return std::ranges::none_of(text.View(), IsControl) && !text.Contains("|") && text != "~" &&
           text != "__null__" && !text.Contains(CATENOWBCSCommonDefinitions::errMsgHeader);
}

std::optional<WBPickedInstance> WBReadPickedInstance(const CATUnicodeString& instance,
                                                     const CATUnicodeString& part,
                                                     const CATUnicodeString& version,
                                                     const CATUnicodeString& path, int count)
{
    if (!IsName(instance) || !WBMayEnterRequests(part) || !WBMayEnterRequests(version) ||
        !HoldsNames(path, count)) {
        return std::nullopt;
    }
    WBPickedInstance picked{instance, part, version, {}};
    CATWBToken names(path);
    for (int index = 0; index < count; ++index) {
        picked.path.push_back(names.NextString());
    }
    return std::ranges::all_of(picked.path, IsName) ? std::optional(picked) : std::nullopt;
}
