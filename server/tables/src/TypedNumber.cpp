#include "TypedNumber.h"

#include "WBNumbers.h"

namespace wb
{
std::optional<TypedNumber> ReadTyped(const std::string& typed, Column column)
{
    const std::string_view whole = TypedText(typed, ColumnName(column));
    const Magnitude* magnitude = ColumnMagnitude(column);
    std::string_view digits = whole;
    const Unit* unit = nullptr;
    if (magnitude != nullptr) {
        const std::size_t blank = whole.rfind(' ');
        if (blank == std::string_view::npos) {
            return std::nullopt;
        }
        digits = whole.substr(0, blank);
        unit = FindUnit(*magnitude, whole.substr(blank + 1));
        if (unit == nullptr) {
            return std::nullopt;
        }
    }
    const auto value = ReadNumber(digits);
    if (!value) {
        return std::nullopt;
    }
    return TypedNumber{
        {std::string(digits), unit}, *value, unit == nullptr ? *value : ToStorage(*unit, *value)};
}

NumberText TextOf(double stored, const std::string& typed, Column column)
{
    const auto kept = ReadTyped(typed, column);
    if (kept && kept->stored == stored) {
        return kept->shown;
    }
    const Magnitude* magnitude = ColumnMagnitude(column);
    return {WriteShortest(stored), magnitude == nullptr ? nullptr : magnitude->units.data()};
}

void PutNumber(TableDraft& draft, Column column, double stored, const std::string& typed)
{
    if (IsKnown(stored)) {
        draft.PutNumber(column, TextOf(stored, typed, column));
    }
}
} // namespace wb
