#pragma once

#include "WBExport.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

/// Reads the fields of an answer, each ended by "|", and trusts nothing: the first field that is
/// not what it should be stops the reading, and every later one reads as empty or 0. Numbers have
/// "." whatever the session's locale, and fill their field.
class WB_EXPORT CATWireFields
{
public:
    /// The text stays the caller's and must outlive the reader.
    explicit CATWireFields(std::string_view text) : m_rest(text) {}

    /// "__null__" is how an empty text travels.
    std::string_view Text();
    /// Not negative; products have more places than an int counts.
    long long Count();
    /// 1 or more.
    int Quantity();
    /// "0" or "1".
    bool Flag();
    /// A value of an enumeration that counts from 0 to `last`.
    template <class Enumeration>
    Enumeration Word(Enumeration last)
    {
        return static_cast<Enumeration>(Digit(static_cast<int>(last)));
    }
    /// A finite number.
    double Real();
    /// A finite number, or nothing where "__null__" stands.
    std::optional<double> OptionalReal();
    template <std::size_t count>
    void OptionalReals(std::array<std::optional<double>, count>& values)
    {
        for (std::optional<double>& value : values) {
            value = OptionalReal();
        }
    }
    /// A count and that many entries, each read by `readEntry()`. A count that promises more than
    /// there is ends with the first missing field; no room is made for it beforehand.
    template <class Entry, class ReadEntry>
    std::vector<Entry> List(ReadEntry readEntry)
    {
        std::vector<Entry> entries;
        for (long long left = Count(); left > 0 && IsSound(); --left) {
            entries.push_back(readEntry());
        }
        return entries;
    }
    /// For what the reader of the last field finds wrong with it: `expected`, which lives as long
    /// as the reader, should have stood there.
    void Refuse(std::string_view expected);
    /// To be called last: nothing may follow the fields that were read.
    void End();

    bool IsSound() const { return m_expected.empty(); }
    /// The field that was wrong, from 1, and what should have stood there; 0 and empty while all is
    /// sound.
    int WrongField() const { return m_wrongField; }
    std::string_view Expected() const { return m_expected; }

private:
    std::optional<std::string_view> Next();
    int Digit(int most);
    double FiniteNumber(std::string_view field);

    std::string_view m_rest;
    int m_field = 0; // the number of the field read last
    int m_wrongField = 0;
    std::string_view m_expected;
};
