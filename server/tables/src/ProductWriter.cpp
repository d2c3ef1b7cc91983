#include "TableDraft.h"
#include "TypedForms.h"
#include "WBNumbers.h"
#include "WBRules.h"
#include "WBTableWriter.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace wb
{
namespace
{
constexpr Column Next(Column column, std::size_t steps)
{
    return static_cast<Column>(static_cast<std::size_t>(column) + steps);
}

/// A number that somebody typed, cut into what it says.
struct Typed
{
    NumberText shown;
    double value = kUnknown;  // as typed
    double stored = kUnknown; // in storage units
};

std::optional<Typed> ReadTyped(const std::string& typed, Column column)
{
    const std::string_view whole = TypedText(typed, ColumnName(column));
    const Magnitude* magnitude = ColumnMagnitude(column);
    std::string_view digits = whole;
    const Unit* unit = nullptr;
    if (magnitude != nullptr) {
        const std::size_t blank = whole.rfind(' ');
        if (blank == std::string_view::npos) {
            return std::nullopt;
        }
        digits = whole.substr(0, blank);
        unit = FindUnit(*magnitude, whole.substr(blank + 1));
        if (unit == nullptr) {
            return std::nullopt;
        }
    }
    const auto value = ReadNumber(digits);
    if (!value) {
        return std::nullopt;
    }
    return Typed{
        {std::string(digits), unit}, *value, unit == nullptr ? *value : ToStorage(*unit, *value)};
}

/// As typed where that reads back as what is stored. The shortest form in the storage unit, which
/// is the first of its magnitude, always does.
NumberText TextOf(double stored, const std::string& typed, Column column)
{
    const auto kept = ReadTyped(typed, column);
    if (kept && kept->stored == stored) {
        return kept->shown;
    }
    const Magnitude* magnitude = ColumnMagnitude(column);
    return {WriteShortest(stored), magnitude == nullptr ? nullptr : magnitude->units.data()};
}

/// All of some neighbouring columns as typed; nothing where one of them was not.
template <std::size_t count>
std::optional<std::array<Typed, count>> ReadAllTyped(const std::string& typed, Column first)
{
    std::array<Typed, count> all;
    for (std::size_t i = 0; i < count; ++i) {
        auto one = ReadTyped(typed, Next(first, i));
        if (!one) {
            return std::nullopt;
        }
        all[i] = std::move(*one);
    }
    return all;
}

struct SetColumn
{
    Column column;
    Fact fact;
};
// The numbers of a set that stand for themselves; the inertia has forms of its own.
constexpr std::array kPlainNumbers{SetColumn{Column::Mass, Fact::Mass},
                                   SetColumn{Column::Lower, Fact::Lower},
                                   SetColumn{Column::Upper, Fact::Upper},
                                   SetColumn{Column::LowerPct, Fact::LowerPct},
                                   SetColumn{Column::UpperPct, Fact::UpperPct},
                                   SetColumn{Column::CgX, Fact::CgX},
                                   SetColumn{Column::CgY, Fact::CgY},
                                   SetColumn{Column::CgZ, Fact::CgZ},
                                   SetColumn{Column::Volume, Fact::Volume},
                                   SetColumn{Column::Area, Fact::Area},
                                   SetColumn{Column::SigmaMass, Fact::SigmaMass},
                                   SetColumn{Column::SigmaCgX, Fact::SigmaCgX},
                                   SetColumn{Column::SigmaCgY, Fact::SigmaCgY},
                                   SetColumn{Column::SigmaCgZ, Fact::SigmaCgZ},
                                   SetColumn{Column::SigmaIxx, Fact::SigmaIxx},
                                   SetColumn{Column::SigmaIyy, Fact::SigmaIyy},
                                   SetColumn{Column::SigmaIzz, Fact::SigmaIzz},
                                   SetColumn{Column::SigmaIxy, Fact::SigmaIxy},
                                   SetColumn{Column::SigmaIxz, Fact::SigmaIxz},
                                   SetColumn{Column::SigmaIyz, Fact::SigmaIyz}};

/// The word of a choice whose value 0 means "not stated".
template <typename Choice, std::size_t count>
const char* Word(Choice choice, const std::array<const char*, count>& words)
{
    return words[static_cast<std::size_t>(choice)];
}
constexpr std::array kTypeWords{"", "product", "assembly", "part", "adjustment"};
constexpr std::array kAnswerWords{"", "no", "yes"};
constexpr std::array kOrderWords{"", "wb", "material"};
constexpr std::array kErrorWords{"", "together", "apart"};
constexpr std::array kDocumentWords{"", "attached", "active", "both"};

/// Walks a product and drafts its rows.
class ProductWriter
{
public:
    explicit ProductWriter(const Product& product)
        : m_product(product), m_usesBelow(product.UsesByParent()), m_told(product.parts.size())
    {
        for (const Material& material : product.materials) {
            m_materials.emplace(material.name, NamedMaterial{&material});
        }
    }

    std::string Write(std::uint32_t root)
    {
        TellPart(root, nullptr);
        // A list of its own instead of a recursion: a product may be deeper than the call stack.
        struct Level
        {
            std::uint32_t part;
            std::size_t next = 0;
        };
        std::vector<Level> open{{root}};
        while (!open.empty()) {
            Level& level = open.back();
            const auto& below = m_usesBelow[level.part];
            if (level.next == below.size()) {
                open.pop_back();
                continue;
            }
            const Use& use = m_product.uses[below[level.next++]];
            const bool isFirst = !m_told[use.part];
            TellPart(use.part, &use);
            TellUse(use);
            if (isFirst) {
                open.push_back({use.part});
            }
        }
        return m_draft.Write();
    }

private:
    struct NamedMaterial
    {
        const Material* material;
        bool isTold = false; // its density was written
    };

    const Part& PartOf(const Use& use) const { return m_product.parts[use.part]; }

    void Name(const Part& part)
    {
        m_draft.PutText(Column::Part, part.identifier);
        m_draft.PutText(Column::Version, part.version);
    }
    void Name(const Use& use)
    {
        const Part& parent = m_product.parts[use.parent];
        m_draft.PutText(Column::Parent, parent.identifier);
        m_draft.PutText(Column::ParentVersion, parent.version);
        m_draft.PutText(Column::Instance, use.instance);
        Name(PartOf(use));
    }
    void Number(Column column, double stored, const std::string& typed)
    {
        if (IsKnown(stored)) {
            m_draft.PutNumber(column, TextOf(stored, typed, column));
        }
    }

    /// The row of a use, or of the root, with the facts of the part where they were not told yet;
    /// then the part's further rows.
    void TellPart(std::uint32_t index, const Use* use)
    {
        const Part& part = m_product.parts[index];
        std::size_t useProperties = 0;
        if (use == nullptr) {
            Name(part);
        } else {
            Name(*use);
            Place(*use);
            useProperties = Properties(true, use->properties, 0);
        }
        if (m_told[index]) {
            m_draft.EndRow();
        } else {
            m_told[index] = true;
            TellFacts(part);
        }
        if (use == nullptr) {
            return;
        }
        while (useProperties < use->properties.size()) {
            Name(*use);
            useProperties = Properties(true, use->properties, useProperties);
            m_draft.EndRow();
        }
    }

    void TellFacts(const Part& part)
    {
        m_draft.PutText(Column::Name, part.name);
        m_draft.PutText(Column::Type, Word(part.type, kTypeWords));
        m_draft.PutText(Column::Standard, Word(part.standard, kAnswerWords));
        m_draft.PutText(Column::DensityFirst, Word(part.densityFirst, kOrderWords));
        m_draft.PutText(Column::Errors, Word(part.errors, kErrorWords));
        m_draft.PutText(Column::Code, part.code);
        Number(Column::GrowthPct, part.growthPct, part.typed);
        Number(Column::Density, part.density, part.typed);
        Number(Column::SurfaceDensity, part.surfaceDensity, part.typed);
        TellMaterial(part.material);
        std::size_t properties = Properties(false, part.properties, 0);

        // The first set, or else the note of the part, which a row with a mass type would take for
        // its own, and the first revision share the row.
        const bool choosesWithoutSet =
            !part.activeType.empty() && FindSet(part.sets, part.activeType) == nullptr;
        const bool hasRowOfValues = !part.sets.empty() || choosesWithoutSet;
        std::size_t sets = 0;
        if (!part.sets.empty()) {
            Set(part.sets[sets++], part.activeType, part, nullptr);
        } else if (choosesWithoutSet) {
            Choose(part.activeType);
        } else {
            m_draft.PutText(Column::Note, part.note);
        }
        std::size_t documents = 0;
        if (!part.documents.empty()) {
            Document(part.documents[documents++]);
        }
        m_draft.EndRow();

        if (hasRowOfValues && !part.note.empty()) {
            Name(part);
            m_draft.PutText(Column::Note, part.note);
            m_draft.EndRow();
        }
        while (properties < part.properties.size()) {
            Name(part);
            properties = Properties(false, part.properties, properties);
            m_draft.EndRow();
        }
        for (; sets < part.sets.size(); ++sets) {
            Name(part);
            Set(part.sets[sets], part.activeType, part, nullptr);
            m_draft.EndRow();
        }
        if (!part.sets.empty() && choosesWithoutSet) {
            Name(part);
            Choose(part.activeType);
            m_draft.EndRow();
        }
        for (; documents < part.documents.size(); ++documents) {
            Name(part);
            Document(part.documents[documents]);
            m_draft.EndRow();
        }
    }

    /// What holds for this one use alone.
    void TellUse(const Use& use)
    {
        const bool hasDensity = IsKnown(use.density) || IsKnown(use.surfaceDensity);
        if (!use.material.empty() || hasDensity || !use.note.empty()) {
            Name(use);
            m_draft.PutText(Column::ValuesOn, "instance");
            if (!use.material.empty()) {
                m_draft.PutText(Column::MaterialOn, "instance");
                TellMaterial(use.material);
            }
            Number(Column::Density, use.density, use.typed);
            Number(Column::SurfaceDensity, use.surfaceDensity, use.typed);
            m_draft.PutText(Column::Note, use.note);
            m_draft.EndRow();
        }
        for (const ValueSet& set : use.sets) {
            Name(use);
            m_draft.PutText(Column::ValuesOn, "instance");
            Set(set, use.activeType, PartOf(use), &use);
            m_draft.EndRow();
        }
        if (!use.activeType.empty() && FindSet(use.sets, use.activeType) == nullptr) {
            Name(use);
            m_draft.PutText(Column::ValuesOn, "instance");
            Choose(use.activeType);
            m_draft.EndRow();
        }
    }

    /// As many properties as the order of the columns lets into the row; the position of the next.
    std::size_t Properties(bool ofUse, const std::vector<Property>& properties, std::size_t first)
    {
        while (first < properties.size() && m_draft.PutProperty(ofUse, properties[first])) {
            ++first;
        }
        return first;
    }

    void Place(const Use& use)
    {
        if (use.quantity != 0) {
            m_draft.PutText(Column::Quantity, std::to_string(use.quantity));
        }
        if (use.positionStated) {
            for (std::size_t i = 0; i < use.placement.shift.size(); ++i) {
                Number(Next(Column::X, i), use.placement.shift[i], use.typed);
            }
        }
        if (use.rotationStated && !PlaceByAngles(use)) {
            for (std::size_t i = 0; i < 9; ++i) {
                Number(Next(Column::R11, i), use.placement.rotation[i / 3][i % 3], use.typed);
            }
        }
    }

    /// False when the use was turned by a matrix, or by other angles than those that were typed.
    bool PlaceByAngles(const Use& use)
    {
        std::array<std::optional<Typed>, 3> angles;
        std::array<double, 3> degrees{};
        bool any = false;
        for (std::size_t i = 0; i < angles.size(); ++i) {
            angles[i] = ReadTyped(use.typed, Next(Column::Rx, i));
            if (angles[i]) {
                any = true;
                degrees[i] = InDegrees(angles[i]->value, angles[i]->shown.unit->symbol);
            }
        }
        if (!any ||
            RotationFromAngles(degrees[0], degrees[1], degrees[2]) != use.placement.rotation) {
            return false;
        }
        for (std::size_t i = 0; i < angles.size(); ++i) {
            if (angles[i]) {
                m_draft.PutNumber(Next(Column::Rx, i), angles[i]->shown);
            }
        }
        return true;
    }

    /// The density stands beside the first mention of its material.
    void TellMaterial(const std::string& name)
    {
        m_draft.PutText(Column::Material, name);
        const auto found = m_materials.find(name);
        if (found == m_materials.end() || found->second.isTold) {
            return;
        }
        const Material& material = *found->second.material;
        found->second.isTold = true;
        Number(Column::MaterialDensity, material.density, material.typed);
        Number(Column::MaterialSurfaceDensity, material.surfaceDensity, material.typed);
    }

    void Choose(const std::string& massType)
    {
        m_draft.PutText(Column::MassType, massType);
        m_draft.PutText(Column::Active, "yes");
    }

    void Set(const ValueSet& set, const std::string& active, const Part& part, const Use* use)
    {
        if (set.massType == active) {
            Choose(set.massType);
        } else {
            m_draft.PutText(Column::MassType, set.massType);
        }
        for (const SetColumn& number : kPlainNumbers) {
            Number(number.column, set[number.fact], set.typed);
        }
        if (set.HasInertia() && !InertiaByRadii(set, part, use) &&
            !InertiaByTerms(set, part, use)) {
            InertiaAsStored(set);
        }
        m_draft.PutText(Column::Source, set.source);
        m_draft.PutText(Column::SourceDate, set.sourceDate);
        m_draft.PutText(Column::Author, set.author);
        m_draft.PutText(Column::Note, set.note);
    }

    DensityPair DensitiesOf(const std::string& name) const
    {
        const auto found = m_materials.find(name);
        return found == m_materials.end() ? DensityPair()
                                          : DensityPair{found->second.material->density,
                                                        found->second.material->surfaceDensity};
    }

    /// The mass that the typed form of an inertia needs: stated, or size times density.
    double MassOf(const ValueSet& set, const Part& part, const Use* use) const
    {
        if (!SizedBy(set)) {
            return set[Fact::Mass];
        }
        DensityChoice choice;
        choice.part = {part.density, part.surfaceDensity};
        choice.partMaterial = DensitiesOf(part.material);
        if (use != nullptr) {
            choice.use = {use->density, use->surfaceDensity};
            choice.useMaterial = DensitiesOf(use->material);
        }
        if (part.densityFirst == DensityOrder::Material) {
            choice.first = CATENOWBCSCommonDefinitions::MaterialDensityFirst;
        }
        return WithMassInUse(set, choice)[Fact::Mass];
    }

    static bool SaysOrigin(const ValueSet& set)
    {
        return TypedText(set.typed, ColumnName(Column::InertiaAt)) == "origin";
    }

    void PutOrigin(const ValueSet& set)
    {
        m_draft.PutText(Column::InertiaAt, SaysOrigin(set) ? "origin" : "");
    }

    /// False when radii of gyration were not typed or no longer give the inertia.
    bool InertiaByRadii(const ValueSet& set, const Part& part, const Use* use)
    {
        const auto typed = ReadAllTyped<3>(set.typed, Column::Kx);
        if (!typed) {
            return false;
        }
        const double mass = MassOf(set, part, use);
        const auto& [x, y, z] = *typed;
        InertiaTerms terms = InertiaOfRadii({x.stored, y.stored, z.stored}, mass);
        if (SaysOrigin(set)) {
            terms = MovedToCentre(terms, false, mass, CentreOf(set));
        }
        if (terms != InertiaOf(set)) {
            return false;
        }
        for (std::size_t i = 0; i < typed->size(); ++i) {
            m_draft.PutNumber(Next(Column::Kx, i), (*typed)[i].shown);
        }
        PutOrigin(set);
        return true;
    }

    /// False when the terms were not typed or no longer give the inertia.
    bool InertiaByTerms(const ValueSet& set, const Part& part, const Use* use)
    {
        const auto moments = ReadAllTyped<3>(set.typed, Column::Ixx);
        if (!moments) {
            return false;
        }
        const auto products = ReadAllTyped<3>(set.typed, Column::Ixy);
        const bool negative = TypedText(set.typed, ColumnName(Column::PoiSign)) == "negative";
        InertiaTerms terms{};
        for (std::size_t i = 0; i < 3; ++i) {
            terms[i] = (*moments)[i].stored;
            terms[i + 3] = products ? (negative ? -1.0 : 1.0) * (*products)[i].stored : 0.0;
        }
        if (SaysOrigin(set)) {
            terms =
                MovedToCentre(terms, products.has_value(), MassOf(set, part, use), CentreOf(set));
        }
        if (terms != InertiaOf(set)) {
            return false;
        }
        for (std::size_t i = 0; i < 3; ++i) {
            m_draft.PutNumber(Next(Column::Ixx, i), (*moments)[i].shown);
            if (products) {
                m_draft.PutNumber(Next(Column::Ixy, i), (*products)[i].shown);
            }
        }
        m_draft.PutText(Column::PoiSign, !products ? "" : negative ? "negative" : "positive");
        PutOrigin(set);
        return true;
    }

    void InertiaAsStored(const ValueSet& set)
    {
        const InertiaTerms terms = InertiaOf(set);
        const bool momentsAlone = terms[3] == 0.0 && terms[4] == 0.0 && terms[5] == 0.0;
        for (std::size_t i = 0; i < (momentsAlone ? 3U : 6U); ++i) {
            Number(Next(Column::Ixx, i), terms[i], set.typed);
        }
        m_draft.PutText(Column::PoiSign, momentsAlone ? "" : "positive");
    }

    void Document(const DocumentRevision& revision)
    {
        m_draft.PutText(Column::Doc, revision.document);
        m_draft.PutText(Column::DocVersion, revision.version);
        m_draft.PutText(Column::DocUse, Word(revision.use, kDocumentWords));
        m_draft.PutText(Column::DocCheckinDate, revision.checkinDate);
        m_draft.PutText(Column::DocCheckinUser, revision.checkinUser);
        m_draft.PutText(Column::DocCheckoutUser, revision.checkoutUser);
        m_draft.PutText(Column::DocMassType, revision.massType);
        Number(Column::DocMass, revision.mass, revision.typed);
    }

    const Product& m_product;
    const std::vector<std::vector<std::uint32_t>> m_usesBelow;
    std::vector<bool> m_told; // per part: its facts were written
    std::unordered_map<std::string, NamedMaterial> m_materials;
    TableDraft m_draft;
};
} // namespace

std::string WriteProductTable(const Product& product, std::uint32_t root)
{
    return ProductWriter(product).Write(root);
}
} // namespace wb
