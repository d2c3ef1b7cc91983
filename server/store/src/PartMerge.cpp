#include "PartMerge.h"

#include "Owners.h"
#include "WBNumbers.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

namespace wb
{
namespace
{
/// The header of a column that would give the property this kind.
std::string KindOf(const Property& property)
{
    switch (property.type) {
    case Property::Type::Integer:
        return property.name + ":int";
    case Property::Type::Real:
        return property.name + ":real";
    case Property::Type::YesNo:
        return property.name + ":bool";
    case Property::Type::Dimensioned:
        return property.name + ":" + property.magnitude;
    case Property::Type::Text:
        break;
    }
    return property.name + (property.isDate ? ":date" : "");
}

const char* NameOf(PartType type)
{
    return PartTypeName(type);
}
const char* NameOf(Answer answer)
{
    return answer == Answer::Yes ? "yes" : "no";
}
const char* NameOf(DensityOrder order)
{
    return order == DensityOrder::Material ? "material" : "wb";
}
const char* NameOf(ErrorRule rule)
{
    return rule == ErrorRule::Apart ? "apart" : "together";
}
std::string NameOf(int quantity)
{
    return std::to_string(quantity);
}
const char* NameOf(DocumentRevision::Use use)
{
    constexpr std::array kNames{"", "attached", "active", "both"};
    return kNames[static_cast<std::size_t>(use)];
}

std::string Listed(const std::array<double, 3>& numbers)
{
    return WriteNumber(numbers[0]) + " " + WriteNumber(numbers[1]) + " " + WriteNumber(numbers[2]);
}
std::string Listed(const Placement::Matrix& rotation)
{
    return Listed(rotation[0]) + " " + Listed(rotation[1]) + " " + Listed(rotation[2]);
}

/// What to show of a number: as typed where that was kept.
std::string Shown(double value, const std::string& typed, Fact fact)
{
    const std::string_view text = TypedText(typed, FactName(fact));
    return text.empty() ? WriteNumber(value) : std::string(text);
}
} // namespace

void PartMerge::Added(Weight weight)
{
    m_changed = true;
    m_touchesSums = m_touchesSums || weight == Weight::InSums;
}

void PartMerge::GiveWay(const Difference& difference, Weight weight)
{
    const std::string fact = m_set + difference.what;
    if (m_known == KnownFacts::Update) {
        m_changedFacts.push_back(
            {m_kind, m_owner, m_subject, fact, difference.stored, difference.stated});
        Added(weight);
        return;
    }
    m_errors.Line(difference.line, m_subject + ", " + fact + ": found \"" + difference.stated +
                                       "\", the database holds \"" + difference.stored +
                                       "\"; expected the same fact or a blank cell");
}

void PartMerge::KeepTypedOf(std::string& storedTyped, const std::string& statedTyped,
                            const char* name)
{
    ForgetTyped(storedTyped, name);
    const std::string_view typed = TypedText(statedTyped, name);
    if (!typed.empty()) {
        KeepTyped(storedTyped, name, typed, {});
    }
}

/// True when the number was taken; its text as typed is then the caller's to take over.
bool PartMerge::MergeNumber(double& stored, double stated, Fact fact, const FactLines& lines,
                            const std::string& storedTyped, const std::string& statedTyped)
{
    if (!IsKnown(stated)) {
        return false;
    }
    if (!IsKnown(stored)) {
        stored = stated;
        Added(Weight::InSums);
        return true;
    }
    if (AreAlike(stored, stated)) {
        return false;
    }
    GiveWay({lines.LineOf(fact), FactName(fact), Shown(stated, statedTyped, fact),
             Shown(stored, storedTyped, fact)},
            Weight::InSums);
    stored = stated;
    return true;
}

void PartMerge::Text(std::string& stored, const std::string& stated, Fact fact,
                     const FactLines& lines, Weight weight)
{
    if (stated.empty() || stored == stated) {
        return;
    }
    if (stored.empty()) {
        Added(weight);
    } else {
        GiveWay({lines.LineOf(fact), FactName(fact), stated, stored}, weight);
    }
    stored = stated;
}

template <typename Choice>
void PartMerge::Choose(Choice& stored, Choice stated, Fact fact, const FactLines& lines)
{
    if (stated == Choice{} || stored == stated) {
        return;
    }
    if (stored == Choice{}) {
        Added(Weight::InSums);
    } else {
        GiveWay({lines.LineOf(fact), FactName(fact), NameOf(stated), NameOf(stored)},
                Weight::InSums);
    }
    stored = stated;
}

void PartMerge::Densities(double& density, double& surfaceDensity, double statedDensity,
                          double statedSurfaceDensity, const FactLines& lines,
                          std::string& storedTyped, const std::string& statedTyped)
{
    if (MergeNumber(density, statedDensity, Fact::Density, lines, storedTyped, statedTyped)) {
        KeepTypedOf(storedTyped, statedTyped, FactName(Fact::Density));
    }
    if (MergeNumber(surfaceDensity, statedSurfaceDensity, Fact::SurfaceDensity, lines, storedTyped,
                    statedTyped)) {
        KeepTypedOf(storedTyped, statedTyped, FactName(Fact::SurfaceDensity));
    }
}

void PartMerge::Merge(Part& stored, const Part& stated, RowId row)
{
    m_kind = OwnerKind::Part;
    m_owner = row;
    m_subject = PartSubject(stated);
    Text(stored.name, stated.name, Fact::Name, stated.lines, Weight::Beside);
    Text(stored.code, stated.code, Fact::Code, stated.lines, Weight::InSums);
    Text(stored.material, stated.material, Fact::Material, stated.lines, Weight::InSums);
    Text(stored.activeType, stated.activeType, Fact::Active, stated.lines, Weight::InSums);
    Text(stored.note, stated.note, Fact::Note, stated.lines, Weight::Beside);
    Choose(stored.type, stated.type, Fact::Type, stated.lines);
    Choose(stored.standard, stated.standard, Fact::Standard, stated.lines);
    Choose(stored.densityFirst, stated.densityFirst, Fact::DensityFirst, stated.lines);
    Choose(stored.errors, stated.errors, Fact::Errors, stated.lines);
    if (MergeNumber(stored.growthPct, stated.growthPct, Fact::GrowthPct, stated.lines, stored.typed,
                    stated.typed)) {
        KeepTypedOf(stored.typed, stated.typed, FactName(Fact::GrowthPct));
    }
    Densities(stored.density, stored.surfaceDensity, stated.density, stated.surfaceDensity,
              stated.lines, stored.typed, stated.typed);
    Sets(stored.sets, stated.sets);
    Documents(stored.documents, stated.documents);
    Properties(stored.properties, stated.properties);
}

void PartMerge::Merge(Use& stored, const Use& stated, RowId row, const std::string& subject)
{
    m_kind = OwnerKind::Use;
    m_owner = row;
    m_subject = subject;
    Choose(stored.quantity, stated.quantity, Fact::Quantity, stated.lines);
    Position(stored, stated);
    Text(stored.material, stated.material, Fact::Material, stated.lines, Weight::InSums);
    Text(stored.activeType, stated.activeType, Fact::Active, stated.lines, Weight::InSums);
    Text(stored.note, stated.note, Fact::Note, stated.lines, Weight::Beside);
    Densities(stored.density, stored.surfaceDensity, stated.density, stated.surfaceDensity,
              stated.lines, stored.typed, stated.typed);
    Sets(stored.sets, stated.sets);
    Properties(stored.properties, stated.properties);
}

/// The texts of a difference are made where something differs: most uses of a large table do not.
template <typename Describe>
void PartMerge::AddOrGiveWay(bool isStored, const Describe& describe)
{
    if (isStored) {
        GiveWay(describe(), Weight::InSums);
    } else {
        Added(Weight::InSums);
    }
}

void PartMerge::Position(Use& stored, const Use& stated)
{
    const auto takeTyped = [&](std::initializer_list<const char*> names) {
        for (const char* name : names) {
            KeepTypedOf(stored.typed, stated.typed, name);
        }
    };
    const Placement before = stored.placement;
    const Placement& after = stated.placement;
    const bool isMoved = stated.positionStated &&
                         (!stored.positionStated || !AreSamePlace(before.shift, after.shift));
    if (isMoved) {
        AddOrGiveWay(stored.positionStated, [&] {
            return Difference{stated.lines.LineOf(Fact::Position), "position in mm",
                              Listed(after.shift), Listed(before.shift)};
        });
        stored.positionStated = true;
        stored.placement.shift = after.shift;
        takeTyped({"x", "y", "z"});
    }
    const bool isTurned = stated.rotationStated &&
                          (!stored.rotationStated || !AreSameTurn(before.rotation, after.rotation));
    if (isTurned) {
        AddOrGiveWay(stored.rotationStated, [&] {
            return Difference{stated.lines.LineOf(Fact::Rotation), "rotation",
                              Listed(after.rotation), Listed(before.rotation)};
        });
        stored.rotationStated = true;
        stored.placement.rotation = after.rotation;
        takeTyped(
            {"rx", "ry", "rz", "r11", "r12", "r13", "r21", "r22", "r23", "r31", "r32", "r33"});
    }
}

void PartMerge::Merge(Material& stored, const Material& stated)
{
    m_subject = "material " + stated.name;
    const KnownFacts known = std::exchange(m_known, KnownFacts::Refuse);
    const auto number = [&](double& target, double value, Fact fact) {
        if (MergeNumber(target, value, fact, stated.lines, stored.typed, stated.typed)) {
            KeepTypedOf(stored.typed, stated.typed, FactName(fact));
        }
    };
    number(stored.density, stated.density, Fact::MaterialDensity);
    number(stored.surfaceDensity, stated.surfaceDensity, Fact::MaterialSurfaceDensity);
    if (IsKnown(stored.density) && IsKnown(stored.surfaceDensity)) {
        const bool surface = IsKnown(stated.surfaceDensity);
        const Fact added = surface ? Fact::MaterialSurfaceDensity : Fact::MaterialDensity;
        const Fact kept = surface ? Fact::MaterialDensity : Fact::MaterialSurfaceDensity;
        GiveWay({stated.lines.LineOf(added), FactName(added),
                 Shown(surface ? stated.surfaceDensity : stated.density, stated.typed, added),
                 std::string(FactName(kept)) + " " +
                     Shown(surface ? stored.density : stored.surfaceDensity, stored.typed, kept)},
                Weight::InSums);
    }
    m_known = known;
}

void PartMerge::Sets(std::vector<ValueSet>& stored, const std::vector<ValueSet>& stated)
{
    for (const ValueSet& set : stated) {
        const auto found = std::ranges::find(stored, set.massType, &ValueSet::massType);
        if (found == stored.end()) {
            stored.push_back(set);
            Added(Weight::InSums);
            m_restatedSets.push_back(set.massType);
        } else {
            const bool touchedBefore = std::exchange(m_touchesSums, false);
            m_set = "mass type " + set.massType + ", ";
            Set(*found, set);
            m_set.clear();
            if (m_touchesSums) {
                m_restatedSets.push_back(set.massType);
            }
            m_touchesSums = m_touchesSums || touchedBefore;
        }
    }
}

void PartMerge::Set(ValueSet& stored, const ValueSet& stated)
{
    Precision(stored, stated);
    for (std::size_t i = 0; i < kSetNumbers; ++i) {
        const auto fact = static_cast<Fact>(i);
        const bool isInertia = fact >= Fact::Ixx && fact <= Fact::Iyz;
        if (!isInertia && MergeNumber(stored[fact], stated[fact], fact, stated.lines, stored.typed,
                                      stated.typed)) {
            KeepTypedOf(stored.typed, stated.typed, FactName(fact));
        }
    }
    SetInertia(stored, stated);
    Text(stored.source, stated.source, Fact::Source, stated.lines, Weight::Beside);
    Text(stored.sourceDate, stated.sourceDate, Fact::SourceDate, stated.lines, Weight::Beside);
    Text(stored.author, stated.author, Fact::Author, stated.lines, Weight::Beside);
    Text(stored.note, stated.note, Fact::Note, stated.lines, Weight::Beside);
}

/// A precision in mass takes the place of one in per cent, and the other way round.
void PartMerge::Precision(ValueSet& stored, const ValueSet& stated)
{
    constexpr std::array kSizes{Fact::Lower, Fact::Upper};
    constexpr std::array kPercentages{Fact::LowerPct, Fact::UpperPct};
    const bool isSize = stated.Has(Fact::Lower) && stored.Has(Fact::LowerPct);
    const bool isPercentage = stated.Has(Fact::LowerPct) && stored.Has(Fact::Lower);
    if (!isSize && !isPercentage) {
        return;
    }
    const auto& added = isSize ? kSizes : kPercentages;
    const auto& gone = isSize ? kPercentages : kSizes;
    GiveWay({stated.lines.LineOf(added[0]), FactName(added[0]),
             Shown(stated[added[0]], stated.typed, added[0]),
             std::string(FactName(gone[0])) + " " + Shown(stored[gone[0]], stored.typed, gone[0])},
            Weight::InSums);
    for (const Fact fact : gone) {
        stored[fact] = kUnknown;
        ForgetTyped(stored.typed, FactName(fact));
    }
}

/// The form in which an inertia was typed goes with its numbers: radii, sign and point.
void PartMerge::SetInertia(ValueSet& stored, const ValueSet& stated)
{
    // Products that a table of moments alone leaves blank count as 0 where there were none, and
    // leave what is stored like any blank cell.
    const bool blankProducts = TypedText(stated.typed, "ixy").empty() &&
                               TypedText(stated.typed, "kx").empty() && stated[Fact::Ixy] == 0.0 &&
                               stated[Fact::Ixz] == 0.0 && stated[Fact::Iyz] == 0.0;
    const Fact last = blankProducts && stored.HasInertia() ? Fact::Izz : Fact::Iyz;
    bool isTaken = false;
    for (auto i = static_cast<std::size_t>(Fact::Ixx); i <= static_cast<std::size_t>(last); ++i) {
        const auto fact = static_cast<Fact>(i);
        isTaken = MergeNumber(stored[fact], stated[fact], fact, stated.lines, stored.typed,
                              stated.typed) ||
                  isTaken;
    }
    if (!isTaken) {
        return;
    }
    for (const char* name :
         {"ixx", "iyy", "izz", "ixy", "ixz", "iyz", "kx", "ky", "kz", "poi_sign", "inertia_at"}) {
        KeepTypedOf(stored.typed, stated.typed, name);
    }
}

void PartMerge::Properties(std::vector<Property>& stored, const std::vector<Property>& stated)
{
    for (const Property& property : stated) {
        const auto found = std::ranges::find(stored, property.name, &Property::name);
        if (found == stored.end()) {
            stored.push_back(property);
            Added(Weight::Beside);
            continue;
        }
        const bool isOtherKind = found->type != property.type || found->isDate != property.isDate ||
                                 found->magnitude != property.magnitude;
        if (!isOtherKind && found->value == property.value) {
            continue;
        }
        if (!isOtherKind && found->value.empty()) {
            *found = property; // somebody had cleared it
            Added(Weight::Beside);
            continue;
        }
        GiveWay({property.line, "property " + property.name,
                 isOtherKind ? KindOf(property) : property.value,
                 isOtherKind ? KindOf(*found) : found->value},
                Weight::Beside);
        *found = property;
    }
}

void PartMerge::Documents(std::vector<DocumentRevision>& stored,
                          const std::vector<DocumentRevision>& stated)
{
    for (const DocumentRevision& revision : stated) {
        auto found = std::ranges::find_if(stored, [&](const DocumentRevision& other) {
            return other.document == revision.document && other.version == revision.version;
        });
        if (found == stored.end()) {
            stored.push_back(revision);
            Added(Weight::Beside);
            found = stored.end() - 1;
        } else {
            const bool summed = m_touchesSums;
            Text(found->checkinDate, revision.checkinDate, Fact::CheckinDate, revision.lines,
                 Weight::Beside);
            Text(found->checkinUser, revision.checkinUser, Fact::CheckinUser, revision.lines,
                 Weight::Beside);
            Text(found->checkoutUser, revision.checkoutUser, Fact::CheckoutUser, revision.lines,
                 Weight::Beside);
            Text(found->massType, revision.massType, Fact::DocumentMassType, revision.lines,
                 Weight::Beside);
            if (MergeNumber(found->mass, revision.mass, Fact::DocumentMass, revision.lines,
                            found->typed, revision.typed)) {
                KeepTypedOf(found->typed, revision.typed, FactName(Fact::DocumentMass));
            }
            Choose(found->use, revision.use, Fact::DocumentUse, revision.lines);
            m_touchesSums = summed; // what documents say of masses is not summed
        }
        for (DocumentRevision& other : stored) {
            const int shared = static_cast<int>(other.use) & static_cast<int>(revision.use);
            if (shared != 0 && &other != &*found) {
                GiveWay({revision.lines.LineOf(Fact::DocumentUse),
                         (shared & 1) != 0 ? "attached revision" : "active revision",
                         revision.version, other.version},
                        Weight::Beside);
                other.use =
                    static_cast<DocumentRevision::Use>(static_cast<int>(other.use) ^ shared);
            }
        }
    }
}
} // namespace wb
