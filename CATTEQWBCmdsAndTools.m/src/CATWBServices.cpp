#include "CATWBServices.h"

#include "WBDates.h"
#include "WBDisplayTexts.h"
#include "WBExpression.h"
#include "WBFields.h"
#include "WBInertia.h"
#include "WBMessages.h"
#include "WBNavigatorSettings.h"
#include "WBNumbers.h"
#include "WBReportAttributes.h"
#include "WBReportInertia.h"
#include "WBReportNodes.h"
#include "WBReportUnits.h"
#include "WBStorageValues.h"
#include "WBUnitDisplay.h"

#include "CATDiagnostics.h"
#include "CATIDOMElement.h"
#include "CATNumberLocale.h"
#include "CATWBVPMNavFilterPanel.h"

#include <array>
#include <optional>
#include <string_view>

namespace
{

WBUnitsTask TaskOf(unsigned char convert)
{
    return convert != 0 ? WBUnitsTask::Convert : WBUnitsTask::Display;
}

} // namespace

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

CATICkeMagnitude_var CATWBServices::GetMagnitude(const CATUnicodeString& name)
{
    return KnownMagnitude(name);
}

CATUnicodeString CATWBServices::DisplayValue(const CATICkeUnit_var& targetUnit,
                                             const CATICkeUnit_var& sourceUnit, const double& value,
                                             const unsigned char& withSymbol, int decimals)
{
    WBUnitDisplay display({targetUnit, sourceUnit}, {withSymbol != 0, decimals});
    return display.Show(value).View();
}

unsigned char CATWBServices::SetAttributeValue(CATIDOMNode_var& node, CATUnicodeString attribute,
                                               const CATICkeUnit_var& targetUnit,
                                               const CATICkeUnit_var& sourceUnit,
                                               const unsigned char& withSymbol, int decimals,
                                               const unsigned char& multiValued)
{
    CATIDOMElement* const element = ElementOf(node);
    if (element == nullptr) {
        return 0;
    }
    const CATDOMName name = element->OwnerDocument()->FindName(attribute.View());
    WBUnitDisplay display({targetUnit, sourceUnit}, {withSymbol != 0, decimals});
    const bool isRewritten = multiValued != 0 ? RewriteList(*element, name, display)
                                              : RewriteValue(*element, name, display);
    return isRewritten ? 1 : 0;
}

unsigned char CATWBServices::SetAttributeValue(CATIDOMNode_var& node, CATUnicodeString attribute,
                                               CATUnicodeString dimensionAttribute,
                                               const CATICkeUnit_var& volumicTargetUnit,
                                               const CATICkeUnit_var& volumicSourceUnit,
                                               const CATICkeUnit_var& surfacicTargetUnit,
                                               const CATICkeUnit_var& surfacicSourceUnit,
                                               const unsigned char& withSymbol, int decimals)
{
    CATIDOMElement* const element = ElementOf(node);
    if (element == nullptr) {
        return 0;
    }
    const CATIDOMDocument_var document = element->OwnerDocument();
    const std::array names{document->FindName(attribute.View()),
                           document->FindName(dimensionAttribute.View())};
    const WBShowOptions options{withSymbol != 0, decimals};
    WBUnitDisplay volumic({volumicTargetUnit, volumicSourceUnit}, options);
    WBUnitDisplay surfacic({surfacicTargetUnit, surfacicSourceUnit}, options);
    return RewriteDensities(*element, names, volumic, surfacic, WBMissingDimension::AsBefore) ? 1
                                                                                              : 0;
}

void CATWBServices::ManageLengthAttributes(CATIDOMNodeList_var& nodes,
                                           const CATICkeMagnitude_var& magnitude,
                                           const unsigned char& convert,
                                           const unsigned char& withSymbol, int decimals)
{
    RewriteValues(nodes, magnitude, kCentreAttributes, TaskOf(convert),
                  {withSymbol != 0, decimals});
}

void CATWBServices::ManageMassAttributes(CATIDOMNodeList_var& nodes,
                                         const CATICkeMagnitude_var& magnitude,
                                         const unsigned char& convert,
                                         const unsigned char& withSymbol, int decimals)
{
    RewriteValues(nodes, magnitude, kMassAttributes, TaskOf(convert), {withSymbol != 0, decimals});
}

void CATWBServices::ManageInertiaAttributes(CATIDOMNodeList_var& nodes,
                                            const CATICkeMagnitude_var& magnitude,
                                            const unsigned char& convert,
                                            const unsigned char& withSymbol, int decimals)
{
    RewriteValues(nodes, magnitude, kInertiaAttributes, TaskOf(convert),
                  {withSymbol != 0, decimals});
}

void CATWBServices::ManageDensityAttributes(CATIDOMNodeList_var& nodes,
                                            const CATICkeMagnitude_var& volumicMagnitude,
                                            const CATICkeMagnitude_var& surfacicMagnitude,
                                            const unsigned char& convert,
                                            const unsigned char& withSymbol, int decimals)
{
    RewriteAllDensities(nodes, volumicMagnitude, surfacicMagnitude, TaskOf(convert),
                        {withSymbol != 0, decimals});
}

void CATWBServices::ManageVolumeAttributes(CATIDOMNodeList_var& nodes,
                                           const CATICkeMagnitude_var& magnitude,
                                           const unsigned char& convert,
                                           const unsigned char& withSymbol, int decimals)
{
    RewriteValues(nodes, magnitude, kVolumeAttributes, TaskOf(convert),
                  {withSymbol != 0, decimals});
}

void CATWBServices::ManageUnitsConversion(CATIDOMDocument_var& document,
                                          const unsigned char& withSymbol, int decimals)
{
    ConvertReport(document, {withSymbol != 0, decimals});
}

void CATWBServices::ManageUnitsDisplay(CATIDOMDocument_var& document,
                                       const CATListValCATUnicodeString& magnitudeAttributes,
                                       const unsigned char& withSymbol, int decimals)
{
    DisplayReport(document, magnitudeAttributes, {withSymbol != 0, decimals});
}

void CATWBServices::ManageUnitsConversionDistributive(const CATIDOMDocument_var& document,
                                                      const unsigned char& withSymbol, int decimals)
{
    ConvertDistributiveReport(document, {withSymbol != 0, decimals});
}

void CATWBServices::ManageUnitsDisplayDistributive(CATIDOMDocument_var& document,
                                                   const unsigned char& withSymbol, int decimals)
{
    DisplayDistributiveReport(document, {withSymbol != 0, decimals});
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
