#include "WBObjectService.h"

#include "CATPDMServices.h"

#include <memory>

WBObjectServiceAnswer WBAskObjectService(CATListIdentificators& identificators,
                                         const CATUnicodeString& input)
{
    CATListIdentificators found;
    char* characters = nullptr;
    const long status = CATPDMCSServices::RunObjectService(
        "ENOVIA5_GetObjectIdentifier", identificators, input.Text(), found, characters);
    const std::unique_ptr<char[]> owned(characters); // ours to free, whatever the status
    if (owned == nullptr) {
        return {status, std::nullopt};
    }
    return {status, CATUnicodeString(owned.get())};
}
