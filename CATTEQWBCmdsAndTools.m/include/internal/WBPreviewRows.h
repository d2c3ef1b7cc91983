#pragma once

#include "WBPreviewColumns.h"
#include "WBReportAttributes.h"

#include "CATCollections.h"
#include "CATDlgMultiList.h"
#include "CATIDOMDocument.h"
#include "CATTrace.h"

#include <functional>
#include <optional>

/// How the previews' lists get their columns and rows from a report. Rows count from 0 here; the
/// list's own count from 1.

/// Called with the index of an attribute that an element announces and does not have.
using WBOnMissingAttribute = std::function<void(int index)>;

/// The names of the element's attributes, in order. Nothing when they cannot be read.
std::optional<CATListValCATUnicodeString> AttributeNames(const CATIDOMElement& element,
                                                         const WBOnMissingAttribute& onMissing);
/// The names of the attributes of all elements of the list, each once, in the order in which they
/// are met. Nothing when those of one element cannot be read.
std::optional<CATListValCATUnicodeString>
DistinctAttributeNames(const CATIDOMNodeList& nodes, const WBOnMissingAttribute& onMissing);

/// Gives a list its columns; those of numbers are right-aligned, the one before them too.
void ShowColumns(const WBPreviewColumns& columns, const CATUnicodeString& firstTitle,
                 CATDlgMultiList& list);

/// Writes an attribute, as the document holds it, into a cell; the row is made when it is the next
/// one. E_FAIL, with a trace line and no cell, when the element has no such attribute; S_OK
/// otherwise, also where the list has no such column.
long PrintAttribute(const DSTrace& trace, const CATIDOMElement& element,
                    const CATUnicodeString& name, int column, int row, CATDlgMultiList& list);

/// Adds to `count` how many steps above the node the root stands; a node below no root counts every
/// node above it, the document included, and itself.
void CountStepsToRoot(CATIDOMNode_var node, int& count);

/// Visits the elements of a list in its order, each with its index, up to the first item that is no
/// element. The list is not asked for its length; see ForEachElement.
template <class Visit>
void ForLeadingElements(const CATIDOMNodeList& nodes, Visit visit)
{
    int index = 0;
    for (CATIDOMNode_var node = nodes.Item(index); ElementOf(node) != nullptr;
         node = nodes.Item(index)) {
        visit(CATIDOMElement_var(node->AsElement()), index);
        ++index;
    }
}
