#pragma once

#include "Database.h"
#include "WBStore.h"

#include <string>
#include <vector>

namespace wb
{
/// Keeps which value sets of assemblies are older than a change below them. Such values go on
/// standing for what is below; whoever reads a sum is told.
class OutdatedSets
{
public:
    /// Before anything is written: what is added later is not older than anything.
    explicit OutdatedSets(Database& database);

    /// A part that changed by itself: what stands above it is older now.
    void Changed(RowId part) { m_changed.push_back({part, false}); }
    /// A part of which some use below it changed: its own values are older too.
    void ChangedBelow(RowId part) { m_changed.push_back({part, true}); }
    /// Sets of these mass types were stated anew, of a part or of a use.
    void Restated(bool ofUse, RowId owner, const std::vector<std::string>& massTypes);

    /// All parts that changed by themselves or below, and everything above them, get the number.
    void Keep(std::int64_t changeNumber);

private:
    struct ChangedPart
    {
        RowId part;
        bool below;
    };
    struct RestatedSet
    {
        bool ofUse;
        RowId owner;
        std::string massType;
    };

    void ListChanged();
    void MarkSets();

    Database& m_database;
    RowId m_lastPart;
    RowId m_lastUse;
    std::vector<ChangedPart> m_changed;
    std::vector<RestatedSet> m_restated;
};

/// Marks the sets of a product that was read.
void MarkOutdatedSets(Database& database, ReadProductRows& rows);
} // namespace wb
