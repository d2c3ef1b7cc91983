#include "CATNumberLocale.h"

#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <system_error>

// The readers take what the C library's "%d" and "%le" take, to the last quirk, since texts typed
// by users and sent by servers have always been read so. Plain numbers, nearly all there are, go
// through the fast conversions; the rest is cut out as the C library would cut it and converted by
// it.

namespace
{

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool IsHexadecimalDigit(char character)
{
    return IsDigit(character) || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

bool IsLetter(char character, char lower)
{
    return (character | 0x20) == lower;
}

std::string_view WithoutLeadingSpace(std::string_view text)
{
    while (!text.empty() &&
           (text.front() == ' ' || (text.front() >= '\t' && text.front() <= '\r'))) {
        text.remove_prefix(1);
    }
    return text;
}

// Whether the text begins with the lower-case word, in any letter case.
bool BeginsWithWord(std::string_view text, std::string_view word)
{
    if (text.size() < word.size()) {
        return false;
    }
    for (std::size_t index = 0; index < word.size(); ++index) {
        if (!IsLetter(text[index], word[index])) {
            return false;
        }
    }
    return true;
}

// "inf", "infinity" or "nan", the sign already taken. An "infinity" that breaks off after its
// "infi" is no number, while other letters behind "inf" are left alone.
bool ReadWord(std::string_view text, double& value)
{
    if (BeginsWithWord(text, "nan")) {
        value = std::numeric_limits<double>::quiet_NaN();
        return true;
    }
    if (!BeginsWithWord(text, "inf") ||
        (BeginsWithWord(text, "infi") && !BeginsWithWord(text, "infinity"))) {
        return false;
    }
    value = std::numeric_limits<double>::infinity();
    return true;
}

// The number at the beginning of the text, the sign already taken, with "." for the separator.
// Behind "0x" the digits are hexadecimal and "p" begins the exponent.
std::string CutNumber(std::string_view text, std::string_view separator)
{
    std::string number;
    const bool isHexadecimal = text.size() > 1 && text[0] == '0' && IsLetter(text[1], 'x');
    if (isHexadecimal) {
        number = "0x";
        text.remove_prefix(number.size());
    }
    const char exponentLetter = isHexadecimal ? 'p' : 'e';
    bool hasDigit = false;
    bool hasSeparator = false;
    bool hasExponent = false;
    while (!text.empty()) {
        const char character = text.front();
        std::size_t taken = 1;
        if (IsDigit(character) ||
            (isHexadecimal && !hasExponent && IsHexadecimalDigit(character))) {
            number += character;
            hasDigit = true;
        } else if (hasExponent && number.back() == exponentLetter &&
                   (character == '-' || character == '+')) {
            number += character;
        } else if (hasDigit && !hasExponent && IsLetter(character, exponentLetter)) {
            number += exponentLetter;
            hasExponent = true;
        } else if (!hasSeparator && !hasExponent && text.starts_with(separator)) {
            number += '.';
            hasSeparator = true;
            taken = separator.size();
        } else {
            break;
        }
        text.remove_prefix(taken);
    }
    // A prefix without anything behind it is not even the number 0.
    return isHexadecimal && number.size() == 2 ? std::string() : number;
}

// Converts as in the "C" locale, whatever the session's, with the C library's limits: too large
// gives infinity, too small the nearest small value or zero.
bool ConvertCut(const std::string& number, double& value)
{
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    char* end = nullptr;
    const double converted = strtod_l(number.c_str(), &end, plain);
    if (end == number.c_str()) {
        return false;
    }
    value = converted;
    return true;
}

// A number of any kind, the sign already taken.
bool ReadMagnitude(std::string_view text, std::string_view separator, double& value)
{
    if (text.empty()) {
        return false;
    }
    if (IsLetter(text.front(), 'i') || IsLetter(text.front(), 'n')) {
        return ReadWord(text, value);
    }
    const std::string number = CutNumber(text, separator);
    const std::from_chars_result result =
        std::from_chars(number.data(), number.data() + number.size(), value);
    const bool isHexadecimal = number.size() > 1 && number[1] == 'x';
    if (isHexadecimal || result.ec == std::errc::result_out_of_range) {
        return ConvertCut(number, value);
    }
    return result.ec == std::errc();
}

// A plain number begins with a decimal digit that no hexadecimal one begins with.
bool IsPlain(std::string_view text)
{
    return !text.empty() && IsDigit(text.front()) && (text.size() == 1 || !IsLetter(text[1], 'x'));
}

// A plain number in range whose separator is one byte; false also for a text that is too long to be
// copied. The conversion knows no separator but the point: where the session has another one, a
// point ends the number, and a number that holds that separator is read from a copy.
bool ReadPlainMagnitude(std::string_view text, char separator, double& value)
{
    constexpr std::size_t kMostBytes = 64;
    std::array<char, kMostBytes> copy;
    if (separator != '.') {
        const auto behind = std::ranges::find_if_not(text, IsDigit);
        const auto digits = static_cast<std::size_t>(behind - text.begin());
        if (behind != text.end() && *behind == separator) {
            if (text.size() > copy.size()) {
                return false;
            }
            std::memcpy(copy.data(), text.data(), text.size());
            copy[digits] = '.';
            text = std::string_view(copy.data(), text.size());
        } else if (behind != text.end() && *behind == '.') {
            text = text.substr(0, digits);
        }
    }
    return std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc();
}

int ReadReal(std::string_view text, std::string_view separator, double& value)
{
    text = WithoutLeadingSpace(text);
    if (text.empty()) {
        return 0;
    }
    const bool isNegative = text.front() == '-';
    if (isNegative || text.front() == '+') {
        text.remove_prefix(1);
    }
    double magnitude = 0.0;
    const bool isRead = (separator.size() == 1 && IsPlain(text) &&
                         ReadPlainMagnitude(text, separator.front(), magnitude)) ||
                        ReadMagnitude(text, separator, magnitude);
    if (!isRead) {
        return 0;
    }
    value = isNegative ? -magnitude : magnitude;
    return 1;
}

// Asked again for every number, since anyone may change the locale.
std::string_view DecimalSeparator()
{
    const char* const separator = nl_langinfo(RADIXCHAR);
    if (separator[0] == '\0') {
        return ".";
    }
    // Of the one byte that it nearly always is nobody needs to look for the end.
    return separator[1] == '\0' ? std::string_view(separator, 1) : std::string_view(separator);
}

} // namespace

bool CATUseNumberLocale(const char* name)
{
    return setlocale(LC_NUMERIC, name) != nullptr;
}

std::string_view CATDecimalSeparator()
{
    return DecimalSeparator();
}

int CATReadInt(std::string_view text, int& value)
{
    text = WithoutLeadingSpace(text);
    const bool hasPlus = !text.empty() && text.front() == '+';
    if (hasPlus) {
        text.remove_prefix(1);
    }
    if (text.empty() || (hasPlus && text.front() == '-')) {
        return 0;
    }
    long number = 0;
    const std::from_chars_result result =
        std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec == std::errc::invalid_argument) {
        return 0;
    }
    if (result.ec == std::errc::result_out_of_range) {
        number = text.front() == '-' ? LONG_MIN : LONG_MAX;
    }
    // A number that an int cannot hold gives its low 32 bits.
    value = static_cast<int>(number);
    return 1;
}

int CATReadReal(std::string_view text, double& value)
{
    return ReadReal(text, DecimalSeparator(), value);
}

int CATReadReal(std::string_view text, std::string_view separator, double& value)
{
    return ReadReal(text, separator, value);
}
