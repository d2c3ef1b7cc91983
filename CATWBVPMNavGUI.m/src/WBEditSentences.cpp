#include "WBEditSentences.h"

#include "WBEditTexts.h"
#include "WBFigures.h"
#include "WBPanelTexts.h"
#include "WBPanelUnits.h"
#include "WBQuantityTexts.h"

#include <algorithm>
#include <cmath>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;
using Kind = WBEditField::Kind;
using State = WBEdits::State;

CATUnicodeString TellConflict(const WBEditStory& story)
{
    const CATUnicodeString who =
        story.by.IsEmpty() ? WBEditText("State.Somebody", "@Somebody") : story.by;
    return story.stored.IsEmpty()
               ? WBEditText("State.ConflictCleared",
                            "@/p1 cleared this and saved it on /p2, after you had seen a value. "
                            "Type yours again to keep it, or clear the field.",
                            {who, story.at})
               : WBEditText("State.Conflict",
                            "@/p1 saved /p2 on /p3, after you had seen another value. Type yours "
                            "again to keep it, or that one to give way.",
                            {who, story.stored, story.at});
}

CATUnicodeString FigureOf(const WBPanelMassType& massType, Kind kind)
{
    constexpr std::size_t kDeviations = 2; // stand behind the mass and have no field
    const auto place = static_cast<std::size_t>(kind);
    const std::size_t index = kind == Kind::Mass ? 0 : place + kDeviations;
    const std::optional<double> figure = WBFiguresOf(massType)[index];
    return figure ? WBValueWithUnit(kWBFigures[index].magnitude, *figure) : CATUnicodeString();
}

CATUnicodeString DefaultPrecision(double precision)
{
    return precision == 0.0 ? CATUnicodeString()
                            : CATUnicodeString::FromReal(std::fabs(precision)) + " %";
}

CATUnicodeString CountingOf(const WBPanelMassType& massType, Kind kind)
{
    switch (kind) {
    case Kind::PrecisionKind:
        return WBPrecisionText(massType);
    case Kind::LowerPrecision:
        return DefaultPrecision(massType.defaultLowerPrecision);
    case Kind::UpperPrecision:
        return DefaultPrecision(massType.defaultUpperPrecision);
    default:
        return FigureOf(massType, kind);
    }
}

CATUnicodeString Counting(const WBPanelRecord& record, const WBEditField& field,
                          const CATUnicodeString& materialOwner)
{
    const auto massType =
        std::ranges::find(record.massTypes, field.massType, &WBPanelMassType::name);
    const bool isPartsOwn = materialOwner == Definitions::partRef && !record.hasInstanceInPDM;
    switch (field.kind) {
    case Kind::ActiveMassType:
        return record.activeMassType;
    case Kind::Density: {
        const WBPanelDensity& density = isPartsOwn ? record.partDensity : record.density;
        return density.density ? WBValueWithUnit("DENSITY", *density.density) : CATUnicodeString();
    }
    case Kind::Material:
        return isPartsOwn ? record.partDensity.material : record.density.material;
    case Kind::DensityOrder:
        return WBReadMaterialFacts(record).priority;
    case Kind::AppliedOn:
    case Kind::Property:
        return {};
    default:
        return massType == record.massTypes.end() ? CATUnicodeString()
                                                  : CountingOf(*massType, field.kind);
    }
}

CATUnicodeString Places(long long places, const CATUnicodeString& root)
{
    return places == 1 ? WBEditText("Places.One", "@1 place of /p1", {root})
                       : WBEditText("Places.Many", "@/p1 places of /p2",
                                    {CATUnicodeString(std::to_string(places)), root});
}

CATUnicodeString OtherProducts(long long roots)
{
    return roots == 1 ? WBEditText("Products.One", "@1 other product")
                      : WBEditText("Products.Many", "@/p1 other products",
                                   {CATUnicodeString(std::to_string(roots))});
}

} // namespace

CATUnicodeString WBTellStory(const WBEditStory& story)
{
    switch (story.state) {
    case State::Edited:
        return story.stored.IsEmpty()
                   ? WBEditText("State.EditedNew", "@Not applied yet. Nothing is saved.")
                   : WBEditText("State.Edited", "@Not applied yet. Saved is /p1.", {story.stored});
    case State::Pending:
        return story.stored.IsEmpty()
                   ? WBEditText("State.PendingNew", "@Applied, but not saved. Nothing is saved.")
                   : WBEditText("State.Pending", "@Applied, but not saved. Saved is /p1.",
                                {story.stored});
    case State::Conflict:
        return TellConflict(story);
    case State::Plain:
        break;
    }
    return {};
}

CATUnicodeString WBTellWhatCounts(const WBPanelRecord& record, const WBEditField& field,
                                  const CATUnicodeString& materialOwner)
{
    const CATUnicodeString counting = Counting(record, field, materialOwner);
    return counting.IsEmpty()
               ? CATUnicodeString()
               : WBEditText("Counting.Text", "@Nothing is stated; /p1 counts.", {counting});
}

CATUnicodeString WBTellIncomplete(const CATUnicodeString& quantity,
                                  const CATUnicodeString& massType)
{
    if (quantity == kWBCentreQuantity) {
        return WBEditText("Incomplete.Centre",
                          "@The centre of gravity of /p1 needs x, y and z, or none of them.",
                          {massType});
    }
    if (quantity == kWBInertiaQuantity) {
        return WBEditText("Incomplete.Inertia",
                          "@The inertia of /p1 needs all six terms, 0 where one is nothing, or "
                          "none of them.",
                          {massType});
    }
    return WBEditText("Incomplete.Precision",
                      "@The precision of /p1 needs a lower and an upper value, or none of them.",
                      {massType});
}

CATUnicodeString WBTellPlaces(const WBStatedValues& stated, const WBPanelRecord& record)
{
    const CATUnicodeString part =
        record.version.IsEmpty() ? record.part : record.part + " " + record.version;
    if (stated.otherRoots > 0) {
        return WBEditText(
            "Places.AlsoElsewhere", "@This changes /p1 in /p2 and in /p3.",
            {part, Places(stated.places, record.root), OtherProducts(stated.otherRoots)});
    }
    return stated.places > 1 ? WBEditText("Places.Here", "@This changes /p1 in /p2.",
                                          {part, Places(stated.places, record.root)})
                             : CATUnicodeString();
}
