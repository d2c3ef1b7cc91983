#include "MaterialReader.h"

#include "WBTexts.h"

namespace wb
{
void MaterialReader::Read(Part& part, Use* use)
{
    const auto target = m_row.Choice(Column::MaterialOn, {"part", "instance"});
    const bool onUse = target == std::size_t{1};
    if (onUse && use == nullptr) {
        m_row.Complain(Column::MaterialOn, kNeedsUse);
        return;
    }
    const bool valuesOnUse =
        use != nullptr && LowerCase(m_row.Cell(Column::ValuesOn)) == "instance";
    ReadDensities(part, onUse || valuesOnUse ? use : nullptr);
    if (!m_row.Filled(Column::Material)) {
        for (const Column column : {Column::MaterialDensity, Column::MaterialSurfaceDensity}) {
            if (m_row.Filled(column)) {
                m_row.Complain(column,
                               "a density without a material, expected the material's name in "
                               "the same row");
            }
        }
        return;
    }
    m_keeper.Text(onUse ? use->material : part.material, m_row.Cell(Column::Material),
                  onUse ? use->lines : part.lines,
                  m_row.Statement(Fact::Material, Column::Material));
    const auto [entry, isNew] = m_positions.emplace(
        m_row.Cell(Column::Material), static_cast<std::uint32_t>(m_product.materials.size()));
    if (isNew) {
        m_product.materials.emplace_back().name = m_row.Cell(Column::Material);
    }
    StateDensity(m_product.materials[entry->second]);
}

/// The densities of the part itself, or of the one use that the row is about.
void MaterialReader::ReadDensities(Part& part, Use* use)
{
    const auto state = [&](double& stored, Fact fact, Column column) {
        if (const auto value = m_row.StoredNotNegative(column)) {
            m_keeper.Number(stored, *value, use == nullptr ? part.typed : use->typed,
                            use == nullptr ? part.lines : use->lines,
                            m_row.Statement(fact, column));
        }
    };
    state(use == nullptr ? part.density : use->density, Fact::Density, Column::Density);
    state(use == nullptr ? part.surfaceDensity : use->surfaceDensity, Fact::SurfaceDensity,
          Column::SurfaceDensity);
}

void MaterialReader::StateDensity(Material& material)
{
    const auto state = [&](double& stored, Fact fact, Column column) {
        if (const auto value = m_row.StoredNotNegative(column)) {
            m_keeper.Number(stored, *value, material.typed, material.lines,
                            m_row.Statement(fact, column));
        }
    };
    state(material.density, Fact::MaterialDensity, Column::MaterialDensity);
    state(material.surfaceDensity, Fact::MaterialSurfaceDensity, Column::MaterialSurfaceDensity);
    const bool statesOne =
        m_row.Filled(Column::MaterialDensity) || m_row.Filled(Column::MaterialSurfaceDensity);
    if (statesOne && IsKnown(material.density) && IsKnown(material.surfaceDensity)) {
        const bool surface = m_row.Filled(Column::MaterialSurfaceDensity);
        const Fact other = surface ? Fact::MaterialDensity : Fact::MaterialSurfaceDensity;
        m_row.Complain(surface ? Column::MaterialSurfaceDensity : Column::MaterialDensity,
                       Quoted(material.name) + " has a " +
                           (surface ? "density" : "surface density") + " in line " +
                           std::to_string(material.lines.LineOf(other)) +
                           ", expected one density of a material");
    }
}

const Material* MaterialReader::Find(const std::string& name) const
{
    const auto found = m_positions.find(name);
    return found == m_positions.end() ? nullptr : &m_product.materials[found->second];
}
} // namespace wb
