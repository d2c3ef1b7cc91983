#include "SetWriter.h"
#include "TableDraft.h"
#include "TypedForms.h"
#include "TypedNumber.h"
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
        : m_product(product),
          m_usesBelow(product.UsesByParent()),
          m_told(product.parts.size()),
          m_sets(m_draft, product)
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
        PutNumber(m_draft, Column::GrowthPct, part.growthPct, part.typed);
        PutNumber(m_draft, Column::Density, part.density, part.typed);
        PutNumber(m_draft, Column::SurfaceDensity, part.surfaceDensity, part.typed);
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
            PutNumber(m_draft, Column::Density, use.density, use.typed);
            PutNumber(m_draft, Column::SurfaceDensity, use.surfaceDensity, use.typed);
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
                PutNumber(m_draft, Next(Column::X, i), use.placement.shift[i], use.typed);
            }
        }
        if (use.rotationStated && !PlaceByAngles(use)) {
            for (std::size_t i = 0; i < 9; ++i) {
                PutNumber(m_draft, Next(Column::R11, i), use.placement.rotation[i / 3][i % 3],
                          use.typed);
            }
        }
    }

    /// False when the use was turned by a matrix, or by other angles than those that were typed.
    bool PlaceByAngles(const Use& use)
    {
        std::array<std::optional<TypedNumber>, 3> angles;
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
        PutNumber(m_draft, Column::MaterialDensity, material.density, material.typed);
        PutNumber(m_draft, Column::MaterialSurfaceDensity, material.surfaceDensity, material.typed);
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
        m_sets.Write(set, part, use);
        m_draft.PutText(Column::Source, set.source);
        m_draft.PutText(Column::SourceDate, set.sourceDate);
        m_draft.PutText(Column::Author, set.author);
        m_draft.PutText(Column::Note, set.note);
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
        PutNumber(m_draft, Column::DocMass, revision.mass, revision.typed);
    }

    const Product& m_product;
    TableDraft m_draft;
    const std::vector<std::vector<std::uint32_t>> m_usesBelow;
    std::vector<bool> m_told; // per part: its facts were written
    std::unordered_map<std::string, NamedMaterial> m_materials;
    SetWriter m_sets;
};
} // namespace

std::string WriteProductTable(const Product& product, std::uint32_t root)
{
    return ProductWriter(product).Write(root);
}
} // namespace wb
