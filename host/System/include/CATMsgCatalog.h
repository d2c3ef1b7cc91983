#pragma once

#include "CATCollections.h"
#include "CATUnicodeString.h"

#include <functional>

/// User-facing texts by catalog and dotted key. A catalog is a TOML file "catalogs/<name>.toml" of
/// the session's resources, English there, other languages in "<language>/catalogs/<name>.toml"; a
/// key that the user's language lacks is taken from the English one.
class WB_EXPORT CATMsgCatalog
{
public:
    /// The text of `key` in `catalog`. When there is none, the default: one that begins with "@" is
    /// the literal text after the "@", another is shown as it is. A catalog that is missing or
    /// cannot be read is reported once (ReportProblemsTo) and its defaults are used. "/p1", "/p2",
    /// ... in the text, the default included, are replaced by the parameters in order; one without
    /// a parameter stays. In the file a key may be quoted ("initialState.Message") or a table
    /// ([initialState]).
    static CATUnicodeString BuildMessage(const CATUnicodeString& catalog,
                                         const CATUnicodeString& key,
                                         const CATUnicodeString& defaultText,
                                         const CATListValCATUnicodeString& parameters = {});
    /// The language of the user ("en", "de"): the first of LC_ALL, LC_MESSAGES and LANG that is not
    /// empty, until it is set; "C" and "POSIX" are English. Setting it drops what was read, also
    /// what was reported; an empty one brings the environment's back.
    static CATUnicodeString Language();
    static void SetLanguage(const CATUnicodeString& language);
    /// Who is told, once a file, that a catalog is missing or broken; the sentence names the file
    /// and, when broken, the line. The diagnostic error stream hears it too.
    static void ReportProblemsTo(std::function<void(const CATUnicodeString& sentence)> listener);
};
