#pragma once

#include "CATICkeMagnitude.h"

#include <functional>

/// The parameter dictionary: every magnitude that the session knows, from the unit files of the
/// resources ("units/*.toml").
class WB_EXPORT CATICkeParmDictionary : public CATBaseUnknown
{
public:
    /// Null when there is no such magnitude. Names are exact ("LENGTH").
    virtual CATICkeMagnitude_var FindMagnitude(const CATUnicodeString& name) const = 0;
    /// In the order of the unit files.
    virtual CATListValCATUnicodeString MagnitudeNames() const = 0;
};
using CATICkeParmDictionary_var = CATHandle<CATICkeParmDictionary>;

class WB_EXPORT CATCkeGlobalFunctions
{
public:
    /// The session's dictionary, read at the first call. Never null: unit files that are missing or
    /// wrong are reported, and a bad entry is left out.
    static CATICkeParmDictionary_var GetParmDictionary();
    /// Puts another dictionary in the session's place; a null one has the files read again.
    static void SetParmDictionary(const CATICkeParmDictionary_var& dictionary);
    /// Who is told of a unit file that is missing or wrong: file, line and what was expected.
    static void ReportProblemsTo(std::function<void(const CATUnicodeString& sentence)> listener);
};
