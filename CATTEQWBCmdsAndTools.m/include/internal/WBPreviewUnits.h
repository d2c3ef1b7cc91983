#pragma once

#include "CATDlgMultiList.h"
#include "CATIDOMDocument.h"

/// In which units a preview shows the values of its document, for those who have turned the symbols
/// off: what the document element names, which is where a conversion tells it, else the storage
/// units.
class WBPreviewUnits
{
public:
    /// Looks at the document when asked, which has to live as long.
    explicit WBPreviewUnits(const CATIDOMDocument& document) : m_document(document) {}

    /// "in kg"; empty for a magnitude that has no unit.
    CATUnicodeString Of(const char* magnitude) const;
    /// Densities stand in two units in one column: by volume, and of surfaces by area.
    CATUnicodeString OfDensities() const;
    static CATUnicodeString OfShares();
    /// Of an attribute of a root, a section or a part instance; empty where it has no unit.
    CATUnicodeString OfAttribute(const CATUnicodeString& attribute) const;
    /// All that the document element names, in one line; empty when it names none.
    CATUnicodeString Line() const;

private:
    CATUnicodeString Symbol(const char* magnitude) const;

    const CATIDOMDocument& m_document;
};

/// What is said once the user has chosen other units than those of the values.
CATUnicodeString WBUnitsHaveChanged();

/// Gives the columns behind the first one, which show these attributes, their units as tooltips.
void ShowColumnUnits(const CATIDOMDocument& document, const CATListValCATUnicodeString& attributes,
                     CATDlgMultiList& list);

/// The same of the columns that show properties of users, which are in the current units of their
/// own magnitudes: those that the first part instance with such a property names.
void ShowPropertyUnits(const CATIDOMDocument& document,
                       const CATListValCATUnicodeString& attributes,
                       const CATListValCATUnicodeString& magnitudeAttributes,
                       CATDlgMultiList& list);
