#include "WBRootFilter.h"

#include "CATDiagnostics.h"
#include "CATMsgCatalog.h"
#include "CATSettingRepository.h"
#include "CATStatus.h"
#include "CATWBToken.h"

#include <charconv>
#include <string_view>

namespace
{

constexpr const char* kRepository = "CATWBVPMNavFilterPanel"; // and catalog
/// A count as it is written in filters; -1 for any other text.
int Count(std::string_view text)
{
    int count = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    return error == std::errc() && end == text.data() + text.size() ? count : -1;
}

bool ReadLine(CATWBToken& fields)
{
    const std::string_view way = fields.NextView();
    if (way != "I" && way != "X") {
        return false;
    }
    fields.NextView(); // instance: empty for the root itself
    fields.NextView(); // part
    fields.NextView(); // version
    const int names = Count(fields.NextView());
    for (int index = 0; index < names; ++index) {
        if (fields.IsAtEnd() || fields.NextView().empty()) {
            return false;
        }
    }
    return names >= 0;
}

/// Empty where none is stored.
CATUnicodeString StoredFilter(const CATUnicodeString& rootIdentifier)
{
    CATUnicodeString filter;
    if (const CATSettingRepository* settings = CATSettingRepository::GetRepository(kRepository)) {
        const CATUnicodeString key = rootIdentifier + ".Filter";
        if (settings->ReadSetting(key, filter) == E_FAIL) {
            CATDiagnosticErrors().Line("The setting ", key, " of ", kRepository,
                                       " is no text; there is no filter then");
        }
    }
    return filter;
}

} // namespace

CATUnicodeString WBFilterOfRoot(const CATUnicodeString& rootIdentifier)
{
    CATUnicodeString stored = StoredFilter(rootIdentifier);
    if (stored.IsEmpty() || stored == kWBNoFilter) {
        return kWBNoFilter;
    }
    if (!WBIsFilter(stored)) {
        CATDiagnosticErrors().Line("The stored filter of ", rootIdentifier,
                                   " cannot be read and is left out: ", stored);
        return kWBNoFilter;
    }
    return stored;
}

CATUnicodeString WBShownFilterOfRoot(const CATUnicodeString& rootIdentifier)
{
    const CATUnicodeString filter = WBFilterOfRoot(rootIdentifier);
    if (filter == kWBNoFilter) {
        return CATMsgCatalog::BuildMessage(kRepository, "NoFilter.Text", "@No filter");
    }
    CATWBToken fields(filter);
    fields.NextView(); // the number of lines
    return fields.NextString();
}

bool WBIsFilter(const CATUnicodeString& text)
{
    CATWBToken fields(text);
    const int lines = Count(fields.NextView());
    if (lines < 1 || fields.NextView().empty()) {
        return false;
    }
    for (int line = 0; line < lines; ++line) {
        if (!ReadLine(fields)) {
            return false;
        }
    }
    // A "|" at the end would leave an empty field behind the filter in every request.
    return fields.IsAtEnd() && text.View().back() != '|';
}
