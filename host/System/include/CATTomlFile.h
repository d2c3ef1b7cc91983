#pragma once

#include "WBExport.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

/// One value of a TOML file: catalogs, dialog resources, units, settings and workbenches are such
/// files. Tables keep the order of the file. A date or a time is read as its text.
class WB_EXPORT CATTomlValue
{
public:
    using Table = std::vector<std::pair<std::string, CATTomlValue>>;
    using Array = std::vector<CATTomlValue>;

    CATTomlValue() = default;
    CATTomlValue(std::string text)
        : m_value(std::move(text)) {} // NOLINT(google-explicit-constructor)
    CATTomlValue(const char* text)
        : m_value(std::string(text)) {}                      // NOLINT(google-explicit-constructor)
    CATTomlValue(std::int64_t integer) : m_value(integer) {} // NOLINT(google-explicit-constructor)
    CATTomlValue(double real) : m_value(real) {}             // NOLINT(google-explicit-constructor)
    CATTomlValue(bool flag) : m_value(flag) {}               // NOLINT(google-explicit-constructor)
    CATTomlValue(Array items) : m_value(std::move(items)) {} // NOLINT(google-explicit-constructor)
    CATTomlValue(Table members)
        : m_value(std::move(members)) {} // NOLINT(google-explicit-constructor)

    // Null when the value is of another kind.
    const std::string* AsText() const { return std::get_if<std::string>(&m_value); }
    const std::int64_t* AsInteger() const { return std::get_if<std::int64_t>(&m_value); }
    const double* AsReal() const { return std::get_if<double>(&m_value); }
    const bool* AsFlag() const { return std::get_if<bool>(&m_value); }
    const Array* AsArray() const { return std::get_if<Array>(&m_value); }
    const Table* AsTable() const { return std::get_if<Table>(&m_value); }
    /// The member of a table, null when this is no table or has no such member.
    const CATTomlValue* Find(std::string_view key) const;

    /// Where the value stands in its file, from 1; 0 for one that was not read.
    int Line() const { return m_line; }
    void SetLine(int line) { m_line = line; }

private:
    std::variant<std::monostate, std::string, std::int64_t, double, bool, Array, Table> m_value;
    int m_line = 0;
};

/// A parsed file, or what was wrong with it: "FILE:LINE:COLUMN: what the parser found".
struct CATTomlResult
{
    CATTomlValue root; ///< a table
    std::string problem;
    bool IsGood() const { return problem.empty(); }
};
/// Reads a file; a missing or unreadable one is a problem that names it.
WB_EXPORT CATTomlResult CATReadTomlFile(const std::string& path);
WB_EXPORT CATTomlResult CATParseToml(std::string_view text, const std::string& name);
/// The text of a table: plain values first and then one section for each table in it, both in their
/// order; keys quoted where they must be, reals so that they read back alike. Bytes that are not
/// UTF-8, which no such file may hold, are written as the replacement character. Values that hold
/// nothing are left out.
WB_EXPORT std::string CATFormatToml(const CATTomlValue& table);
