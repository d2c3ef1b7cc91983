#pragma once

#include "FactKeeper.h"
#include "TableRow.h"
#include "WBProduct.h"

#include <vector>

namespace wb
{
/// Reads the revision of a document that a row states of its part.
class DocumentReader
{
public:
    DocumentReader(TableRow& row, FactKeeper& keeper, const std::vector<wb::MassType>& massTypes)
        : m_row(row), m_keeper(keeper), m_massTypes(massTypes)
    {}

    void Read(Part& part);

private:
    void ReadFacts(Part& part, DocumentRevision& revision);

    TableRow& m_row;
    FactKeeper& m_keeper;
    const std::vector<wb::MassType>& m_massTypes;
};
} // namespace wb
