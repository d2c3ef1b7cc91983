#include "Request.h"

#include "WBNumbers.h"
#include "WBProduct.h"
#include "WBTexts.h"

#include "CATENOWBCSCommonDefinitions.h"

#include <algorithm>

namespace wb
{
std::string_view Request::Next(const char* name)
{
    // A text that ends with the separator has no further field.
    if (m_rest.empty()) {
        throw RequestError(std::string("The field ") + name + " of the request is missing.");
    }
    const std::size_t end = m_rest.find('|');
    const std::string_view field = m_rest.substr(0, end);
    m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end + 1);
    return field;
}

std::string_view Request::Text(const char* name)
{
    const std::string_view field = Next(name);
    if (field.empty()) {
        throw RequestError(std::string("The field ") + name +
                           " of the request is empty, expected a text.");
    }
    return field;
}

double Request::Number(const char* name)
{
    const std::string_view field = Next(name);
    const auto value = ReadNumber(field);
    if (!value) {
        throw RequestError(std::string("The field ") + name + " of the request holds \"" +
                           std::string(field) + "\", expected a number.");
    }
    return *value;
}

double Request::Size(const char* name)
{
    const std::string_view field = Next(name);
    const auto value = ReadNumber(field);
    if (!value || *value < 0.0) {
        throw RequestError(std::string("The field ") + name + " of the request holds \"" +
                           std::string(field) + "\", expected a number from 0.");
    }
    return *value;
}

void Request::Empty(const char* name)
{
    const std::string_view field = Next(name);
    if (!field.empty()) {
        throw RequestError(std::string("The field ") + name + " of the request holds \"" +
                           std::string(field) + "\", expected an empty field.");
    }
}

std::int64_t Request::Count(const char* name)
{
    const std::string_view field = Next(name);
    const auto value = ReadInteger(field);
    if (!value || *value < 0) {
        throw RequestError(std::string("The field ") + name + " of the request holds \"" +
                           std::string(field) + "\", expected a whole number from 0.");
    }
    return *value;
}

std::int64_t Request::Choice(const char* name, std::int64_t most)
{
    const std::int64_t value = Count(name);
    if (value > most) {
        throw RequestError(std::string("The field ") + name + " of the request holds \"" +
                           std::to_string(value) + "\", expected a whole number from 0 to " +
                           std::to_string(most) + ".");
    }
    return value;
}

bool Request::Flag(const char* name)
{
    const std::string_view field = Next(name);
    if (field != "0" && field != "1") {
        throw RequestError(std::string("The field ") + name + " of the request holds \"" +
                           std::string(field) + "\", expected 0 or 1.");
    }
    return field == "1";
}

void Request::End()
{
    if (!m_rest.empty() && m_rest != "|") {
        throw RequestError("The request holds \"" + std::string(m_rest) +
                           "\" behind its last field, expected nothing.");
    }
}

std::string WireDate(std::string date)
{
    std::ranges::replace(date, '-', CATENOWBCSCommonDefinitions::dateYMDFieldDelimiter1[0]);
    return date;
}

std::string WireName(std::string name)
{
    std::ranges::replace_if(
        name,
        [](char character) {
            const auto byte = static_cast<unsigned char>(character);
            return byte < 0x20 || byte == 0x7F || character == '|';
        },
        '?');
    while (const auto wrong = FirstNonUtf8(name)) {
        name[*wrong] = '?';
    }
    const std::string_view mark = CATENOWBCSCommonDefinitions::errMsgHeader;
    for (std::size_t at = name.find(mark); at != std::string::npos; at = name.find(mark)) {
        name[at] = '?';
    }
    return name;
}

AnswerText& AnswerText::Add(std::string_view text)
{
    m_text.append(text.empty() ? std::string_view("__null__") : text).append(1, '|');
    return *this;
}

AnswerText& AnswerText::Add(double number)
{
    AppendNumber(m_text, number);
    m_text += '|';
    return *this;
}

AnswerText& AnswerText::AddFigure(double number)
{
    return IsKnown(number) ? Add(number) : Add("");
}

AnswerText& AnswerText::Add(std::int64_t number)
{
    m_text.append(std::to_string(number)).append(1, '|');
    return *this;
}
} // namespace wb
