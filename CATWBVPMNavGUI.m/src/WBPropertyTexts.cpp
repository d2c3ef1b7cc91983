#include "WBPanelTexts.h"
#include "WBPanelUnits.h"

#include "CATTime.h"
#include "CATWBServices.h"

#include <array>
#include <string_view>

namespace
{

constexpr int kInteger = 2;
constexpr int kReal = 3;
constexpr int kYesNo = 4;
constexpr int kQuantity = 100;

constexpr std::array<std::string_view, 3> kYes{"1", "yes", "true"};
constexpr std::array<std::string_view, 3> kNo{"0", "no", "false"};

bool IsOneOf(const std::array<std::string_view, 3>& words, const CATUnicodeString& text)
{
    for (const std::string_view word : words) {
        if (text.Compare(word) != 0) { // letter case does not count
            return true;
        }
    }
    return false;
}

// Dates are stored with the year first; a text that is no such date is shown as it is.
CATUnicodeString DateText(const CATUnicodeString& value, const CATUnicodeString& format)
{
    CATUnicodeString text = value;
    text.ReplaceAll("-", "/");
    const int afterYear = text.Find("/");
    const int afterMonth = afterYear < 0 ? -1 : text.Find("/", afterYear + 1);
    if (afterMonth < 0) {
        return value;
    }
    int year = 0;
    int month = 0;
    int day = 0;
    if (text.ReadInt(year) != 1 || text.Part(afterYear + 1).ReadInt(month) != 1 ||
        text.Part(afterMonth + 1).ReadInt(day) != 1) {
        return value;
    }
    const CATTime date(year, month, day);
    return date.IsValid() ? date.ToText(format) : value;
}

CATUnicodeString KindText(const WBPanelProperty& property)
{
    if (property.isDate) {
        return WBPanelText("PropertyKind.Date", "@date");
    }
    switch (property.type) {
    case kInteger:
        return WBPanelText("PropertyKind.Integer", "@whole number");
    case kReal:
        return WBPanelText("PropertyKind.Real", "@number");
    case kYesNo:
        return WBPanelText("PropertyKind.YesNo", "@yes or no");
    case kQuantity:
        return WBPanelText("PropertyKind.Quantity", "@quantity");
    default:
        return WBPanelText("PropertyKind.Text", "@text");
    }
}

CATUnicodeString OwnerText(const CATUnicodeString& owner)
{
    if (owner == "Part") {
        return WBPanelText("Owner.Part", "@part");
    }
    return owner == "Instance" ? WBPanelText("Owner.Instance", "@instance") : owner;
}

CATUnicodeString UnitText(const WBPanelProperty& property)
{
    return property.type == kQuantity ? WBUnitSymbol(property.magnitude) : CATUnicodeString();
}

} // namespace

CATUnicodeString WBPropertyText(const WBPanelProperty& property, const CATUnicodeString& dateFormat)
{
    if (property.isDate) {
        return DateText(property.value, dateFormat);
    }
    if (property.type == kYesNo && IsOneOf(kYes, property.value)) {
        return WBPanelText("Answer.Yes", "@yes");
    }
    if (property.type == kYesNo && IsOneOf(kNo, property.value)) {
        return WBPanelText("Answer.No", "@no");
    }
    double number = 0.0;
    if ((property.type != kReal && property.type != kQuantity) ||
        CATWBServices::ConvertToDouble(property.value, number) != 1) {
        return property.value;
    }
    return property.type == kReal ? CATUnicodeString::FromReal(number)
                                  : WBNumberInUnit(property.magnitude, number);
}

WBPanelTable WBPropertyTable(const WBPanelRecord& record)
{
    WBPanelTable table;
    table.columns = {{WBPanelText("Properties.Name.Title", "@Property"), {}, false},
                     {WBPanelText("Properties.Value.Title", "@Value"), {}, false},
                     {WBPanelText("Properties.Unit.Title", "@Unit"), {}, false},
                     {WBPanelText("Properties.Kind.Title", "@Kind"), {}, false},
                     {WBPanelText("Properties.Owner.Title", "@Belongs to"),
                      WBPanelText("Properties.Owner.Tooltip",
                                  "@Whether the part has the property wherever it is used, or this "
                                  "instance alone"),
                      false}};
    for (const WBPanelProperty& property : record.properties) {
        table.rows.push_back({property.name, WBPropertyText(property, record.dateFormat),
                              UnitText(property), KindText(property), OwnerText(property.owner)});
    }
    return table;
}

WBPropertyFacts WBReadPropertyFacts(const WBPanelRecord& record, int position)
{
    const auto index = static_cast<std::size_t>(position) - 1;
    if (position < 1 || index >= record.properties.size()) {
        return {WBPanelText("Property.None", "@Select a property to change its value."),
                WBOrDash({})};
    }
    const WBPanelProperty& property = record.properties[index];
    const CATUnicodeString value = WBPropertyText(property, record.dateFormat);
    const CATUnicodeString unit = UnitText(property);
    return {WBPanelText("Property.Heading", "@/p1, of the /p2",
                        {property.name, OwnerText(property.owner)}),
            WBOrDash(value.IsEmpty() || unit.IsEmpty() ? value : value + " " + unit)};
}
