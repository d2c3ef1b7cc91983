#include "WBGroupTexts.h"

#include "CATMsgCatalog.h"

#include <string>

CATUnicodeString WBGroupText(const char* key, const char* defaultText,
                             const CATListValCATUnicodeString& parameters)
{
    return CATMsgCatalog::BuildMessage("WBGroupPanel", key, defaultText, parameters);
}

CATUnicodeString WBGroupCount(const char* key, int count, const char* defaultOne,
                              const char* defaultSeveral)
{
    const std::string text = key;
    return count == 1 ? WBGroupText((text + ".One").c_str(), defaultOne)
                      : WBGroupText((text + ".Several").c_str(), defaultSeveral,
                                    {CATUnicodeString::FromInt(count)});
}
