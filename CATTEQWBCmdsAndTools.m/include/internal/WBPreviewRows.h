#pragma once

#include "WBPreviewColumns.h"
#include "WBReportAttributes.h"

#include "CATDlgMultiList.h"
#include "CATIDOMDocument.h"
#include "CATTrace.h"

/// How the previews' lists get their columns and rows from a report. Rows count from 0 here; the
/// list's own count from 1.

/// Gives a list its columns; those of single numbers are right-aligned, the one before them too.
void ShowColumns(const WBPreviewColumns& columns, const CATUnicodeString& firstTitle,
                 CATDlgMultiList& list);

/// The first element "PRC"; null where there is none.
CATIDOMElement_var FirstRoot(const CATIDOMDocument& document);

/// Writes an attribute, as the document holds it, into a cell; the row is made when it is the next
/// one. E_FAIL, with a trace line and no cell, when the element has no such attribute or is null;
/// S_OK otherwise, also where the list has no such column.
long PrintAttribute(const DSTrace& trace, const CATIDOMElement_var& element,
                    const CATUnicodeString& name, int column, int row, CATDlgMultiList& list);

/// Has the preview print the attributes into the row, beginning at the column behind the first.
template <class Preview>
void PrintRow(Preview& preview, const CATIDOMElement_var& element,
              const CATListValCATUnicodeString& attributes, int row, CATDlgMultiList* list)
{
    int column = 1;
    for (const CATUnicodeString& name : attributes.Items()) {
        preview.PrintNode(element, name, column, row, list);
        ++column;
    }
}

/// Adds to `count` how many steps above the node the root stands; a node below no root counts every
/// node above it, the document included, and itself.
void CountStepsToRoot(CATIDOMNode_var node, int& count);

/// Visits the elements of a list in its order, each with its index, up to the first item that is no
/// element. The list is not asked for its length; see ForEachElement.
template <class Visit>
void ForLeadingElements(const CATIDOMNodeList& nodes, Visit visit)
{
    int index = 0;
    CATIDOMNode_var node = nodes.Item(index);
    while (ElementOf(node) != nullptr) {
        visit(CATIDOMElement_var(node->AsElement()), index);
        ++index;
        node = nodes.Item(index);
    }
}
