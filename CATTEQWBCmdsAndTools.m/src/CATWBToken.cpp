#include "CATWBToken.h"

#include "WBNumbers.h"

#include "CATDiagnostics.h"
#include "CATFatalError.h"
#include "CATNumberLocale.h"

#include <algorithm>

namespace
{

const CATUnicodeString kDelimiter("|");

constexpr const char* kAssertion = "AssertionFailed:lStatus == 1";
// The reference and its line numbers are fixed names of the two faults, which support staff search
// for in logs. They stay as they are when the source moves.
constexpr const char* kSource = "CATTEQWBCmdsAndTools.m/src/CATWBToken";
constexpr int kIntegerFaultLine = 43;
constexpr int kRealFaultLine = 61;

void RaiseFieldFault(int line)
{
    CATDiagnosticErrors().Line("FATAL ERROR : ", kSource, " [", line, "]");
    CATRaiseFatalError(kAssertion, kSource, line);
}

bool IsBlank(std::string_view text)
{
    return text.find_first_not_of(' ') == std::string_view::npos;
}

} // namespace

CATWBToken::CATWBToken(const CATUnicodeString& text)
    : CATToken(text), m_unreadBytes(text.ByteLength())
{}

CATWBToken::~CATWBToken() = default;

CATUnicodeString CATWBToken::NextString()
{
    return NextView();
}

std::string_view CATWBToken::NextView()
{
    const std::string_view field = NextTokenView(kDelimiter.View());
    m_unreadBytes -= std::min(m_unreadBytes, field.size() + kDelimiter.ByteLength());
    return field;
}

int CATWBToken::NextInt()
{
    int value = 0;
    if (CATReadInt(NextView(), value) == 1) {
        return value;
    }
    RaiseFieldFault(kIntegerFaultLine);
    return 0;
}

double CATWBToken::NextDouble()
{
    double value = 0.0;
    const std::string_view field = NextView();
    if (ReadAnyReal(field, value) == 1 || IsBlank(field)) {
        return value;
    }
    RaiseFieldFault(kRealFaultLine);
    return 0.0;
}
