#pragma once

#include "ImportErrors.h"
#include "WBProduct.h"
#include "WBStore.h"

#include <cstdint>
#include <string>
#include <vector>

namespace wb
{
/// Puts what a table states beside what is stored. A fact that is not stored yet is added, one that
/// is stored alike is left, one that is stored differently gives way or becomes a sentence.
class PartMerge
{
public:
    PartMerge(KnownFacts known, ImportErrors& errors) : m_known(known), m_errors(errors) {}

    void Merge(Part& stored, const Part& stated, RowId row);
    /// subject: how messages call the use.
    void Merge(Use& stored, const Use& stated, RowId row, const std::string& subject);
    /// A material that has a density keeps it, since products that the table does not mention may
    /// be made of it.
    void Merge(Material& stored, const Material& stated);

    /// Everything that gave way since the beginning.
    const std::vector<ChangedFact>& ChangedFacts() const { return m_changedFacts; }

    /// Since the last call of Forget: anything was added or gave way.
    bool Changed() const { return m_changed; }
    /// Something changed that sums depend on; names, notes, revisions and properties are not.
    bool TouchesSums() const { return m_touchesSums; }
    /// The mass types of the sets that were added or whose numbers changed.
    const std::vector<std::string>& RestatedSets() const { return m_restatedSets; }
    void Forget()
    {
        m_changed = m_touchesSums = false;
        m_restatedSets.clear();
    }

private:
    enum class Weight
    {
        InSums,
        Beside
    };

    void Added(Weight weight);
    bool MergeNumber(double& stored, double stated, Fact fact, const FactLines& lines,
                     const std::string& storedTyped, const std::string& statedTyped);
    void Text(std::string& stored, const std::string& stated, Fact fact, const FactLines& lines,
              Weight weight);
    template <typename Choice>
    void Choose(Choice& stored, Choice stated, Fact fact, const FactLines& lines);
    void Sets(std::vector<ValueSet>& stored, const std::vector<ValueSet>& stated);
    void Set(ValueSet& stored, const ValueSet& stated);
    void Precision(ValueSet& stored, const ValueSet& stated);
    void SetInertia(ValueSet& stored, const ValueSet& stated);
    void Properties(std::vector<Property>& stored, const std::vector<Property>& stated);
    void Documents(std::vector<DocumentRevision>& stored,
                   const std::vector<DocumentRevision>& stated);
    void Position(Use& stored, const Use& stated);
    void Densities(double& density, double& surfaceDensity, double statedDensity,
                   double statedSurfaceDensity, const FactLines& lines, std::string& storedTyped,
                   const std::string& statedTyped);
    void KeepTypedOf(std::string& storedTyped, const std::string& statedTyped, const char* name);
    /// Texts as they are shown.
    struct Difference
    {
        std::uint32_t line;
        std::string what;
        std::string stated;
        std::string stored;
    };
    /// What is stored gives way, and that is kept. Where facts may not, it is an error, and nothing
    /// of the import is stored.
    void GiveWay(const Difference& difference, Weight weight);
    template <typename Describe>
    void AddOrGiveWay(bool isStored, const Describe& describe);

    KnownFacts m_known;
    ImportErrors& m_errors;
    std::vector<ChangedFact> m_changedFacts;
    OwnerKind m_kind = OwnerKind::Part;
    RowId m_owner = 0;
    std::string m_subject;
    std::string m_set; // "mass type Weighed, " while one of its sets is merged
    std::vector<std::string> m_restatedSets;
    bool m_changed = false;
    bool m_touchesSums = false;
};
} // namespace wb
