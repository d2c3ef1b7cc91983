#include "WBFilterSettings.h"

#include "CATSettingRepository.h"
#include "CATStatus.h"
#include "WBNavigatorPlaces.h"
#include "WBPickReading.h"
#include "WBRootFilter.h"

#include <optional>
#include <string>

namespace
{

CATSettingRepository* Repository()
{
    return CATSettingRepository::GetRepository("CATWBVPMNavFilterPanel");
}

CATUnicodeString CountingKey(const CATUnicodeString& rootIdentifier)
{
    return rootIdentifier + ".Filter";
}

CATUnicodeString FiltersKey(const CATUnicodeString& rootIdentifier)
{
    return rootIdentifier + ".Filters";
}

/// The texts of a setting, whatever kind it is of.
CATListValCATUnicodeString Texts(const CATSettingRepository& settings, const CATUnicodeString& key)
{
    CATUnicodeString text;
    CATListValCATUnicodeString texts;
    int integer = 0;
    double real = 0.0;
    if (settings.ReadSetting(key, texts) == S_OK) {
        return texts;
    }
    if (settings.ReadSetting(key, text) == S_OK) {
        return {text};
    }
    if (settings.ReadSetting(key, integer) == S_OK) {
        return {CATUnicodeString::FromInt(integer)};
    }
    if (settings.ReadSetting(key, real) == S_OK) {
        return {CATUnicodeString::FromReal(real)};
    }
    return {};
}

WBStoredFilters Read(const CATSettingRepository& settings, const CATUnicodeString& rootIdentifier)
{
    WBStoredFilters stored;
    const CATListValCATUnicodeString counting = Texts(settings, CountingKey(rootIdentifier));
    for (const CATUnicodeString& text : counting.Items()) {
        stored.counting += (stored.counting.IsEmpty() ? "" : " ") + text;
    }
    stored.filters = Texts(settings, FiltersKey(rootIdentifier)).Items();
    return stored;
}

} // namespace

WBFilterSet WBKeptFilters(const CATUnicodeString& rootIdentifier)
{
    const CATSettingRepository* settings = Repository();
    return settings == nullptr ? WBFilterSet() : WBReadFilterSet(Read(*settings, rootIdentifier));
}

bool WBKeepFilters(const CATUnicodeString& rootIdentifier, const WBFilterSet& set)
{
    CATSettingRepository* settings = Repository();
    if (settings == nullptr) {
        return false;
    }
    const WBStoredFilters before = Read(*settings, rootIdentifier);
    const WBStoredFilters after = WBStoreFilterSet(set);
    if (!(after.counting == before.counting)) {
        settings->WriteSetting(CountingKey(rootIdentifier), after.counting);
    }
    if (after.filters != before.filters) {
        settings->WriteSetting(FiltersKey(rootIdentifier),
                               CATListValCATUnicodeString(after.filters));
    }
    if (settings->SaveRepository() != S_OK) {
        settings->Rollback();
        return false;
    }
    settings->Commit();
    return true;
}

bool WBIsValidInFilter(const CATUnicodeString& rootIdentifier, const CATUnicodeString& instance,
                       const CATUnicodeString& part, const CATUnicodeString& version, int count,
                       const CATUnicodeString& path)
{
    const std::optional<WBDefinedFilter> filter =
        WBReadDefinedFilter(WBFilterOfRoot(rootIdentifier));
    if (filter->lines.empty()) {
        return true;
    }
    const std::optional<WBPickedInstance> picked =
        WBReadPickedInstance(instance, part, version, path, count);
    const auto find = [&](const std::vector<CATUnicodeString>& names) {
        return WBFindInNavigator(rootIdentifier, names);
    };
    return picked && WBLeavesIn(*filter, *picked, find);
}
