#pragma once

#include "CATMsgCatalog.h"

/// The library's texts for users stand in one catalog; the keys beside their English defaults.
struct CATPDMMessage
{
    const char* key;
    const char* defaultText;
};

constexpr CATPDMMessage kWaitTitle{"Wait.Title", "@Waiting for the server"};
constexpr CATPDMMessage kCancelled{"Wait.Cancelled", "@The call was cancelled."};
constexpr CATPDMMessage kObjectsUnidentified{
    "Objects.Unidentified",
    "@The server could not tell which objects were picked. Nothing was changed; pick again."};
constexpr CATPDMMessage kProductsNoAnswer{
    "Products.NoAnswer", "@The products could not be read: the server did not answer."};
constexpr CATPDMMessage kProductsRefused{"Products.Refused",
                                         "@The products could not be read: /p1"};
constexpr CATPDMMessage kProductsUnreadable{
    "Products.Unreadable",
    "@The products could not be read: field /p1 of the server's answer should be /p2."};

inline CATUnicodeString PDMText(const CATPDMMessage& message,
                                const CATListValCATUnicodeString& parameters = {})
{
    return CATMsgCatalog::BuildMessage("CATPDM", message.key, message.defaultText, parameters);
}
