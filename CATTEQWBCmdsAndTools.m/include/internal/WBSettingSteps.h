#pragma once

#include "CATCollections.h"
#include "CATStatus.h"
#include "CATUnicodeString.h"

#include <algorithm>

/// How the client's settings stand in their repository, key by key and in the order in which they
/// are read and written. A repository is anything with the ReadSetting and WriteSetting of
/// CATSettingRepository, so that a test can watch the order and have a single step fail.

inline constexpr const char* kWBUnitsDisplaySetting = "DisplayUnits";
inline constexpr const char* kWBTrailingZeroSetting = "DisplayZeros";
inline constexpr const char* kWBDigitsSetting = "NbZeros";
inline constexpr const char* kWBCountSuffix = "Count";

/// A list whose stored count promises more entries than are there is filled up with empty texts,
/// but not beyond this many: a count that somebody garbled must not cost the session's memory.
inline constexpr int kWBMostFilledUp = 1'000'000;

/// False when the flag could not be read; it is 0 then.
template <class Repository>
bool WBReadFlag(const Repository& repository, const CATUnicodeString& key, unsigned char& flag)
{
    int stored = 0;
    const bool isRead = repository.ReadSetting(key, stored) == S_OK;
    flag = isRead && stored == 1 ? 1 : 0;
    return isRead;
}

template <class Repository>
bool WBWriteFlag(Repository& repository, const CATUnicodeString& key, unsigned char flag)
{
    return repository.WriteSetting(key, flag == 0 ? 0 : 1) == S_OK;
}

template <class Repository>
long WBReadReportDisplay(const Repository& repository, unsigned char& unitsDisplay,
                         unsigned char& trailingZero, int& nbDigits)
{
    const bool isRead = WBReadFlag(repository, kWBUnitsDisplaySetting, unitsDisplay) &&
                        WBReadFlag(repository, kWBTrailingZeroSetting, trailingZero) &&
                        repository.ReadSetting(kWBDigitsSetting, nbDigits) == S_OK;
    return isRead ? S_OK : E_FAIL;
}

template <class Repository>
long WBWriteReportDisplay(Repository& repository, unsigned char unitsDisplay,
                          unsigned char trailingZero, int nbDigits)
{
    const bool isWritten = WBWriteFlag(repository, kWBUnitsDisplaySetting, unitsDisplay) &&
                           WBWriteFlag(repository, kWBTrailingZeroSetting, trailingZero) &&
                           repository.WriteSetting(kWBDigitsSetting, nbDigits) == S_OK;
    return isWritten ? S_OK : E_FAIL;
}

/// The number of entries, then the entries. An empty list is written too: it replaces what stood
/// there.
template <class Repository>
long WBWriteSettingList(Repository& repository, const CATUnicodeString& key,
                        const CATListValCATUnicodeString& list)
{
    const bool isWritten = repository.WriteSetting(key + kWBCountSuffix, list.Size()) == S_OK &&
                           repository.WriteSetting(key, list) == S_OK;
    return isWritten ? S_OK : E_FAIL;
}

/// Appends the first `count` entries stored under `key`; E_FAIL when there are fewer, empty texts
/// standing for those that are missing. A count of 0 does not look at the entries.
template <class Repository>
long WBReadSettingItems(const Repository& repository, const CATUnicodeString& key, int count,
                        CATListValCATUnicodeString& list)
{
    if (count <= 0) {
        return count == 0 ? S_OK : E_FAIL;
    }
    CATListValCATUnicodeString stored;
    if (repository.ReadSetting(key, stored) != S_OK) {
        stored.RemoveAll();
    }
    const bool isComplete = stored.Size() >= count;
    stored.Resize(isComplete ? count : std::max(stored.Size(), std::min(count, kWBMostFilledUp)));
    list.Append(stored);
    return isComplete ? S_OK : E_FAIL;
}
