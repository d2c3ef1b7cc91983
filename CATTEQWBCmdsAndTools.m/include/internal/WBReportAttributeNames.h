#pragma once

#include "CATCollections.h"
#include "CATIDOMDocument.h"
#include "CATTrace.h"

#include <optional>

// What the elements of a report are described by, as a preview needs it for its columns. Where
// something cannot be read the trace says what, and there is no answer.

/// The attributes of the part instances, each once and in the order in which they are met.
struct WBInstanceAttributes
{
    CATListValCATUnicodeString columns;    ///< what is shown
    CATListValCATUnicodeString magnitudes; ///< names that begin with "__magnitude__"
};

/// Without the date of the last computation when `withoutDate` says so, and without
/// "instIdAttrAlias", which serves the order alone. An attribute that cannot be had is traced and
/// passed over.
std::optional<WBInstanceAttributes>
ReadInstanceAttributes(const DSTrace& trace, const CATIDOMDocument& document, bool withoutDate);

/// All attributes of the first element "PRC".
std::optional<CATListValCATUnicodeString> ReadRootAttributes(const DSTrace& trace,
                                                             const CATIDOMDocument& document);

/// What an element is in the report, for the trace.
enum class WBReportElement
{
    Root,
    Section,
    PartInstance
};
/// All attributes of an element of the document. One that cannot be had is traced and passed over.
std::optional<CATListValCATUnicodeString> ReadAttributes(const DSTrace& trace,
                                                         const CATIDOMDocument& document,
                                                         const CATIDOMNode_var& element,
                                                         WBReportElement which);
