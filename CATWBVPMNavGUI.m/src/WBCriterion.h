#pragma once

#include "CATICkeUnit.h"
#include "WBGroupFigures.h"

#include <optional>
#include <string_view>
#include <vector>

/// What a user asks of an attribute: "Mass > 5 kg", "Vendor contains Smith".

enum class WBValueKind
{
    Text,
    Number, ///< also one with a magnitude
    Date,
    YesNo
};

/// Words stand for texts and yes or no, signs for numbers and dates.
enum class WBComparison
{
    Is,
    IsNot,
    Contains,
    BeginsWith,
    Equal,
    NotEqual,
    Less,
    AtMost,
    Greater,
    AtLeast
};

/// As it is kept in the settings: whoever reads it needs neither the user's language nor the units
/// and the decimal separator of the day on which it was written.
struct WBCriterion
{
    CATUnicodeString attribute; ///< as the report names it
    WBComparison comparison = WBComparison::Is;
    /// A text as it was typed; a number with "." and, where it has a magnitude, the unit that it
    /// was typed in behind a blank ("12.5 lb"); a date "2026/11/21"; "yes" or "no".
    CATUnicodeString value;
    /// The magnitude of a number, else what kind of value it is: nothing for a text.
    CATUnicodeString magnitude;

    friend bool operator==(const WBCriterion&, const WBCriterion&) = default;
};

/// Stand in the place of a magnitude.
inline constexpr const char* kWBPlainNumber = "NUMBER";
inline constexpr const char* kWBDate = "DATE";
inline constexpr const char* kWBYesNo = "YESNO";

WBValueKind WBKindOf(const CATUnicodeString& magnitude);
/// In the order in which they are offered.
const std::vector<WBComparison>& WBComparisonsOf(WBValueKind kind);
/// As it is kept and shown: "is not", "<=".
const char* WBComparisonName(WBComparison comparison);
/// The comparison of that name that values of the kind have; nothing for any other name.
std::optional<WBComparison> WBComparisonNamed(WBValueKind kind, const CATUnicodeString& name);

/// What a user typed, as a criterion keeps it, or the sentence of what is wrong.
struct WBTypedValue
{
    CATUnicodeString value;
    CATUnicodeString problem; ///< empty when the value was read
};
/// A number with a unit of its magnitude, or without one in the current unit, with either decimal
/// separator; a date with the year first, or by day, month and year with points; "yes" or "no" in
/// English or in the user's language; any text but an empty one.
WBTypedValue WBReadTypedValue(const CATUnicodeString& typed, const CATUnicodeString& magnitude);
/// The kept value as the user reads and may type it again.
CATUnicodeString WBShownValue(const WBCriterion& criterion);
/// An attribute's text as a user would type it, numbers in the current unit; empty when the
/// attribute holds no value of that magnitude.
CATUnicodeString WBTypedForm(std::string_view attributeText, const CATUnicodeString& magnitude);
/// Whether the parts of a criterion fit one another, as those of a stored one need not.
bool WBIsReadable(const WBCriterion& criterion);

/// A readable criterion, made ready for many values.
class WBCriterionTest
{
public:
    explicit WBCriterionTest(const WBCriterion& criterion);
    /// Whether the attribute's text meets the criterion. Texts are compared without regard to
    /// letter case. Two numbers with a magnitude are equal when both read the same in the
    /// criterion's unit: what is shown as 3.419 kg is found by 3.419 kg. A text that holds no value
    /// of the criterion's kind meets none.
    bool Meets(std::string_view text) const;

private:
    bool MeetsAsText(std::string_view text) const;
    bool MeetsAsNumber(double value) const;
    bool MeetsByOrder(int order) const;

    WBComparison m_comparison;
    WBValueKind m_kind;
    CATUnicodeString m_text;
    double m_number = 0.0;
    int m_date = 0;
    CATICkeUnit_var m_unit;
    CATUnicodeString m_shown; ///< the number as it reads in the unit
};
