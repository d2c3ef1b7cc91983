#pragma once

#include "CATUnicodeString.h"
#include "CATWBToken.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

/// Reads an answer of the server field by field, and keeps in mind whether every field was what it
/// should be: from the first one on that was not, nothing that it answers counts. Unlike the
/// record's codec it raises no error, so that an answer which cannot be read costs a line of
/// diagnostics and not the session. Numbers have a ".", whatever the user's language.
class WBAnswerFields
{
public:
    explicit WBAnswerFields(const CATUnicodeString& answer) : m_fields(answer) {}

    /// Empty for the text that stands for none.
    CATUnicodeString Text();
    /// Nothing for the text that stands for none.
    std::optional<double> Number();
    double KnownNumber();
    /// A whole number from 0.
    long long Count();
    bool Flag() { return Digit(1) == 1; }
    template <class Enumeration>
    Enumeration Word(Enumeration last)
    {
        return static_cast<Enumeration>(Digit(static_cast<int>(last)));
    }
    template <std::size_t count>
    void Numbers(std::array<std::optional<double>, count>& values)
    {
        for (std::optional<double>& value : values) {
            value = Number();
        }
    }
    /// A count and that many entries. An entry takes at least the "|" of a field, so a count beyond
    /// what is left is a wrong one.
    template <class Entry, class ReadEntry>
    std::vector<Entry> List(ReadEntry readEntry)
    {
        std::vector<Entry> entries;
        const long long count = Count();
        for (long long index = 0; m_isGood && index < count; ++index) {
            m_isGood = !m_fields.IsAtEnd();
            entries.push_back(readEntry());
        }
        return entries;
    }
    /// For what the reader of a field finds wrong with it.
    void Refuse() { m_isGood = false; }
    bool AreReadToTheEnd() const { return m_isGood && m_fields.IsAtEnd(); }

private:
    /// A whole number from 0 to `most`.
    int Digit(int most);
    template <class Value>
    Value Read(std::string_view text);

    CATWBToken m_fields;
    bool m_isGood = true;
};
