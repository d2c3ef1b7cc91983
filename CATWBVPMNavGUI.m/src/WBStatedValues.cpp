#include "WBStatedValues.h"

#include "WBQuantityTexts.h"

#include "CATDiagnostics.h"
#include "CATWBAllDataBuffer.h"
#include "CATWireFields.h"
#include "RunServerCode.h"

#include <algorithm>
#include <utility>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

CATUnicodeString Field(const CATUnicodeString& text)
{
    return text + "|";
}

WBStatedQuantity ReadQuantity(CATWireFields& fields)
{
    WBStatedQuantity quantity;
    quantity.owner = fields.Text();
    quantity.massType = fields.Text();
    quantity.name = fields.Text();
    quantity.text = fields.Text();
    quantity.stored = fields.Text();
    quantity.isPending = fields.Flag();
    quantity.isInConflict = fields.Flag();
    quantity.by = fields.Text();
    quantity.at = fields.Text();
    const bool isOwner =
        quantity.owner == Definitions::partRef || quantity.owner == Definitions::partInst;
    if (!isOwner || !WBIsTextOf(quantity.name, quantity.text) ||
        !WBIsTextOf(quantity.name, quantity.stored)) {
        fields.Refuse("a value that can be stated");
    }
    return quantity;
}

/// The mass types that state what is aimed at. None where the server does not answer: it refuses a
/// goal as the active type by itself.
std::vector<CATUnicodeString> AskGoals()
{
    struct MassType
    {
        CATUnicodeString name;
        CATUnicodeString kind;
    };
    const CATUnicodeString answer = RunServerCode("WBListMassTypes");
    CATWireFields fields(answer.View());
    const auto massTypes = fields.List<MassType>([&fields] {
        MassType massType;
        massType.name = fields.Text();
        fields.Text(); // order
        massType.kind = fields.Text();
        fields.Text(); // category
        fields.Text(); // lower and upper precision
        fields.Text();
        fields.Text(); // meaning
        return massType;
    });
    std::vector<CATUnicodeString> goals;
    for (const MassType& massType : massTypes) {
        if (massType.kind == "goal") {
            goals.push_back(massType.name);
        }
    }
    fields.End();
    return fields.IsSound() ? goals : std::vector<CATUnicodeString>();
}

} // namespace

const WBStatedQuantity* WBStatedValues::Find(const CATUnicodeString& owner,
                                             const CATUnicodeString& massType,
                                             const CATUnicodeString& name) const
{
    const auto found = std::ranges::find_if(quantities, [&](const WBStatedQuantity& quantity) {
        return quantity.owner == owner && quantity.massType == massType && quantity.name == name;
    });
    return found == quantities.end() ? nullptr : &*found;
}

const WBStatedQuantity* WBStatedValues::Find(const CATUnicodeString& massType,
                                             const CATUnicodeString& name) const
{
    const WBStatedQuantity* ofUse = Find(Definitions::partInst, massType, name);
    return ofUse == nullptr ? Find(Definitions::partRef, massType, name) : ofUse;
}

std::optional<WBStatedValues> WBReadStatedValues(const CATUnicodeString& answer)
{
    CATWireFields fields(answer.View());
    WBStatedValues values;
    values.partName = fields.Text();
    values.isLeaf = fields.Flag();
    values.isStandardPart = fields.Flag();
    values.places = fields.Count();
    values.otherRoots = fields.Count();
    values.materials = fields.List<CATUnicodeString>([&fields] { return fields.Text(); });
    values.hasOwnSets = fields.Flag();
    values.pendingNumber = fields.Count();
    values.quantities = fields.List<WBStatedQuantity>([&fields] { return ReadQuantity(fields); });
    fields.End();
    return fields.IsSound() ? std::optional(std::move(values)) : std::nullopt;
}

CATUnicodeString WBPlaceOf(const CATWBAllDataBuffer& record)
{
    CATUnicodeString instance;
    CATUnicodeString part;
    CATUnicodeString version;
    CATUnicodeString root;
    record.GetCurrentInstanceID(instance);
    record.GetCurrentPartID(part);
    record.GetCurrentPartVersion(version);
    record.GetCurrentPRCID(root);
    const int depth = std::max(record.GetInstancePathDepth(), 0);
    CATUnicodeString place = Field(record.HasInstInENOVIA() ? "1" : "0") + Field(instance) +
                             Field(part) + Field(version) + Field(CATUnicodeString::FromInt(depth));
    if (depth > 0) {
        place += Field(record.GetInstancePath());
    }
    return place + Field(root);
}

WBStatedValues WBAskStatedValues(const CATWBAllDataBuffer& record)
{
    const CATUnicodeString answer = RunServerCode("WBGetStatedValues", WBPlaceOf(record));
    std::optional<WBStatedValues> values = WBReadStatedValues(answer);
    if (!values) {
        CATDiagnosticErrors().Line("The server does not tell which values are stated: ", answer);
        return {};
    }
    values->goals = AskGoals();
    return *std::move(values);
}
