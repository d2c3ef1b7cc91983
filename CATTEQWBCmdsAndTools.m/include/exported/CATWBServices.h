#pragma once

#include "CATCollections.h"
#include "CATICkeMagnitude.h"
#include "CATIDOMDocument.h"
#include "CATMath3x3Matrix.h"
#include "CATMathPoint.h"
#include "CATStatus.h"
#include "CATString.h"
#include "CATTime.h"
#include "CATUnicodeString.h"
#include "WBExport.h"

class CATDialog;

/// What the commands, panels and previews share: operations on texts, numbers, dates, settings and
/// messages. Nothing here keeps a state. Statuses are S_OK, E_FAIL with the outputs untouched
/// unless something else is said. Failures are told to the diagnostic streams; only the operations
/// that say so speak to the user.
class WB_EXPORT CATWBServices
{
public:
    CATWBServices() = delete;

    // Fields of "|"-separated texts

    /// Field number `n` (from 0) as an integer. Every "|" ends a field, so an empty field is one. A
    /// negative number means the first field. E_FAIL when there is no such field or it is no
    /// integer.
    static long FindOccurenceOfDelim(CATUnicodeString text, int n, int& value);
    /// Token number `n` (from 0) as a text. Only the tokens before the first empty one count, which
    /// is not how the integer form counts. E_FAIL, with a diagnostic line, when there are not that
    /// many or `n` is negative.
    static long FindOccurenceOfDelim(CATUnicodeString text, int n, CATUnicodeString& token);
    /// The tokens before the first empty one, appended to the list, and their number.
    static void StringTokenizer(const CATUnicodeString& text, const CATUnicodeString& delimiter,
                                CATListValCATUnicodeString& tokens, int& count);

    // Numbers

    /// Reads a real with either decimal separator: 1 and the value, or 0 and the value 0.
    static int ConvertToDouble(const CATUnicodeString& text, double& value);
    /// Makes the text's decimal separator the one that the session writes.
    static void SynchronizeDoubleString(CATUnicodeString& text);
    /// Brings a value back from what the user sees: converts it by the magnitude's storage unit and
    /// then by its current one; of "LENGTH" (in any letter case) the result is also multiplied by
    /// 1e6. E_FAIL when the magnitude or one of the two units is missing.
    static long RestoreValue(CATUnicodeString magnitude, double& value);
    /// Replaces a text such as "2^10" or "12.5/4" by its result ("1024", "3.125"); powers,
    /// products, quotients, sums and differences of two numbers. A text with none of the five
    /// operators, or with two different ones, stays as it is.
    static void EvaluateSimpleExpression(CATUnicodeString& text);

    // Dates

    /// Reads a typed date: year, month and day with `dateDelimiter` between them, and unless
    /// `dateOnly` is set the time with `timeDelimiter` behind `dateTimeSeparator`. The date is
    /// taken only when `format` (see CATTime::ToText) writes it exactly as it was typed. E_FAIL
    /// otherwise, with the reason on the diagnostic error stream. A typed time is read in a way
    /// that refuses nearly all of them; see WBDates.h.
    static long GetDateFromText(const CATUnicodeString& text, const CATUnicodeString& format,
                                const CATUnicodeString& dateTimeSeparator,
                                const CATUnicodeString& dateDelimiter,
                                const CATUnicodeString& timeDelimiter, bool dateOnly,
                                CATTime& time);

    // Texts for people

    /// A server's warning, at most its first nine paragraphs and its error when it is longer than
    /// 1000 characters.
    static void CleanWarningForDisplay(const CATUnicodeString& warning, CATUnicodeString& shown);
    /// Appends the path's elements in reverse order, each after a "|": A|B|C appends |C|B|A. Stops
    /// at the first empty element.
    static void CleanPathForDisplay(const CATUnicodeString& path, CATUnicodeString& shown);

    // Settings and messages

    /// Whether the navigator's option of stable ordering is on. The message is empty, or says to
    /// the user why the option could not be read; the answer is then false.
    static bool IsStableOrderUsed(CATUnicodeString& message);
    /// Asks the user, in a blocking box, whether to go on when no filter is defined for the root.
    /// False when the user refuses; true in every other case, without a parent too.
    static bool ValidateFilterCondition(CATDialog* parent, const CATUnicodeString& rootIdentifier);
    /// Shows a message box and goes on; the box deletes itself when it is closed. Without a parent
    /// there is only a diagnostic line.
    static void DisplayMsg(CATDialog* parent, const CATString& name, const CATUnicodeString& text,
                           int style);
    /// The server's pending warning; the empty text when there is none or the server does not
    /// answer.
    static void GetWarningMsgFromEnovia(CATUnicodeString& message);

    // The report document
    //
    // The server's XML report: elements "PRC" (the product root), "PartInstance" and "WB_Section"
    // anywhere in it, whose attributes hold numbers as texts. They come in the storage units of
    // their magnitudes, with either decimal separator. A null node or document handle raises the
    // host's null-handle error, where nothing else is said.

    /// Non-zero when the node is an element of exactly that name.
    static unsigned char IsNodeOfType(const CATIDOMNode_var& node, const CATUnicodeString& name);
    static unsigned char IsPartInstanceNode(const CATIDOMNode_var& node);
    static unsigned char IsWBSectionNode(const CATIDOMNode_var& node);
    /// Writes the symbols of the current units on the document element: "LengthUnit", "MassUnit",
    /// "InertiaMomentUnit", "DensityUnit", "SurfacicDensityUnit", "VolumeUnit". One whose magnitude
    /// is not known is left out.
    static void CreateHeaderSection(const CATIDOMDocument_var& document);

    // Values in units
    //
    // `withSymbol` non-zero keeps the unit's symbol behind the number. `decimals` 0 is the unit's
    // own way of showing a value, a positive number is that many decimals, a negative one the
    // unit's own number of decimals held fixed, so that trailing zeros show. `convert` non-zero:
    // the values stand in storage units and are brought to the current ones; zero: they stand in
    // the current units and are only shown anew. A text that is no number counts as 0 and is
    // written so. A null unit raises the host's null-handle error as soon as a value needs it.

    /// Null when the dictionary has no such magnitude.
    static CATICkeMagnitude_var GetMagnitude(const CATUnicodeString& name);
    /// A value of the source unit as text in the target unit. Without the symbol, every occurrence
    /// of the symbol's text is taken out, one inside the number ("in" in "inf") included.
    static CATUnicodeString DisplayValue(const CATICkeUnit_var& targetUnit,
                                         const CATICkeUnit_var& sourceUnit, const double& value,
                                         const unsigned char& withSymbol, int decimals);
    /// Rewrites one attribute from the source to the target unit. With `multiValued` non-zero it is
    /// a list of numbers between ";", read up to its first empty item and written with "; ". False,
    /// with nothing changed, when the node is null, no element, or lacks the attribute, and when
    /// the unit shows what no document can hold.
    static unsigned char SetAttributeValue(CATIDOMNode_var& node, CATUnicodeString attribute,
                                           const CATICkeUnit_var& targetUnit,
                                           const CATICkeUnit_var& sourceUnit,
                                           const unsigned char& withSymbol, int decimals,
                                           const unsigned char& multiValued);
    /// Rewrites a list of densities, each with the units that its item of the list of dimensions
    /// asks for: 2 the surfacic ones, anything else the volumic ones. An item that is missing or no
    /// integer keeps the dimension of the item before it. False as above; both attributes must be
    /// there.
    static unsigned char SetAttributeValue(CATIDOMNode_var& node, CATUnicodeString attribute,
                                           CATUnicodeString dimensionAttribute,
                                           const CATICkeUnit_var& volumicTargetUnit,
                                           const CATICkeUnit_var& volumicSourceUnit,
                                           const CATICkeUnit_var& surfacicTargetUnit,
                                           const CATICkeUnit_var& surfacicSourceUnit,
                                           const unsigned char& withSymbol, int decimals);

    // Each rewrites its attributes of every node of the list: "COGx", "COGy", "COGz"; "WB_Mass",
    // "WB_Lower_deviation", "WB_Upper_deviation"; "MOIxx", "MOIyy", "MOIzz", "POIxy", "POIxz",
    // "POIyz"; "WB_Density" and "Density" with "Density_dimension"; "Cut_Volume". A null list, a
    // null magnitude or one without its units leaves all as it is.
    static void ManageLengthAttributes(CATIDOMNodeList_var& nodes,
                                       const CATICkeMagnitude_var& magnitude,
                                       const unsigned char& convert,
                                       const unsigned char& withSymbol, int decimals);
    static void ManageMassAttributes(CATIDOMNodeList_var& nodes,
                                     const CATICkeMagnitude_var& magnitude,
                                     const unsigned char& convert, const unsigned char& withSymbol,
                                     int decimals);
    static void ManageInertiaAttributes(CATIDOMNodeList_var& nodes,
                                        const CATICkeMagnitude_var& magnitude,
                                        const unsigned char& convert,
                                        const unsigned char& withSymbol, int decimals);
    static void ManageDensityAttributes(CATIDOMNodeList_var& nodes,
                                        const CATICkeMagnitude_var& volumicMagnitude,
                                        const CATICkeMagnitude_var& surfacicMagnitude,
                                        const unsigned char& convert,
                                        const unsigned char& withSymbol, int decimals);
    static void ManageVolumeAttributes(CATIDOMNodeList_var& nodes,
                                       const CATICkeMagnitude_var& magnitude,
                                       const unsigned char& convert,
                                       const unsigned char& withSymbol, int decimals);

    // Whole documents
    //
    // Conversion is done once, right after the document was read; display shows anew what was
    // converted, any number of times. A bad value never stops a walk. User-defined properties,
    // named by "__magnitude__" attributes, are reported on the diagnostic output when they cannot
    // be shown.

    /// Converts a report and writes the symbols of the units on the document element.
    static void ManageUnitsConversion(CATIDOMDocument_var& document,
                                      const unsigned char& withSymbol, int decimals);
    /// `magnitudeAttributes`: the names of the "__magnitude__" attributes of the part instances.
    static void ManageUnitsDisplay(CATIDOMDocument_var& document,
                                   const CATListValCATUnicodeString& magnitudeAttributes,
                                   const unsigned char& withSymbol, int decimals);
    /// Converts a distributive report, which has densities and volumes on every element and no
    /// user-defined properties.
    static void ManageUnitsConversionDistributive(const CATIDOMDocument_var& document,
                                                  const unsigned char& withSymbol, int decimals);
    static void ManageUnitsDisplayDistributive(CATIDOMDocument_var& document,
                                               const unsigned char& withSymbol, int decimals);

    // Inertia
    //
    // Matrices hold the moments on the diagonal and the negated products of inertia beside it.
    // Documents hold lengths in millimetres, masses in kilograms and inertias in kilogram square
    // metres; numbers go back into them with six significant digits.

    /// Moves an inertia between two points, their distance in the matrix's own length: adds the
    /// mass times the parallel-axis term of the offset when `add` is non-zero, else takes it away.
    /// From the centre of gravity to a point it is added. Always S_OK.
    static long ConvertInertiaMatrix(CATMath3x3Matrix& matrix, double mass,
                                     const CATMathPoint& first, const CATMathPoint& second,
                                     unsigned char add);
    /// Moves the inertias of every element from its centre of gravity to the reference point
    /// (`keepAtCentre` zero) or leaves them there, and writes every centre of gravity relative to
    /// that point. With an axis matrix the point is first multiplied by it. A null document or
    /// point leaves all as it is.
    static void InertiaReferencePointConversion(CATIDOMDocument_var& document,
                                                CATMathPoint* referencePoint,
                                                CATMath3x3Matrix* axes, unsigned char keepAtCentre);
    /// Writes every centre of gravity G as A G, and every inertia I as (A^-1) I A on part
    /// instances and as (A^T) I A on roots and sections; the same for a rotation. A null document
    /// or matrix leaves all as it is. A singular A has no inverse: the inertia attributes of part
    /// instances are then not touched, and their centres of gravity written as ever.
    static void InertiaDirectionConversion(CATIDOMDocument_var& document, CATMath3x3Matrix* axes);
};
