#include "WBEditTexts.h"

#include "CATMsgCatalog.h"

CATUnicodeString WBEditText(const char* key, const char* defaultText,
                            const CATListValCATUnicodeString& parameters)
{
    return CATMsgCatalog::BuildMessage("WBEdits", key, defaultText, parameters);
}

CATUnicodeString WBEditText(const WBEditMessage& message,
                            const CATListValCATUnicodeString& parameters)
{
    return WBEditText(message.key, message.defaultText, parameters);
}
