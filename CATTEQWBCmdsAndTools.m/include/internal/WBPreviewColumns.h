#pragma once

#include "CATCollections.h"
#include "CATUnicodeString.h"

/// The columns of a preview's list, one an attribute, and the rules that put the attributes of a
/// report in an order: what identifies a row comes first, then its mass, then the rest as it was
/// met. The rules differ in small things that users of saved lists rely on; they stand in one table
/// beside the loop that walks it.
///
/// Single names are compared with any letter case: "wb_mass" is a mass too.
class WBPreviewColumns
{
public:
    /// Puts a column before the one at `position` (from 1); beyond the end it appends.
    void Insert(const CATUnicodeString& name, int position);
    void Append(const CATUnicodeString& name);

    /// The attributes, named as the document does; cells are looked up by these.
    const CATListValCATUnicodeString& Names() const { return m_names; }
    /// What stands above the columns: `firstTitle` above the one before them, then the names with
    /// blanks in the place of "_".
    CATListValCATUnicodeString Titles(const CATUnicodeString& firstTitle) const;

private:
    CATListValCATUnicodeString m_names;
};

/// The date of the last computation, which an installation can leave out of its reports.
bool IsCalculationDate(const CATUnicodeString& name);

// A report: identifiers last found first, then the mass, then the rest.

/// Of part instances. Without the date when `withoutDate` says so. The identifiers of documents and
/// mass types identify no instance and stand with the rest.
WBPreviewColumns ReportInstanceColumns(const CATListValCATUnicodeString& candidates,
                                       bool withoutDate);
/// Of the root, where those identifiers do count as identifiers.
WBPreviewColumns ReportRootColumns(const CATListValCATUnicodeString& names);

// A distributive report.

/// As of a report's part instances, with every date.
WBPreviewColumns DistributiveRootColumns(const CATListValCATUnicodeString& names);
/// The name, the mass, the first of the rest, identifiers, the other rest, where they are met in
/// that order; a name or mass that is met late moves what stood in its place.
WBPreviewColumns DistributiveSectionColumns(const CATListValCATUnicodeString& names);
/// The name, identifiers (all that look like one), the mass, the rest.
WBPreviewColumns DistributiveInstanceColumns(const CATListValCATUnicodeString& names);
