#pragma once

#include "TableErrors.h"
#include "WBFacts.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace wb
{
/// Keeps the rule that a fact is stated once: a first statement is stored, a second one alike is
/// accepted, another one is an error that names both lines.
class FactKeeper
{
public:
    /// What is stated, and where.
    struct Statement
    {
        Fact fact;
        std::uint32_t line;
        const std::string& header;
        std::string_view text; // as it stands in the cell
        std::string_view unit = {};
    };

    explicit FactKeeper(TableErrors& errors) : m_errors(errors) {}

    void Number(double& stored, double value, std::string& typed, FactLines& lines,
                const Statement& statement);
    void Text(std::string& stored, std::string_view value, FactLines& lines,
              const Statement& statement);
    /// Choices whose value 0 means "not stated".
    template <typename Choice>
    void Choose(Choice& stored, Choice value, FactLines& lines, const Statement& statement)
    {
        if (stored == Choice{}) {
            stored = value;
            lines.State(statement.fact, statement.line);
        } else if (stored != value) {
            std::string earlier;
            if constexpr (std::is_integral_v<Choice>) {
                earlier = std::to_string(stored);
            }
            Refuse(statement, lines.LineOf(statement.fact), earlier);
        }
    }
    /// The error for a second, different statement; earlier is its text where it is known.
    void Refuse(const Statement& statement, std::uint32_t earlierLine, std::string_view earlier);

private:
    TableErrors& m_errors;
};
} // namespace wb
