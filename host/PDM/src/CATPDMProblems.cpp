#include "CATPDMProblems.h"

#include "CATDiagnostics.h"
#include "CATNavigator.h"

#include <functional>
#include <utility>

namespace
{
using ProblemListener = std::function<void(const CATUnicodeString& sentence)>;

ProblemListener& Listener()
{
    static ProblemListener listener;
    return listener;
}
} // namespace

void CATReportPDMProblem(const CATUnicodeString& sentence)
{
    CATDiagnosticErrors().Line(sentence);
    if (Listener()) {
        Listener()(sentence);
    }
}

void CATNavigator::ReportProblemsTo(ProblemListener listener)
{
    Listener() = std::move(listener);
}
