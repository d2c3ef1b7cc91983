#include "OptionTexts.h"

std::string_view WithoutBlanks(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(' ');
    if (begin == std::string_view::npos) {
        return {};
    }
    return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

std::vector<std::string_view> SplitAtCommas(std::string_view text)
{
    std::vector<std::string_view> items;
    for (std::size_t comma = text.find(','); comma != std::string_view::npos;
         comma = text.find(',')) {
        items.push_back(WithoutBlanks(text.substr(0, comma)));
        text.remove_prefix(comma + 1);
    }
    items.push_back(WithoutBlanks(text));
    return items;
}

std::string Expected(const char* option, const std::string& expected, std::string_view typed)
{
    return std::string(option) + ": expected " + expected + ", found \"" + std::string(typed) + '"';
}
