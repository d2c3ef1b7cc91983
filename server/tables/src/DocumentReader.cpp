#include "DocumentReader.h"

#include "WBRules.h"
#include "WBTexts.h"

#include <algorithm>

namespace wb
{
void DocumentReader::Read(Part& part)
{
    if (!m_row.Filled(Column::Doc)) {
        for (auto column = Column::DocVersion; column <= Column::DocMass; column = Next(column)) {
            if (m_row.Filled(column)) {
                m_row.Complain(column,
                               "a revision without a document, expected its name in column doc");
                return;
            }
        }
        return;
    }
    if (!m_row.Filled(Column::DocVersion)) {
        m_row.Complain(Column::DocVersion,
                       "the cell is blank, expected the revision of the document");
        return;
    }
    auto found = std::ranges::find_if(part.documents, [&](const DocumentRevision& revision) {
        return revision.document == m_row.Cell(Column::Doc) &&
               revision.version == m_row.Cell(Column::DocVersion);
    });
    if (found == part.documents.end()) {
        DocumentRevision& added = part.documents.emplace_back();
        added.document = m_row.Cell(Column::Doc);
        added.version = m_row.Cell(Column::DocVersion);
        found = part.documents.end() - 1;
    }
    ReadFacts(part, *found);
}

void DocumentReader::ReadFacts(Part& part, DocumentRevision& revision)
{
    const auto text = [&](std::string& stored, Fact fact, Column column) {
        if (m_row.Filled(column)) {
            m_keeper.Text(stored, m_row.Cell(column), revision.lines,
                          m_row.Statement(fact, column));
        }
    };
    if (m_row.Filled(Column::DocCheckinDate) && !IsDate(m_row.Cell(Column::DocCheckinDate))) {
        m_row.Wrong(Column::DocCheckinDate, "a date yyyy-mm-dd");
    } else {
        text(revision.checkinDate, Fact::CheckinDate, Column::DocCheckinDate);
    }
    text(revision.checkinUser, Fact::CheckinUser, Column::DocCheckinUser);
    text(revision.checkoutUser, Fact::CheckoutUser, Column::DocCheckoutUser);
    if (m_row.Filled(Column::DocMassType) && m_row.Cell(Column::DocMassType) != "Computed" &&
        FindMassType(m_massTypes, m_row.Cell(Column::DocMassType)) == nullptr) {
        m_row.Wrong(Column::DocMassType, "Computed or a mass type of the table of mass types");
    } else {
        text(revision.massType, Fact::DocumentMassType, Column::DocMassType);
    }
    if (const auto mass = m_row.Stored(Column::DocMass)) {
        m_keeper.Number(revision.mass, *mass, revision.typed, revision.lines,
                        m_row.Statement(Fact::DocumentMass, Column::DocMass));
    }
    const auto use = m_row.Choice(Column::DocUse, {"attached", "active", "both"});
    if (!use) {
        return;
    }
    const auto wanted = static_cast<DocumentRevision::Use>(*use + 1);
    m_keeper.Choose(revision.use, wanted, revision.lines,
                    m_row.Statement(Fact::DocumentUse, Column::DocUse));
    for (const DocumentRevision& other : part.documents) {
        const int shared = static_cast<int>(other.use) & static_cast<int>(revision.use);
        if (&other != &revision && shared != 0) {
            m_row.Complain(Column::DocUse,
                           std::string((shared & 1) != 0 ? "attached" : "active") +
                               " is revision " + other.version + " in line " +
                               std::to_string(other.lines.LineOf(Fact::DocumentUse)) +
                               ", expected one such revision a part");
        }
    }
}
} // namespace wb
