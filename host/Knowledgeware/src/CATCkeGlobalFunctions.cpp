#include "CATCkeGlobalFunctions.h"

#include "CATCkeUnitFiles.h"
#include "CATCkeUnitListeners.h"
#include "CATDiagnostics.h"

namespace
{

CATICkeParmDictionary_var& SessionDictionary()
{
    static CATICkeParmDictionary_var dictionary;
    return dictionary;
}

std::function<void(const CATUnicodeString&)>& Listener()
{
    static std::function<void(const CATUnicodeString&)> listener;
    return listener;
}

void Report(const std::string& sentence)
{
    if (Listener()) {
        Listener()(CATUnicodeString(sentence));
    } else {
        CATDiagnosticErrors().Line(sentence);
    }
}

} // namespace

CATICkeParmDictionary_var CATCkeGlobalFunctions::GetParmDictionary()
{
    if (SessionDictionary().IsNull()) {
        SessionDictionary() = CATCkeReadDictionary(CATCkeUnitFilePaths(), Report);
    }
    return SessionDictionary();
}

void CATCkeGlobalFunctions::SetParmDictionary(const CATICkeParmDictionary_var& dictionary)
{
    SessionDictionary() = dictionary;
}

void CATCkeGlobalFunctions::ReportProblemsTo(
    std::function<void(const CATUnicodeString& sentence)> listener)
{
    Listener() = std::move(listener);
}

int CATCkeGlobalFunctions::AddUnitListener(UnitListener listener)
{
    return CATCkeAddUnitListener(std::move(listener));
}

void CATCkeGlobalFunctions::RemoveUnitListener(int number)
{
    CATCkeRemoveUnitListener(number);
}
