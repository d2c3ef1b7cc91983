#include "WBPanelTexts.h"

#include "WBPanelUnits.h"

#include "CATMsgCatalog.h"

#include <cmath>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

constexpr const char* kCatalog = "CATWBVPMMainPanel";
constexpr const char* kMass = "MASS";
constexpr const char* kLength = "LENGTH";
constexpr const char* kDash = "–";

CATUnicodeString Path(const std::vector<CATUnicodeString>& names)
{
    CATUnicodeString path;
    for (const CATUnicodeString& name : names) {
        if (!path.IsEmpty()) {
            path += " / ";
        }
        path += name;
    }
    return path;
}

CATUnicodeString PartAndVersion(const WBPanelRecord& record)
{
    return record.version.IsEmpty()
               ? record.part
               : WBPanelText("Part.Version", "@/p1, version /p2", {record.part, record.version});
}

CATUnicodeString Kind(const WBPanelRecord& record)
{
    const CATUnicodeString kind = record.isLeaf ? WBPanelText("Kind.Part", "@Single part")
                                                : WBPanelText("Kind.Assembly", "@Assembly");
    return record.isStandardPart ? kind + ", " + WBPanelText("Kind.Standard", "@standard part")
                                 : kind;
}

// The mass lies between the mass less its lower and the mass plus its upper deviation.
CATUnicodeString Bounds(const WBPanelMassType& massType)
{
    if (!massType.mass || !massType.lowerDeviation || !massType.upperDeviation) {
        return kDash;
    }
    return WBPanelText("Mass.Bounds", "@/p1 to /p2",
                       {WBNumberInUnit(kMass, *massType.mass - *massType.lowerDeviation),
                        WBValueWithUnit(kMass, *massType.mass + *massType.upperDeviation)});
}

CATUnicodeString Centre(const std::optional<CATMathPoint>& centre)
{
    if (!centre) {
        return kDash;
    }
    return WBPanelText("Centre.Coordinates", "@x /p1   y /p2   z /p3",
                       {WBNumberInUnit(kLength, centre->GetX()),
                        WBNumberInUnit(kLength, centre->GetY()),
                        WBValueWithUnit(kLength, centre->GetZ())});
}

CATUnicodeString DensityText(const WBPanelDensity& density)
{
    if (density.density) {
        return WBValueWithUnit("DENSITY", *density.density);
    }
    return density.status == Definitions::PartiallyAssigned
               ? WBPanelText("Density.Partial", "@known of some of the parts below")
               : CATUnicodeString(kDash);
}

CATUnicodeString AppliedOn(const CATUnicodeString& object)
{
    if (object == Definitions::partRef) {
        return WBPanelText("AppliedOn.Part", "@the part, wherever it is used");
    }
    if (object == Definitions::partInst) {
        return WBPanelText("AppliedOn.Instance", "@this instance alone");
    }
    return WBOrDash(object);
}

CATUnicodeString YesOrNo(bool isYes)
{
    return isYes ? WBPanelText("Answer.Yes", "@yes") : WBPanelText("Answer.No", "@no");
}

} // namespace

CATUnicodeString WBPanelText(const char* key, const char* defaultText,
                             const CATListValCATUnicodeString& parameters)
{
    return CATMsgCatalog::BuildMessage(kCatalog, key, defaultText, parameters);
}

CATUnicodeString WBOrDash(const CATUnicodeString& text)
{
    return text.IsEmpty() ? CATUnicodeString(kDash) : text;
}

WBPanelSummary WBSummarise(const WBPanelRecord& record)
{
    WBPanelSummary summary;
    summary.part = WBOrDash(PartAndVersion(record));
    // A part without a name is called by its identifier.
    summary.name = record.partName.IsEmpty() ? WBOrDash(record.part) : record.partName;
    summary.windowTitle = WBPanelText("Window.Title", "@Weight and balance of /p1", {summary.name});
    summary.instance = WBOrDash(record.instance);
    summary.path = WBOrDash(Path(record.path));
    summary.upToDate = record.isUpToDate ? WBPanelText("UpToDate.Yes", "@Up to date")
                                         : WBPanelText("UpToDate.No", "@Not up to date");
    summary.kind = Kind(record);
    summary.active = WBOrDash(record.activeMassType);
    summary.imposed = WBOrDash(record.lastImposedMassType);
    const WBPanelMassType* active = record.Active();
    const WBPanelMassType values = active == nullptr ? WBPanelMassType() : *active;
    summary.mass = values.mass ? WBValueWithUnit(kMass, *values.mass) : CATUnicodeString(kDash);
    summary.bounds = Bounds(values);
    summary.centre = Centre(values.centre);
    return summary;
}

WBMaterialFacts WBReadMaterialFacts(const WBPanelRecord& record)
{
    WBMaterialFacts facts;
    facts.density = DensityText(record.density);
    facts.material = WBOrDash(record.density.material);
    facts.appliedOn = AppliedOn(record.appliedOn);
    facts.partDensity = DensityText(record.partDensity);
    facts.partMaterial = WBOrDash(record.partDensity.material);
    facts.priority = record.isMaterialDensityFirst
                         ? WBPanelText("Priority.Material", "@the density of the material")
                         : WBPanelText("Priority.Own", "@the density stated for the part");
    return facts;
}

WBDocumentFacts WBReadDocumentFacts(const WBPanelRecord& record)
{
    WBDocumentFacts facts;
    facts.active = record.activeDocument.IsEmpty() || record.activeDocumentVersion.IsEmpty()
                       ? WBOrDash(record.activeDocument)
                       : WBPanelText("Document.Version", "@/p1, version /p2",
                                     {record.activeDocument, record.activeDocumentVersion});
    facts.attached = WBOrDash(record.attachedRevision);
    facts.computedOn = record.isAttachedRevisionUsed
                           ? WBPanelText("ComputedOn.Attached", "@the attached revision")
                           : WBPanelText("ComputedOn.Latest", "@the latest revision");
    facts.oldRevisions = YesOrNo(record.areOldRevisionsUsable);
    facts.specificRevision = YesOrNo(record.hasUsedSpecificRevision);
    facts.saving = YesOrNo(record.isPersistent);
    return facts;
}
