#include "FileProducts.h"

#include "WBProductTable.h"

namespace
{

/// A product that stands whole in memory, as a table file told it.
class FileProducts : public CATProductSource
{
public:
    explicit FileProducts(wb::Product product)
        : m_product(std::move(product)), m_uses(m_product.UsesByParent())
    {}

    std::vector<CATProductRow> Roots() override
    {
        std::vector<CATProductRow> rows;
        for (const std::uint32_t part : m_product.Roots()) {
            rows.push_back(RowOf(part, m_product.parts[part].identifier));
        }
        return rows;
    }

    std::vector<CATProductRow> Uses(const CATUnicodeString& part,
                                    const CATUnicodeString& version) override
    {
        std::vector<CATProductRow> rows;
        for (std::uint32_t index = 0; index < m_product.parts.size(); ++index) {
            const wb::Part& candidate = m_product.parts[index];
            if (candidate.identifier != part.View() || candidate.version != version.View()) {
                continue;
            }
            for (const std::uint32_t useIndex : m_uses[index]) {
                const wb::Use& use = m_product.uses[useIndex];
                CATProductRow row = RowOf(use.part, use.instance);
                row.quantity = use.Pieces();
                row.placement = PlacementOf(use.placement);
                rows.push_back(std::move(row));
            }
        }
        return rows;
    }

private:
    static CATMathTransformation PlacementOf(const wb::Placement& placement)
    {
        return CATMathTransformation::FromCoefficients(wb::Coefficients(placement));
    }

    CATProductRow RowOf(std::uint32_t index, const std::string& instance) const
    {
        const wb::Part& part = m_product.parts[index];
        CATProductRow row;
        row.instance = instance;
        row.part = part.identifier;
        row.version = part.version;
        row.name = part.ShownName();
        row.type = wb::PartTypeName(wb::EffectiveType(part.type, true, !m_uses[index].empty()));
        row.hasUses = !m_uses[index].empty();
        return row;
    }

    wb::Product m_product;
    std::vector<std::vector<std::uint32_t>> m_uses;
};

} // namespace

std::shared_ptr<CATProductSource> OpenFileProducts(const std::string& path, std::string& problem)
{
    wb::TableResult table = wb::ReadLocalProduct(path);
    for (const std::string& error : table.errors) {
        problem += (problem.empty() ? "" : "\n") + error;
    }
    return table.Ok() ? std::make_shared<FileProducts>(std::move(table.product)) : nullptr;
}
