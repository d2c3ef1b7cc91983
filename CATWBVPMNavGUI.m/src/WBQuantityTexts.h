#pragma once

#include "CATUnicodeString.h"

#include <optional>
#include <vector>

/// How quantities travel and are compared: as texts. Numbers stand in them with "." and 15 digits,
/// in storage units, so that two texts are alike exactly when nothing was changed.

inline constexpr const char* kWBMassQuantity = "mass";
inline constexpr const char* kWBCentreQuantity = "centre";       ///< x;y;z
inline constexpr const char* kWBInertiaQuantity = "inertia";     ///< Ixx;Iyy;Izz;Ixy;Ixz;Iyz
inline constexpr const char* kWBPrecisionQuantity = "precision"; ///< kind;lower;upper
inline constexpr const char* kWBActiveQuantity = "active";
inline constexpr const char* kWBDensityQuantity = "density";
inline constexpr const char* kWBMaterialQuantity = "material";
inline constexpr const char* kWBDensityOrderQuantity = "density order";
inline constexpr const char* kWBPropertyQuantity = "property "; ///< the property's name follows

/// The kinds of a precision.
inline constexpr const char* kWBPercent = "percent";
inline constexpr const char* kWBAbsolute = "absolute"; ///< kg
/// The orders of densities: which goes first.
inline constexpr const char* kWBOwnDensityFirst = "wb";
inline constexpr const char* kWBMaterialFirst = "material";

/// What a quantity's text is made of, each piece empty where it is not stated.
using WBPieces = std::vector<CATUnicodeString>;

/// As many pieces as such a quantity has, whatever the text.
WBPieces WBPiecesOf(const CATUnicodeString& quantity, const CATUnicodeString& text);
/// Empty when every piece is.
CATUnicodeString WBTextOf(const WBPieces& pieces);
/// All stated, or none.
bool WBAreComplete(const WBPieces& pieces);
/// Whether such a quantity can have this text: an empty one, or the right number of pieces with
/// numbers where these belong.
bool WBIsTextOf(const CATUnicodeString& quantity, const CATUnicodeString& text);

CATUnicodeString WBPieceOf(double value);
/// Nothing for a piece that is empty, or no number.
std::optional<double> WBNumberOf(const CATUnicodeString& piece);
