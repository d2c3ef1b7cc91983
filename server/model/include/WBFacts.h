#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wb
{
/// Everything that can be stated once about a part, a use or one of their value sets. The numbers
/// of a value set come first, so that they also index ValueSet::numbers.
enum class Fact : std::uint8_t
{
    Mass,
    Lower,
    Upper,
    LowerPct,
    UpperPct,
    CgX,
    CgY,
    CgZ,
    Ixx,
    Iyy,
    Izz,
    Ixy,
    Ixz,
    Iyz,
    Volume,
    Area,
    SigmaMass,
    SigmaCgX,
    SigmaCgY,
    SigmaCgZ,
    SigmaIxx,
    SigmaIyy,
    SigmaIzz,
    SigmaIxy,
    SigmaIxz,
    SigmaIyz,
    Source,
    SourceDate,
    Author,
    Note,
    Name,
    Type,
    Standard,
    Code,
    GrowthPct,
    Density,
    SurfaceDensity,
    DensityFirst,
    Errors,
    Material,
    MaterialDensity,
    MaterialSurfaceDensity,
    Active,
    Quantity,
    Position,
    Rotation,
    InertiaAt,
    Kx,
    Ky,
    Kz,
    DocumentUse,
    CheckinDate,
    CheckinUser,
    CheckoutUser,
    DocumentMassType,
    DocumentMass,
};

constexpr std::size_t kSetNumbers = static_cast<std::size_t>(Fact::SigmaIyz) + 1;

/// The fact's name in the table form, "cgx"; also its key among the texts as typed.
const char* FactName(Fact fact);

/// Where each fact about one thing was stated: the thing's first line, and the lines of those facts
/// that stand elsewhere. Most things are stated in one row, so this stays small.
class FactLines
{
public:
    void State(Fact fact, std::uint32_t line);
    std::uint32_t LineOf(Fact fact) const;
    std::uint32_t First() const { return m_first; }

private:
    std::uint32_t m_first = 0;
    std::vector<std::pair<Fact, std::uint32_t>> m_later;
};

/// Numbers as they were typed: "mass=3.90 lb|cgx=12 in". One text a thing keeps a large product
/// small; no text or unit can hold "|", since those never enter.
void KeepTyped(std::string& typed, std::string_view name, std::string_view text,
               std::string_view unit);

/// Drops the text of one number, as when another value takes its place.
void ForgetTyped(std::string& typed, std::string_view name);

/// The text of one number as typed, with its unit behind a blank; empty when none was kept.
std::string_view TypedText(std::string_view typed, std::string_view name);
} // namespace wb
