#pragma once

#include "CATUnicodeString.h"

/// Tells whom CATNavigator::ReportProblemsTo named, and the diagnostic error stream.
void CATReportPDMProblem(const CATUnicodeString& sentence);
