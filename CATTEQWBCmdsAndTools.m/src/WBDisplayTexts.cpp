#include "WBDisplayTexts.h"

#include "WBFields.h"

#include <string>
#include <string_view>

namespace
{

constexpr int kLongestWarning = 1000;
constexpr int kParagraphMarks = 10;
constexpr std::string_view kParagraphMark = "- ";
constexpr std::string_view kError = "ERROR";

/// The text before its tenth paragraph mark; all of it when there are fewer.
std::string_view FirstParagraphs(std::string_view text)
{
    std::size_t from = 0;
    std::size_t mark = 0;
    for (int found = 0; found < kParagraphMarks; ++found) {
        mark = text.find(kParagraphMark, from);
        if (mark == std::string_view::npos) {
            return text;
        }
        from = mark + kParagraphMark.size();
    }
    return text.substr(0, mark);
}

} // namespace

CATUnicodeString ShortenedWarning(const CATUnicodeString& warning)
{
    if (warning.Length() <= kLongestWarning) {
        return warning;
    }
    const std::string_view text = warning.View();
    std::string shortened(FirstParagraphs(text));
    shortened += "...\n";
    // An error is shown even where the paragraphs already held it: better twice than not at all.
    const std::size_t error = text.find(kError);
    if (error != std::string_view::npos) {
        shortened += text.substr(error);
    }
    return shortened;
}

CATUnicodeString ReversedPath(const CATUnicodeString& path)
{
    const CATListValCATUnicodeString elements = LeadingTokens(path, "|");
    std::string reversed;
    for (int position = elements.Size(); position >= 1; --position) {
        reversed += '|';
        reversed += elements[position].View();
    }
    return reversed;
}
