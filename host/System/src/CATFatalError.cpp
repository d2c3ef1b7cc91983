#include "CATFatalError.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace
{

CATFatalErrorHandler& Handler()
{
    static CATFatalErrorHandler handler;
    return handler;
}

} // namespace

CATFatalError::CATFatalError(std::string text, std::string source, int line)
    : m_text(std::move(text)), m_source(std::move(source)), m_line(line)
{}

void CATRaiseFatalError(const CATUnicodeString& text, const CATUnicodeString& source, int line)
{
    // A copy, so that a handler may put another in its place.
    const CATFatalErrorHandler handler = Handler();
    if (handler) {
        handler(CATFatalError(text.ToStdString(), source.ToStdString(), line));
        return;
    }
    std::fprintf(stderr, "fatal error: %s (%s, line %d)\n", text.Text(), source.Text(), line);
    std::abort();
}

CATFatalErrorHandler CATSetFatalErrorHandler(CATFatalErrorHandler handler)
{
    return std::exchange(Handler(), std::move(handler));
}
