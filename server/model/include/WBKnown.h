#pragma once

#include "WBProduct.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wb
{
/// The five mass types that a new database holds.
std::vector<MassType> ShippedMassTypes();

/// What is there already when a table is read: a database, or, for a table that is opened as a
/// local file, nothing but the shipped mass types.
class KnownProducts
{
public:
    KnownProducts() = default;
    KnownProducts(const KnownProducts&) = delete;
    KnownProducts& operator=(const KnownProducts&) = delete;
    virtual ~KnownProducts() = default;

    virtual std::vector<MassType> MassTypes() const { return ShippedMassTypes(); }
    /// The versions of every part, oldest first, by identifier. Asked once a table, since a
    /// question a row would cost more than all the rest.
    virtual std::unordered_map<std::string, std::vector<std::string>> PartVersions() const
    {
        return {};
    }
    /// The stated type of a part version; unstated where the part is not known.
    virtual PartType TypeOf(std::string_view, std::string_view) const { return PartType::Unstated; }
    virtual std::optional<Material> FindMaterial(std::string_view) const { return std::nullopt; }
    /// Everything that is stated of a part version; nothing where it is not known.
    virtual std::optional<Part> FindFacts(std::string_view, std::string_view) const
    {
        return std::nullopt;
    }
    /// True when something is used in that part version.
    virtual bool HasUses(std::string_view, std::string_view) const { return false; }
    /// Everything that is stated of the use of that name below parent; nothing where it is not
    /// known, or known as a use of another part.
    virtual std::optional<Use> FindUseFacts(const Part& /*parent*/, std::string_view /*instance*/,
                                            const Part& /*part*/) const
    {
        return std::nullopt;
    }
};
} // namespace wb
