#pragma once

#include "CATUnicodeString.h"

#include <functional>
#include <string>

/// What an installed handler of the fatal-error service may throw: the session catches it where a
/// command runs.
class WB_EXPORT CATFatalError
{
public:
    CATFatalError(std::string text, std::string source, int line);
    const std::string& Text() const { return m_text; }     ///< what was asserted
    const std::string& Source() const { return m_source; } ///< the source reference
    int Line() const { return m_line; }

private:
    std::string m_text;
    std::string m_source;
    int m_line;
};

/// The host's fatal-error service: a broken agreement between our own sides ends here. Without a
/// handler the program ends, with the text on the standard error stream. A handler may throw; one
/// that returns means: go on, with the value 0.
WB_EXPORT void CATRaiseFatalError(const CATUnicodeString& text, const CATUnicodeString& source,
                                  int line);
using CATFatalErrorHandler = std::function<void(const CATFatalError& error)>;
/// Installs a handler and returns the one that stood there; an empty one ends the program again.
WB_EXPORT CATFatalErrorHandler CATSetFatalErrorHandler(CATFatalErrorHandler handler);
