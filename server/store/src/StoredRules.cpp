#include "StoredRules.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace wb
{
namespace
{
bool IsSingle(PartType type)
{
    return type == PartType::Part || type == PartType::Adjustment;
}
} // namespace

void StoredRules::CheckParent(const Use& use)
{
    const Part& parent = m_product.parts[use.parent];
    const PartType type = m_store.TypeOf(parent.identifier, parent.version);
    if (IsSingle(type)) {
        m_errors.Line(use.firstLine, "column \"parent\": " + parent.identifier +
                                         " is stored as type " + PartTypeName(type) +
                                         ", expected a parent of type assembly or product");
    }
}

void StoredRules::CheckPart(const Part& stated, const Part& merged, RowId row)
{
    if (stated.type == PartType::Unstated) {
        return;
    }
    const auto refuse = [&](const std::string& why) {
        m_errors.Line(stated.lines.LineOf(Fact::Type), "column \"type\": found \"" +
                                                           std::string(PartTypeName(stated.type)) +
                                                           "\", but " + stated.identifier + why);
    };
    if (IsSingle(stated.type) && HasUses(row)) {
        refuse(" has parts below it in the database, expected assembly or product");
    }
    if (merged.type != PartType::Adjustment && HasNegativeMass(merged, row)) {
        refuse(" has a negative mass in the database, expected adjustment");
    }
}

bool StoredRules::HasUses(RowId part)
{
    return Asks("SELECT EXISTS (SELECT 1 FROM use WHERE parent = ?)", part);
}

/// Here or at one of its uses.
bool StoredRules::HasNegativeMass(const Part& merged, RowId row)
{
    return std::ranges::any_of(merged.sets,
                               [](const ValueSet& set) { return set[Fact::Mass] < 0.0; }) ||
           Asks("SELECT EXISTS (SELECT 1 FROM use u JOIN use_value v ON v.owner = u.id "
                "WHERE u.part = ? AND v.mass < 0)",
                row);
}

bool StoredRules::Asks(const char* sql, RowId id)
{
    Statement& row = m_database.Kept(sql);
    row.Bind(id);
    bool answer = false;
    while (row.Step()) {
        answer = row.Integer() != 0;
    }
    return answer;
}

void StoredRules::CheckCycles(const std::vector<RowId>& partIds)
{
    const std::int64_t last = m_database.Ask("SELECT max(id) FROM part");
    std::vector<std::vector<std::uint32_t>> edges(static_cast<std::size_t>(last) + 1);
    Statement& rows = m_database.Kept("SELECT parent, part FROM use");
    while (rows.Step()) {
        const auto parent = static_cast<std::size_t>(rows.Integer());
        edges[parent].push_back(static_cast<std::uint32_t>(rows.Integer()));
    }
    const auto cycle = FindCycle(edges);
    if (cycle.empty()) {
        return;
    }
    std::string path;
    for (const std::uint32_t part : cycle) {
        path += (path.empty() ? "" : " > ") + m_store.FindPart(RowId{part})->identifier;
    }
    // One of the cycle's uses came with this table: the stored ones alone made none.
    const auto onCycle = [&](const Use& use) {
        for (std::size_t i = 0; i + 1 < cycle.size(); ++i) {
            if (partIds[use.parent] == RowId{cycle[i]} &&
                partIds[use.part] == RowId{cycle[i + 1]}) {
                return true;
            }
        }
        return false;
    };
    const auto use = std::ranges::find_if(m_product.uses, onCycle);
    m_errors.Line(use->firstLine, "column \"part\": " + path +
                                      " is a cycle together with what the database holds, "
                                      "expected no part inside itself");
}
} // namespace wb
