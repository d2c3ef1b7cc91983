#include "CATCkeParmDictionary.h"

#include "CATSettingRepository.h"
#include "CATStatus.h"

const char* CATCkeParmDictionary::ClassName() const
{
    return "CATCkeParmDictionary";
}

CATICkeMagnitude_var CATCkeParmDictionary::FindMagnitude(const CATUnicodeString& name) const
{
    return Find(name);
}

CATListValCATUnicodeString CATCkeParmDictionary::MagnitudeNames() const
{
    CATListValCATUnicodeString names;
    for (const CATHandle<CATCkeMagnitude>& magnitude : m_magnitudes) {
        names.Append(magnitude->Name());
    }
    return names;
}

CATHandle<CATCkeMagnitude> CATCkeParmDictionary::Find(const CATUnicodeString& name) const
{
    const auto found = m_byName.find(name.View());
    return found == m_byName.end() ? CATHandle<CATCkeMagnitude>() : found->second;
}

void CATCkeParmDictionary::Add(const CATHandle<CATCkeMagnitude>& magnitude)
{
    m_magnitudes.push_back(magnitude);
    m_byName.emplace(magnitude->Name().ToStdString(), magnitude);
}

void CATCkeParmDictionary::UseSettings(const CATCkeReport& report)
{
    const CATSettingRepository* const settings =
        CATSettingRepository::GetRepository(kCATCkeUnitSettings);
    if (settings == nullptr) {
        return;
    }
    for (const CATHandle<CATCkeMagnitude>& magnitude : m_magnitudes) {
        CATUnicodeString symbol;
        const long status = settings->ReadSetting(magnitude->Name(), symbol);
        if (status == S_FALSE || (status == S_OK && magnitude->MakeCurrent(symbol) >= S_OK)) {
            continue;
        }
        const std::string found =
            status == S_OK ? "\"" + symbol.ToStdString() + "\" is no unit of it" : "it is no text";
        report("setting " + magnitude->Name().ToStdString() + " of " + kCATCkeUnitSettings + ": " +
               found + "; " + magnitude->CurrentUnit()->Symbol().ToStdString() + " is used");
    }
}
