#pragma once

#include "WBExport.h"

#include <optional>
#include <string_view>

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
    /// Not negative.
    int Count();
    /// 1 or more.
    int Quantity();
    /// "0" or "1".
    bool Flag();
    /// A finite number.
    double Real();
    /// To be called last: nothing may follow the fields that were read.
    void End();

    bool IsSound() const { return m_expected.empty(); }
    /// The field that was wrong, from 1, and what should have stood there; 0 and empty while all is
    /// sound.
    int WrongField() const { return m_wrongField; }
    std::string_view Expected() const { return m_expected; }

private:
    std::optional<std::string_view> Next();
    void Fail(std::string_view expected);
    template <class T>
    std::optional<T> Number();

    std::string_view m_rest;
    int m_field = 0; // the number of the field read last
    int m_wrongField = 0;
    std::string_view m_expected;
};
