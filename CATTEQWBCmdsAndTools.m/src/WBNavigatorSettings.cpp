#include "WBNavigatorSettings.h"

#include "CATDiagnostics.h"
#include "CATMsgCatalog.h"
#include "CATSettingRepository.h"
#include "CATStatus.h"

namespace
{

WBStableOrder Unreadable(const CATUnicodeString& key)
{
    return {false, CATMsgCatalog::BuildMessage("CATIWBWarning", key, key)};
}

} // namespace

WBStableOrder ReadStableOrder()
{
    const CATSettingRepository* repository = CATSettingRepository::GetRepository("VPMNavigator");
    if (repository == nullptr) {
        return Unreadable("SettingRepositoryError001");
    }
    int value = 0;
    if (repository->ReadSetting("StableOrdering", value) != S_OK) {
        return Unreadable("SettingRepositoryError002");
    }
    const bool used = value == 1;
    CATDiagnosticOutput().Line(used ? "Using \"Stable order\" option"
                                    : "Not using \"Stable order\" option");
    return {used, {}};
}
