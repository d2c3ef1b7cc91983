#include "WBEditFields.h"

#include "WBPanelUnits.h"
#include "WBTypedQuantity.h"

#include <algorithm>
#include <array>

namespace
{

using Kind = WBEditField::Kind;

constexpr const char* kMass = "MASS";
constexpr const char* kLength = "LENGTH";
constexpr const char* kInertia = "INERTIAMOMENT";

constexpr WBEditMessage kNoMass{"NotRead.Mass", "@\"/p1\" is no mass; expected a number like /p2."};
constexpr WBEditMessage kNoLength{"NotRead.Length",
                                  "@\"/p1\" is no length; expected a number like /p2."};
constexpr WBEditMessage kNoInertia{"NotRead.Inertia",
                                   "@\"/p1\" is no inertia; expected a number like /p2."};
constexpr WBEditMessage kNoDensity{"NotRead.Density",
                                   "@\"/p1\" is no density; expected a number like /p2."};
constexpr WBEditMessage kNoPercentage{"NotRead.Percentage",
                                      "@\"/p1\" is no percentage; expected a number like /p2."};
constexpr WBEditMessage kNone{"", ""};

constexpr std::array kRows{
    WBFieldRow{Kind::Mass, kWBMassQuantity, 0, kMass, kNoMass},
    WBFieldRow{Kind::CentreX, kWBCentreQuantity, 0, kLength, kNoLength},
    WBFieldRow{Kind::CentreY, kWBCentreQuantity, 1, kLength, kNoLength},
    WBFieldRow{Kind::CentreZ, kWBCentreQuantity, 2, kLength, kNoLength},
    WBFieldRow{Kind::Ixx, kWBInertiaQuantity, 0, kInertia, kNoInertia},
    WBFieldRow{Kind::Iyy, kWBInertiaQuantity, 1, kInertia, kNoInertia},
    WBFieldRow{Kind::Izz, kWBInertiaQuantity, 2, kInertia, kNoInertia},
    WBFieldRow{Kind::Ixy, kWBInertiaQuantity, 3, kInertia, kNoInertia},
    WBFieldRow{Kind::Ixz, kWBInertiaQuantity, 4, kInertia, kNoInertia},
    WBFieldRow{Kind::Iyz, kWBInertiaQuantity, 5, kInertia, kNoInertia},
    WBFieldRow{Kind::PrecisionKind, kWBPrecisionQuantity, 0, "", kNone},
    WBFieldRow{Kind::LowerPrecision, kWBPrecisionQuantity, 1, kMass, kNoMass},
    WBFieldRow{Kind::UpperPrecision, kWBPrecisionQuantity, 2, kMass, kNoMass},
    WBFieldRow{Kind::ActiveMassType, kWBActiveQuantity, 0, "", kNone},
    WBFieldRow{Kind::Density, kWBDensityQuantity, 0, "DENSITY", kNoDensity},
    WBFieldRow{Kind::Material, kWBMaterialQuantity, 0, "", kNone},
    WBFieldRow{Kind::AppliedOn, "", 0, "", kNone},
    WBFieldRow{Kind::DensityOrder, kWBDensityOrderQuantity, 0, "", kNone},
    WBFieldRow{Kind::Property, kWBPropertyQuantity, 0, "", kNone},
};

bool IsPrecision(Kind kind)
{
    return kind == Kind::LowerPrecision || kind == Kind::UpperPrecision;
}

WBTypedPieces Wrong(const WBEditMessage& message, const CATListValCATUnicodeString& parameters = {})
{
    return {{}, WBEditText(message, parameters)};
}

CATUnicodeString Example(const char* magnitude)
{
    const CATUnicodeString symbol = WBUnitSymbol(magnitude);
    const CATUnicodeString number = CATUnicodeString::FromReal(12.5);
    return symbol.IsEmpty() ? number : number + " " + symbol;
}

/// The kind that a number typed for a precision without one has.
CATUnicodeString KindOf(const CATUnicodeString& text)
{
    const bool isMass = !WBReadTypedPercentage(text) && WBReadTypedQuantity(text, kMass);
    return isMass ? kWBAbsolute : kWBPercent;
}

WBTypedPieces WithNumber(WBPieces pieces, std::size_t piece, double number)
{
    pieces[piece] = WBPieceOf(number);
    return {std::move(pieces), {}};
}

WBTypedPieces ReadPrecision(Kind kind, const CATUnicodeString& text, WBPieces pieces)
{
    const std::size_t piece = WBRowOf(kind).piece;
    if (text.IsEmpty()) {
        pieces[piece] = {};
        const bool isNone = pieces[1].IsEmpty() && pieces[2].IsEmpty();
        pieces[0] = isNone ? CATUnicodeString() : pieces[0];
        return {std::move(pieces), {}};
    }
    pieces[0] = pieces[0].IsEmpty() ? KindOf(text) : pieces[0];
    const bool isPercentage = pieces[0] == kWBPercent;
    const std::optional<double> number =
        isPercentage ? WBReadTypedPercentage(text) : WBReadTypedQuantity(text, kMass);
    if (!number) {
        return isPercentage ? Wrong(kNoPercentage, {text, "5 %"})
                            : Wrong(kNoMass, {text, Example(kMass)});
    }
    if (*number < 0.0) {
        return Wrong({"Precision.Negative",
                      "@A precision says how far the mass may lie off; it cannot be negative."});
    }
    return WithNumber(std::move(pieces), piece, *number);
}

} // namespace

const WBFieldRow& WBRowOf(Kind kind)
{
    // The rows stand in the order of the kinds; a test says so.
    return kRows[static_cast<std::size_t>(kind)];
}

bool WBIsOfMassType(Kind kind)
{
    return kind <= Kind::UpperPrecision;
}

CATUnicodeString WBShownPiece(Kind kind, const WBPieces& pieces)
{
    const WBFieldRow& row = WBRowOf(kind);
    const CATUnicodeString& piece = pieces[row.piece];
    const CATUnicodeString magnitude = row.magnitude;
    const std::optional<double> number = WBNumberOf(piece);
    if (magnitude.IsEmpty() || !number) {
        return piece;
    }
    return IsPrecision(kind) && pieces[0] == kWBPercent ? CATUnicodeString::FromReal(*number) + " %"
                                                        : WBValueWithUnit(magnitude, *number);
}

WBTypedPieces WBReadTypedPieces(Kind kind, const CATUnicodeString& text, WBPieces pieces)
{
    if (IsPrecision(kind)) {
        return ReadPrecision(kind, text, std::move(pieces));
    }
    const WBFieldRow& row = WBRowOf(kind);
    if (text.IsEmpty()) {
        pieces[row.piece] = {};
        return {std::move(pieces), {}};
    }
    const std::optional<double> number = WBReadTypedQuantity(text, row.magnitude);
    if (!number) {
        return Wrong(row.notRead, {text, Example(row.magnitude)});
    }
    // A density of 0 would travel like an unknown one.
    if (kind == Kind::Density && *number <= 0.0) {
        return Wrong({"Density.NotPositive",
                      "@A density is larger than 0; leave the field empty where it is not known."});
    }
    return WithNumber(std::move(pieces), row.piece, *number);
}

WBPieces WBPrecisionOfKind(const CATUnicodeString& kind, const WBPieces& stated)
{
    return kind == stated[0] ? stated : WBPieces{kind, {}, {}};
}
