#pragma once

#include "CATUnicodeString.h"

#include <array>
#include <optional>
#include <vector>

/// What the record's stream does not say: names as people say them, which figures are really known
/// and where they come from, what a sum covers and what it is made of. On the stream an unknown
/// figure travels as 0; this keeps it from being shown as one. Storage units.

/// Where a figure of a set comes from.
enum class WBOrigin
{
    Unknown,
    Stated,
    SizeTimesDensity,
    Lent, ///< sums complete the set with the figure of another mass type, the lender
    SummedUp
};

enum class WBPrecisionOrigin
{
    None,
    Stated,
    Default ///< of the mass type
};

/// In the order in which figures are listed everywhere: mass, centre x, y, z, Ixx, Iyy, Izz, Ixy,
/// Ixz, Iyz; products with the sign of + integral of x y dm.
using WBTenFigures = std::array<std::optional<double>, 10>;
/// Mass, lower and upper deviation, then the nine others as above.
using WBTwelveFigures = std::array<std::optional<double>, 12>;

/// What is said of one mass type of the part.
struct WBSetDetails
{
    CATUnicodeString massType;
    WBOrigin mass = WBOrigin::Unknown;
    WBOrigin centre = WBOrigin::Unknown;
    WBOrigin inertia = WBOrigin::Unknown;
    CATUnicodeString centreLender; ///< a mass type; empty where the centre is not lent
    CATUnicodeString inertiaLender;
    WBPrecisionOrigin precision = WBPrecisionOrigin::None;
    WBTenFigures sigmas; ///< standard uncertainties as stated
    CATUnicodeString source;
    CATUnicodeString sourceDate; ///< yyyy/mm/dd
    CATUnicodeString author;
    CATUnicodeString note;
    std::array<std::optional<double>, 3> principalMoments; ///< largest first
};

/// What a sum could count.
struct WBCoverage
{
    double leaves = 0.0;
    double leavesWithoutMass = 0.0;
    double massWithoutCentre = 0.0;
    double massWithoutInertia = 0.0;
};

struct WBShare
{
    CATUnicodeString name;
    double mass = 0.0;
};

/// A set that stands for all that is below an assembly, beside the sum of that.
struct WBImposedDetails
{
    CATUnicodeString massType;
    WBTwelveFigures own;
    WBTwelveFigures below;
    WBTwelveFigures difference;
};

struct WBUncertaintyDetails
{
    WBTenFigures sigmas;                 ///< of the sum
    std::optional<double> shareUnstated; ///< of the mass, 0 to 1: nobody stated its uncertainty
};

struct WBValueDetails
{
    CATUnicodeString partName;          ///< empty when the server did not say it
    std::vector<WBSetDetails> sets;     ///< Computed first
    std::optional<WBCoverage> coverage; ///< of Computed; nothing where the server said nothing
    std::vector<WBShare> codes;
    std::vector<WBShare> massTypes;
    std::optional<double> growthAllowance;
    std::optional<WBImposedDetails> imposed;
    std::optional<WBUncertaintyDetails> uncertainty;
    std::vector<CATUnicodeString> warnings;

    /// Null for a mass type that the server said nothing about.
    const WBSetDetails* Of(const CATUnicodeString& massType) const;
};

/// Which values the details are about.
enum class WBDetailsOf
{
    StoredValues, ///< those that the initial-values answer carries
    Computation   ///< those of the computation that the request describes
};

/// Asks the server ("WBGetValueDetails") about what a computation request names. An answer that
/// does not come, or that cannot be read, is told on the diagnostic error stream; then nothing is
/// said of anything.
WBValueDetails WBAskValueDetails(WBDetailsOf what, const CATUnicodeString& computationRequest);

/// Reads an answer: every field as the server announces it, and nothing behind them. Nothing for
/// any other text: what a count that lies leaves over would have its zeros shown as known ones.
std::optional<WBValueDetails> WBReadValueDetails(const CATUnicodeString& answer);
