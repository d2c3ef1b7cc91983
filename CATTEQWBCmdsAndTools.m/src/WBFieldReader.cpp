#include "WBFieldReader.h"

#include "WBNumbers.h"

#include "CATNumberLocale.h"

#include <algorithm>
#include <limits>

WBFieldReader::WBFieldReader(const CATUnicodeString& stream)
    : m_stream(stream), m_echo(CATDiagnosticOutput())
{}

CATUnicodeString WBFieldReader::Text(const char* label)
{
    return View(label);
}

std::string_view WBFieldReader::View(const char* label)
{
    const std::string_view text = m_stream.NextView();
    m_echo.Line(label, text);
    return text;
}

CATUnicodeString WBFieldReader::NullableText(const char* label)
{
    const std::string_view text = View(label);
    return text == "__null__" ? CATUnicodeString() : CATUnicodeString(text);
}

int WBFieldReader::Int(const char* label)
{
    const int value = m_stream.NextInt();
    m_echo.Line(label, value);
    return value;
}

double WBFieldReader::Real(const char* label)
{
    const double value = m_stream.NextDouble();
    m_echo.Line(label, value);
    return value;
}

int WBFieldReader::LenientInt(const char* label)
{
    int value = 0;
    CATReadInt(m_stream.NextView(), value);
    m_echo.Line(label, value);
    return value;
}

double WBFieldReader::LenientReal(const char* label)
{
    double value = 0.0;
    ReadAnyReal(m_stream.NextView(), value);
    m_echo.Line(label, value);
    return value;
}

void WBFieldReader::SkipTexts(int count)
{
    // Past the end there is nothing left to read past, however many fields were announced.
    for (int index = 0; index < count && !m_stream.IsAtEnd(); ++index) {
        View("Ignored: ");
    }
}

bool WBFieldReader::HasEntry(int index, int count) const
{
    return index < count && (index < kCompletedEntries || !m_stream.IsAtEnd());
}

void WBFieldReader::ReportKept(const char* what, int announced, int kept)
{
    if (kept < announced) {
        m_echo.Line("Error! The stream announces ", announced, " ", what,
                    " but holds fewer: ", kept, " are kept");
    }
}

int WBFieldReader::Believed(const char* what, int announced, int bytesPerEntry)
{
    const std::size_t held = m_stream.UnreadBytes() / static_cast<std::size_t>(bytesPerEntry) + 1;
    const std::size_t limit = std::clamp(held, static_cast<std::size_t>(kCompletedEntries),
                                         static_cast<std::size_t>(std::numeric_limits<int>::max()));
    const int believed = std::min(announced, static_cast<int>(limit));
    ReportKept(what, announced, believed);
    return believed;
}
