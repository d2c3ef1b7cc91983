#pragma once

#include "CATCkeGlobalFunctions.h"
#include "CATCkeMagnitude.h"

#include <functional>
#include <string>
#include <vector>

/// Takes one sentence of what is wrong with a unit file or a unit setting.
using CATCkeReport = std::function<void(const std::string& sentence)>;

class CATCkeParmDictionary final : public CATICkeParmDictionary
{
public:
    const char* ClassName() const override;
    CATICkeMagnitude_var FindMagnitude(const CATUnicodeString& name) const override;
    CATListValCATUnicodeString MagnitudeNames() const override;

    /// Null when there is none of that name.
    CATHandle<CATCkeMagnitude> Find(const CATUnicodeString& name) const;
    void Add(const CATHandle<CATCkeMagnitude>& magnitude);
    /// Makes the units current that the user's settings name; what they name wrongly is reported
    /// and the magnitude keeps its default.
    void UseSettings(const CATCkeReport& report);

private:
    std::vector<CATHandle<CATCkeMagnitude>> m_magnitudes;
    CATCkeTextMap<CATHandle<CATCkeMagnitude>> m_byName;
};
