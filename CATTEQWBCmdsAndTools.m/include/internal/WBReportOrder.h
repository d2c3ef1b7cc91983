#pragma once

#include "CATIDOMDocument.h"
#include "CATTrace.h"

// The stable order of a report: the elements of one parent by the identifiers of their instances,
// so that two reports of one product can be compared line by line. Each preview has operations of
// its own for it, which stand on these; the trace is that of the preview.

/// What the order begins with: the document element and the list of its children. E_INVALIDARG for
/// a null document, E_FAIL when it has no such element or list; the outputs are null then.
long ReadTopLevel(const DSTrace& trace, const CATIDOMDocument_var& document, CATIDOMNode_var& top,
                  CATIDOMNodeList_var& children);

/// Sorts the element children of `parent`, whose live list of children is `children`, and then
/// those below each child. The key of an element is the text of the attribute that its
/// "instIdAttrAlias" names, the empty text where one of the two is missing; keys are compared by
/// code units, not as numbers, and equal ones keep their order. Children that are no elements stay
/// ahead of the sorted ones.
///
/// Below `parent` the sort goes down only to the first child that itself has children, and ends
/// there: S_OK when there is nothing to sort, E_INVALIDARG for a null list, and E_FAIL for every
/// list that is not empty, with all sorted that is going to be.
long SortReportNodes(const DSTrace& trace, const CATIDOMNode_var& parent,
                     const CATIDOMNodeList_var& children);
