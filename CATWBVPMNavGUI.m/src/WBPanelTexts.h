#pragma once

#include "CATCollections.h"
#include "CATUnicodeString.h"
#include "WBPanelRecord.h"

#include <optional>
#include <vector>

/// What the main panel says about a record: texts and rows in the user's language and units.
/// Unknown figures are a dash in a line of its own and an empty cell in a table; never 0.

/// The panel's message `key`, `defaultText` where no catalog has it; "/p1", "/p2", ... are
/// replaced.
CATUnicodeString WBPanelText(const char* key, const char* defaultText,
                             const CATListValCATUnicodeString& parameters = {});
/// The text, or a dash for an empty one.
CATUnicodeString WBOrDash(const CATUnicodeString& text);

/// What is seen at first glance.
struct WBPanelSummary
{
    CATUnicodeString windowTitle;
    CATUnicodeString name; ///< as people say it
    CATUnicodeString part; ///< identifier and version
    CATUnicodeString instance;
    CATUnicodeString path; ///< root first, with "/" between
    CATUnicodeString upToDate;
    CATUnicodeString kind;    ///< part or assembly, and whether it is a standard part
    CATUnicodeString active;  ///< the active mass type
    CATUnicodeString imposed; ///< the one imposed last
    CATUnicodeString mass;
    CATUnicodeString bounds; ///< between which the mass lies
    CATUnicodeString centre;
};
WBPanelSummary WBSummarise(const WBPanelRecord& record);

/// A table as it is shown: titles with their units, and rows as long as the titles.
using WBPanelRow = CATListValCATUnicodeString;
struct WBPanelTable
{
    struct Column
    {
        CATUnicodeString title;
        CATUnicodeString tooltip;
        bool isNumber = false;
    };
    std::vector<Column> columns;
    std::vector<WBPanelRow> rows;
    std::vector<int> keyColumns{0}; ///< from 0: what these hold tells which row it is
};

/// One row a mass type, in the record's order.
WBPanelTable WBMassTypeTable(const WBPanelRecord& record);
/// Mass by material, with the share of each in the whole.
WBPanelTable WBMaterialTable(const WBPanelRecord& record);
WBPanelTable WBRevisionTable(const WBPanelRecord& record);
WBPanelTable WBPropertyTable(const WBPanelRecord& record);
/// A row an axis of the product: where the part's three axes point, and the shift along it.
WBPanelTable WBPlacementTable(const WBPanelRecord& record);
/// The position in words.
CATUnicodeString WBPlacementWords(const std::optional<CATMathTransformation>& placement);

/// "-3 % / +5 %", "-0.2 kg / +0.1 kg", or the default one of the mass type, which is said to be one
/// and counts only where there is a mass that it bounds.
CATUnicodeString WBPrecisionText(const WBPanelMassType& massType);
/// A property's value as people read it.
CATUnicodeString WBPropertyText(const WBPanelProperty& property,
                                const CATUnicodeString& dateFormat);

/// Facts about material and documents, each as one text.
struct WBMaterialFacts
{
    CATUnicodeString density;
    CATUnicodeString material;
    CATUnicodeString appliedOn;
    CATUnicodeString partDensity;
    CATUnicodeString partMaterial;
    CATUnicodeString priority;
};
WBMaterialFacts WBReadMaterialFacts(const WBPanelRecord& record);

/// The property at a position from 1; 0: none.
struct WBPropertyFacts
{
    CATUnicodeString heading; ///< which property it is
    CATUnicodeString value;
};
WBPropertyFacts WBReadPropertyFacts(const WBPanelRecord& record, int position);

struct WBDocumentFacts
{
    CATUnicodeString active;
    CATUnicodeString attached;
    CATUnicodeString computedOn;
    CATUnicodeString oldRevisions;
    CATUnicodeString specificRevision;
    CATUnicodeString saving;
};
WBDocumentFacts WBReadDocumentFacts(const WBPanelRecord& record);
