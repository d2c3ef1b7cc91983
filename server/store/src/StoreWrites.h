#pragma once

#include "Database.h"
#include "OutdatedSets.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace wb
{
/// Writes parts and uses with statements that are prepared once.
class PartWriter
{
public:
    explicit PartWriter(Database& database);

    /// Makes the stored materials known; parts name materials by text.
    void KnowMaterials();
    /// 0 where there is no material of that name.
    RowId FindMaterial(const std::string& name) const;
    RowId InsertMaterial(const Material& material);
    void UpdateMaterial(RowId id, const Material& material);

    RowId InsertPart(const Part& part, std::int64_t changeNumber);
    void UpdatePart(RowId id, const Part& part);
    RowId InsertUse(const Use& use, RowId parent, RowId part);
    void UpdateUse(RowId id, const Use& use);

private:
    Statement& BindPart(Statement& statement, const Part& part);
    Statement& BindUse(Statement& statement, const Use& use);
    Statement& BindReference(Statement& statement, const std::string& name,
                             const std::unordered_map<std::string, RowId>& ids);
    void Clear(std::initializer_list<const char*> tables, RowId owner);
    void WriteSets(Statement& statement, RowId owner, const std::vector<ValueSet>& sets);
    void WriteProperties(Statement& statement, RowId owner,
                         const std::vector<Property>& properties);
    void WriteDocuments(RowId owner, const std::vector<DocumentRevision>& documents);

    Database& m_database;
    std::unordered_map<std::string, RowId> m_massTypes;
    std::unordered_map<std::string, RowId> m_materials;
    RowId m_lastMaterial;
    RowId m_lastPart;
    RowId m_lastUse;
    std::unique_ptr<Statement> m_insertPart;
    std::unique_ptr<Statement> m_insertUse;
    std::unique_ptr<Statement> m_partValue;
    std::unique_ptr<Statement> m_useValue;
    std::unique_ptr<Statement> m_partProperty;
    std::unique_ptr<Statement> m_useProperty;
    std::unique_ptr<Statement> m_document;
};

/// Notes which parts nobody uses, for as long as the change number stays what it is.
void NoteRoots(Database& database);

/// What a change of stored facts means for all that is derived from them: the number goes to the
/// parts that changed and to those above them, and values of assemblies above are older now.
void RaiseChangeNumbers(Database& database, OutdatedSets& outdated, std::int64_t changeNumber);
} // namespace wb
