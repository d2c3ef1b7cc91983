#include "WBNumbers.h"

#include "CATNumberLocale.h"

#include <algorithm>
#include <string>

namespace
{

/// What has to be replaced in a text so that the running locale reads it; equal when nothing has.
struct Replacement
{
    char from;
    char to;
};

Replacement NeededReplacement(std::string_view text)
{
    const bool textHasPoint = text.find('.') != std::string_view::npos;
    const bool localeWritesPoint = CATDecimalSeparator().find('.') != std::string_view::npos;
    if (!textHasPoint && localeWritesPoint) {
        return {',', '.'};
    }
    if (textHasPoint && !localeWritesPoint) {
        return {'.', ','};
    }
    return {'.', '.'};
}

} // namespace

void SynchronizeSeparator(CATUnicodeString& text)
{
    const Replacement needed = NeededReplacement(text.View());
    text.ReplaceAll(std::string_view(&needed.from, 1), std::string_view(&needed.to, 1));
}

int ReadAnyReal(std::string_view text, double& value)
{
    value = 0.0;
    const Replacement needed = NeededReplacement(text);
    // Streams hold thousands of reals; nearly all of them are read where they stand.
    if (needed.from == needed.to || text.find(needed.from) == std::string_view::npos) {
        return CATReadReal(text, value);
    }
    // Where the text has one kind of separator alone, replacing it and reading it as it is come to
    // the same.
    const std::string_view from(&needed.from, 1);
    const std::string_view to(&needed.to, 1);
    if (CATDecimalSeparator() == to && text.find(to) == std::string_view::npos) {
        return CATReadReal(text, from, value);
    }
    std::string copy(text);
    std::replace(copy.begin(), copy.end(), needed.from, needed.to);
    return CATReadReal(copy, value);
}
