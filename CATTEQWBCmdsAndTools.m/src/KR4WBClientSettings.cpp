#include "KR4WBClientSettings.h"

#include "WBSettingSteps.h"

#include "CATDiagnostics.h"
#include "CATEnvironment.h"
#include "CATFindPath.h"
#include "CATSettingRepository.h"

#include <array>

namespace
{

constexpr const char* kRepositoryName = "KR4WBClientSettings";
constexpr const char* kFileSuffix = ".CATSettings";
constexpr const char* kVersionSetting = "Version";
constexpr const char* kInstancesSuffix = "Instances";
constexpr const char* kCriteriaSuffix = "Criteria";

CATUnicodeString Variable(const char* name)
{
    CATUnicodeString value;
    CATGetEnvValue(name, value);
    return value;
}

/// Shares out the items of `stored` from position `first` on: as many to each of the lists, in
/// their order. What does not suffice for one more item each is left over.
template <std::size_t Count>
void ShareOut(const CATListValCATUnicodeString& stored, int first,
              const std::array<CATListValCATUnicodeString*, Count>& lists)
{
    const int each = (stored.Size() - first + 1) / static_cast<int>(Count);
    int position = first;
    for (CATListValCATUnicodeString* list : lists) {
        for (int taken = 0; taken < each; ++taken) {
            list->Append(stored[position]);
            ++position;
        }
    }
}

} // namespace

long KR4WBClientSettings::GetSettingRepository(CATSettingRepository*& repository)
{
    // The session keeps what it has opened and gives the same repository every time.
    repository = CATSettingRepository::GetRepository(kRepositoryName);
    return repository == nullptr ? E_FAIL : S_OK;
}

long KR4WBClientSettings::GetVersion(CATUnicodeString& version)
{
    CATSettingRepository* repository = nullptr;
    if (GetSettingRepository(repository) != S_OK) {
        return E_FAIL;
    }
    return repository->ReadSetting(kVersionSetting, version) == S_OK ? S_OK : E_FAIL;
}

long KR4WBClientSettings::SetVersion(const CATUnicodeString& version)
{
    CATSettingRepository* repository = nullptr;
    if (GetSettingRepository(repository) != S_OK) {
        return E_FAIL;
    }
    return repository->WriteSetting(kVersionSetting, version) == S_OK ? S_OK : E_FAIL;
}

long KR4WBClientSettings::Save()
{
    CATSettingRepository* repository = nullptr;
    return GetSettingRepository(repository) == S_OK ? repository->SaveRepository() : E_FAIL;
}

long KR4WBClientSettings::Commit()
{
    CATSettingRepository* repository = nullptr;
    return GetSettingRepository(repository) == S_OK ? repository->Commit() : E_FAIL;
}

long KR4WBClientSettings::Rollback()
{
    CATSettingRepository* repository = nullptr;
    return GetSettingRepository(repository) == S_OK ? repository->Rollback() : E_FAIL;
}

long KR4WBClientSettings::GetReportDisplay(unsigned char& unitsDisplay, unsigned char& trailingZero,
                                           int& nbDigits)
{
    CATSettingRepository* repository = nullptr;
    if (GetSettingRepository(repository) != S_OK) {
        unitsDisplay = 0; // as when the first setting cannot be read
        return E_FAIL;
    }
    return WBReadReportDisplay(*repository, unitsDisplay, trailingZero, nbDigits);
}

long KR4WBClientSettings::SetReportDisplay(unsigned char& unitsDisplay, unsigned char& trailingZero,
                                           int& nbDigits)
{
    CATSettingRepository* repository = nullptr;
    if (GetSettingRepository(repository) != S_OK) {
        return E_FAIL;
    }
    return WBWriteReportDisplay(*repository, unitsDisplay, trailingZero, nbDigits);
}

long KR4WBClientSettings::WriteListSetting(const CATUnicodeString& key,
                                           const CATListValCATUnicodeString& list)
{
    CATSettingRepository* repository = nullptr;
    if (GetSettingRepository(repository) != S_OK) {
        return E_FAIL;
    }
    return WBWriteSettingList(*repository, key, list);
}

long KR4WBClientSettings::GetListCount(const CATUnicodeString& key, int& count)
{
    CATSettingRepository* repository = nullptr;
    const bool isRead =
        GetSettingRepository(repository) == S_OK && repository->ReadSetting(key, count) == S_OK;
    return isRead ? S_OK : E_FAIL;
}

long KR4WBClientSettings::ReadListSetting(const CATUnicodeString& key,
                                          CATListValCATUnicodeString& list)
{
    CATSettingRepository* repository = nullptr;
    if (GetSettingRepository(repository) != S_OK) {
        return E_FAIL;
    }
    int count = 0;
    if (GetListCount(key + kWBCountSuffix, count) != S_OK) {
        return S_OK; // a list that was never written is an empty one
    }
    return WBReadSettingItems(*repository, key, count, list);
}

// The texts come by value although they are only read: that is how the callers of these operations
// were compiled. NOLINTBEGIN(performance-unnecessary-value-param)
long KR4WBClientSettings::SetItemInstanceGroup(CATUnicodeString prefix, CATUnicodeString name,
                                               CATListValCATUnicodeString& l1,
                                               CATListValCATUnicodeString& l2,
                                               CATListValCATUnicodeString& l3,
                                               CATListValCATUnicodeString& l4,
                                               CATListValCATUnicodeString& l5)
{
    CATListValCATUnicodeString stored;
    for (const CATListValCATUnicodeString* list : {&l1, &l2, &l3, &l4, &l5}) {
        stored.Append(*list);
    }
    return WriteListSetting(prefix + name + kInstancesSuffix, stored);
}

long KR4WBClientSettings::GetItemInstanceGroup(CATUnicodeString prefix, CATUnicodeString name,
                                               CATListValCATUnicodeString& l1,
                                               CATListValCATUnicodeString& l2,
                                               CATListValCATUnicodeString& l3,
                                               CATListValCATUnicodeString& l4,
                                               CATListValCATUnicodeString& l5)
{
    CATListValCATUnicodeString stored;
    const long status = ReadListSetting(prefix + name + kInstancesSuffix, stored);
    ShareOut(stored, 1, std::array{&l1, &l2, &l3, &l4, &l5});
    return status;
}

long KR4WBClientSettings::SetCriteriaGroup(CATUnicodeString prefix, CATUnicodeString name,
                                           CATUnicodeString criterion,
                                           CATListValCATUnicodeString& m1,
                                           CATListValCATUnicodeString& m2,
                                           CATListValCATUnicodeString& m3,
                                           CATListValCATUnicodeString& m4)
{
    CATListValCATUnicodeString stored{criterion};
    for (const CATListValCATUnicodeString* list : {&m1, &m2, &m3, &m4}) {
        stored.Append(*list);
    }
    return WriteListSetting(prefix + name + kCriteriaSuffix, stored);
}

long KR4WBClientSettings::GetCriteriaGroup(CATUnicodeString prefix, CATUnicodeString name,
                                           CATUnicodeString& criterion,
                                           CATListValCATUnicodeString& m1,
                                           CATListValCATUnicodeString& m2,
                                           CATListValCATUnicodeString& m3,
                                           CATListValCATUnicodeString& m4)
{
    CATListValCATUnicodeString stored;
    const long status = ReadListSetting(prefix + name + kCriteriaSuffix, stored);
    if (stored.IsEmpty()) {
        return S_FALSE;
    }
    criterion = stored[1];
    ShareOut(stored, 2, std::array{&m1, &m2, &m3, &m4});
    return status;
}

// NOLINTEND(performance-unnecessary-value-param)

long KR4WBClientSettings::GetCATSettingsOrigin(CATUnicodeString& path)
{
    path = CATUnicodeString();
    const bool isSet = CATGetEnvValue("CATUserSettingPath", path) == S_OK;
    const int separator = path.Find(";");
    if (separator > 0) {
        path = path.Part(0, separator);
    }
    CATDiagnosticOutput().Line("User setting path = ", path);
    return isSet ? S_OK : E_FAIL;
}

long KR4WBClientSettings::GetFileExist()
{
    const CATUnicodeString fileName = CATUnicodeString(kRepositoryName) + kFileSuffix;
    CATUnicodeString userPath;
    GetCATSettingsOrigin(userPath);
    if (!CATFindPath(fileName, userPath).IsEmpty()) {
        return S_OK;
    }
    // The file's name has its ending already; the line shows it twice.
    CATDiagnosticOutput().Line("No ", fileName, kFileSuffix, " file has been found in ", userPath);
    return CATFindPath(fileName, Variable("CATReferenceSettingPath")).IsEmpty() ? S_FALSE : S_OK;
}
