#include "WBRootFilter.h"

#include "CATDiagnostics.h"
#include "CATMsgCatalog.h"
#include "CATSettingRepository.h"
#include "CATStatus.h"
#include "CATWBToken.h"
#include "WBDefinedFilter.h"

#include <optional>

namespace
{

constexpr const char* kRepository = "CATWBVPMNavFilterPanel"; // and catalog
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
        const CATUnicodeString stored = StoredFilter(rootIdentifier);
        return stored.IsEmpty() || stored == kWBNoFilter ? WBNoFilterText()
                                                         : WBUnreadableFilterText();
    }
    CATWBToken fields(filter);
    fields.NextView(); // the number of lines
    return fields.NextString();
}

CATUnicodeString WBNoFilterText()
{
    return CATMsgCatalog::BuildMessage(kRepository, "NoFilter.Text", "@No filter");
}

CATUnicodeString WBUnreadableFilterText()
{
    return CATMsgCatalog::BuildMessage(kRepository, "Damaged.Counts",
                                       "@No filter: the stored one cannot be read");
}

bool WBIsFilter(const CATUnicodeString& text)
{
    const std::optional<WBDefinedFilter> filter = WBReadDefinedFilter(text);
    return filter && !filter->lines.empty();
}
