#include "CATDiagnostics.h"

#include <cstdio>
#include <utility>

namespace
{

// One call a line, so that lines of several writers do not mix.
void WriteLine(std::FILE* file, std::string_view line)
{
    const std::string whole = std::string(line) + "\n";
    std::fwrite(whole.data(), 1, whole.size(), file);
}

} // namespace

void CATDiagnosticPiece::AppendTo(std::string& line) const
{
    switch (m_kind) {
    case Kind::Text:
        line += m_text;
        break;
    case Kind::Integer:
        line += std::to_string(m_integer);
        break;
    case Kind::Real:
        line += CATUnicodeString::FromReal(m_real).View();
        break;
    }
}

CATLineStream::Listener CATLineStream::SetListener(Listener listener)
{
    return std::exchange(m_listener, std::move(listener));
}

void CATLineStream::Write(std::initializer_list<CATDiagnosticPiece> pieces) const
{
    std::string line;
    for (const CATDiagnosticPiece& piece : pieces) {
        piece.AppendTo(line);
    }
    // A copy, so that a listener may take itself off the stream.
    const Listener listener = m_listener;
    listener(line);
}

CATLineStream& CATDiagnosticOutput()
{
    static CATLineStream stream([](std::string_view line) { WriteLine(stdout, line); });
    return stream;
}

CATLineStream& CATDiagnosticErrors()
{
    static CATLineStream stream([](std::string_view line) { WriteLine(stderr, line); });
    return stream;
}
