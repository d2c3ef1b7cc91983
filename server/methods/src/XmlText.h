#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace wb
{
/// Appends a text so that an XML reader gives it back as it is, also inside an attribute, where it
/// would take tabs and line ends for blanks. What no XML document can hold is written as the
/// replacement character.
void AppendEscaped(std::string& xml, std::string_view text);

/// Writes attributes one behind the other: " name="value"". What is unknown is left out: nobody
/// could tell an empty attribute from a value.
class XmlAttributes
{
public:
    /// Attributes that were written before, to be written again.
    struct Written
    {
        std::string text;
        std::size_t count = 0;
    };

    /// Borrows the text that it appends to.
    explicit XmlAttributes(std::string& xml) : m_xml(xml) {}

    /// Left out where the value is empty.
    void Add(std::string_view name, std::string_view value);
    /// Left out where the value is not finite.
    void Add(std::string_view name, double value);
    /// A value that is escaped and not empty.
    void AddEscaped(std::string_view name, std::string_view value);
    void Add(const Written& written);

    std::size_t Count() const { return m_count; }

private:
    void Begin(std::string_view name);

    std::string& m_xml;
    std::size_t m_count = 0;
};
} // namespace wb
