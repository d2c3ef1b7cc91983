#pragma once

#include "CATICkeMagnitude.h"

#include <functional>

/// The parameter dictionary: every magnitude that the session knows, from the unit files of the
/// resources ("units/*.toml", the session's own first, then those of "WB_RESOURCE_PATH") and from
/// the user's "units.toml" in "CATUserSettingPath". Later files add units and magnitudes and may
/// name another default unit; they change no unit that is known.
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
    /// Who is told of a unit file that is missing or wrong (file, line and what was expected) and
    /// of a setting that names no unit. Without a listener the sentences go to the diagnostic
    /// errors.
    static void ReportProblemsTo(std::function<void(const CATUnicodeString& sentence)> listener);

    /// Hears of every current unit that changed, after it changed, whoever changed it: once a
    /// choice, when it is kept in the settings or could not be. Reading the dictionary is no
    /// change.
    using UnitListener = std::function<void(const CATICkeMagnitude_var& magnitude)>;
    /// A number above 0 by which the listener is removed; 0 for an empty function, which is not
    /// added. Listeners are told in the order in which they came. While it is told, one may change
    /// units itself, remove itself or others, who then hear no more, and add others, who hear of
    /// the changes after this one.
    static int AddUnitListener(UnitListener listener);
    /// A number that means no listener does nothing.
    static void RemoveUnitListener(int number);
};
