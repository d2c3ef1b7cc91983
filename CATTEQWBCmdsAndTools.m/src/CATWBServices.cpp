#include "CATWBServices.h"

#include "WBDates.h"
#include "WBDisplayTexts.h"
#include "WBExpression.h"
#include "WBFields.h"
#include "WBInertia.h"
#include "WBMessages.h"
#include "WBNavigatorSettings.h"
#include "WBNumbers.h"
#include "WBReportInertia.h"
#include "WBReportNodes.h"
#include "WBStorageValues.h"

#include "CATDiagnostics.h"
#include "CATNumberLocale.h"
#include "CATWBVPMNavFilterPanel.h"

#include <optional>
#include <string_view>

// The interface takes some texts by value; here they are only read.
// NOLINTBEGIN(performance-unnecessary-value-param)

long CATWBServices::FindOccurenceOfDelim(CATUnicodeString text, int n, int& value)
{
    const std::optional<std::string_view> field = RawField(text.View(), n);
    return field && CATReadInt(*field, value) == 1 ? S_OK : E_FAIL;
}

long CATWBServices::FindOccurenceOfDelim(CATUnicodeString text, int n, CATUnicodeString& token)
{
    const CATListValCATUnicodeString tokens = LeadingTokens(text, "|");
    CATDiagnosticOutput().Line("iStringToParse:", text);
    CATDiagnosticOutput().Line("NbOfOccurence:", n);
    CATDiagnosticOutput().Line("NbOfTokens:", tokens.Size());
    if (n < 0 || n >= tokens.Size()) {
        CATDiagnosticOutput().Line("FAILED to find substring #", n);
        return E_FAIL;
    }
    token = tokens[n + 1];
    return S_OK;
}

void CATWBServices::StringTokenizer(const CATUnicodeString& text, const CATUnicodeString& delimiter,
                                    CATListValCATUnicodeString& tokens, int& count)
{
    const CATListValCATUnicodeString found = LeadingTokens(text, delimiter);
    for (const CATUnicodeString& token : found.Items()) {
        tokens.Append(token);
    }
    count = found.Size();
}

int CATWBServices::ConvertToDouble(const CATUnicodeString& text, double& value)
{
    return ReadAnyReal(text.View(), value);
}

void CATWBServices::SynchronizeDoubleString(CATUnicodeString& text)
{
    SynchronizeSeparator(text);
}

long CATWBServices::RestoreValue(CATUnicodeString magnitude, double& value)
{
    const std::optional<double> restored = RestoredValue(magnitude, value);
    if (!restored) {
        return E_FAIL;
    }
    value = *restored;
    return S_OK;
}

void CATWBServices::EvaluateSimpleExpression(CATUnicodeString& text)
{
    const std::optional<double> value = ExpressionValue(text);
    if (value) {
        text = CATUnicodeString::FromReal(*value, "%g");
    }
}

long CATWBServices::GetDateFromText(const CATUnicodeString& text, const CATUnicodeString& format,
                                    const CATUnicodeString& dateTimeSeparator,
                                    const CATUnicodeString& dateDelimiter,
                                    const CATUnicodeString& timeDelimiter, bool dateOnly,
                                    CATTime& time)
{
    return ReadTypedDate(text, {format, dateTimeSeparator, dateDelimiter, timeDelimiter, dateOnly},
                         time);
}

void CATWBServices::CleanWarningForDisplay(const CATUnicodeString& warning, CATUnicodeString& shown)
{
    shown = ShortenedWarning(warning);
}

void CATWBServices::CleanPathForDisplay(const CATUnicodeString& path, CATUnicodeString& shown)
{
    shown += ReversedPath(path);
}

bool CATWBServices::IsStableOrderUsed(CATUnicodeString& message)
{
    const WBStableOrder order = ReadStableOrder();
    message = order.message;
    return order.used;
}

bool CATWBServices::ValidateFilterCondition(CATDialog* parent,
                                            const CATUnicodeString& rootIdentifier)
{
    if (parent == nullptr) {
        CATDiagnosticErrors().Line("Invalid arguments have been received!");
        return true;
    }
    const bool filtered = !(CATWBVPMNavFilterPanel::GetFilter(rootIdentifier) == "0|No Filter");
    return filtered || ConfirmComputeWithoutFilter(*parent);
}

void CATWBServices::DisplayMsg(CATDialog* parent, const CATString& name,
                               const CATUnicodeString& text, int style)
{
    if (parent == nullptr) {
        CATDiagnosticOutput().Line("The pointer to the parent window is null!");
        return;
    }
    ShowMessage(*parent, name, text, style);
}

void CATWBServices::GetWarningMsgFromEnovia(CATUnicodeString& message)
{
    message = PendingServerWarning();
}

unsigned char CATWBServices::IsNodeOfType(const CATIDOMNode_var& node, const CATUnicodeString& name)
{
    return IsElementNamed(node, name) ? 1 : 0;
}

unsigned char CATWBServices::IsPartInstanceNode(const CATIDOMNode_var& node)
{
    return IsNodeOfType(node, kPartInstanceElement);
}

unsigned char CATWBServices::IsWBSectionNode(const CATIDOMNode_var& node)
{
    return IsNodeOfType(node, kSectionElement);
}

void CATWBServices::CreateHeaderSection(const CATIDOMDocument_var& document)
{
    WriteUnitHeader(document);
}

long CATWBServices::ConvertInertiaMatrix(CATMath3x3Matrix& matrix, double mass,
                                         const CATMathPoint& first, const CATMathPoint& second,
                                         unsigned char add)
{
    matrix = MovedInertia(matrix, mass, second - first,
                          add != 0 ? WBInertiaMove::AwayFromCentre : WBInertiaMove::ToCentre);
    return S_OK;
}

void CATWBServices::InertiaReferencePointConversion(CATIDOMDocument_var& document,
                                                    CATMathPoint* referencePoint,
                                                    CATMath3x3Matrix* axes,
                                                    unsigned char keepAtCentre)
{
    if (document.IsNull() || referencePoint == nullptr) {
        return;
    }
    MoveReportToPoint(document, *referencePoint, axes,
                      keepAtCentre != 0 ? WBInertiaAbout::CentreOfGravity
                                        : WBInertiaAbout::ReferencePoint);
}

void CATWBServices::InertiaDirectionConversion(CATIDOMDocument_var& document,
                                               CATMath3x3Matrix* axes)
{
    if (document.IsNull() || axes == nullptr) {
        return;
    }
    TurnReport(document, *axes);
}

// NOLINTEND(performance-unnecessary-value-param)
