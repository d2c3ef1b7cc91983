#include "FactKeeper.h"

#include "WBNumbers.h"
#include "WBProduct.h"

namespace wb
{
void FactKeeper::Number(double& stored, double value, std::string& typed, FactLines& lines,
                        const Statement& statement)
{
    if (!IsKnown(stored)) {
        stored = value;
        KeepTyped(typed, FactName(statement.fact), statement.text, statement.unit);
        lines.State(statement.fact, statement.line);
    } else if (!AreAlike(stored, value)) {
        Refuse(statement, lines.LineOf(statement.fact), TypedText(typed, FactName(statement.fact)));
    }
}

void FactKeeper::Text(std::string& stored, std::string_view value, FactLines& lines,
                      const Statement& statement)
{
    if (stored.empty()) {
        stored = value;
        lines.State(statement.fact, statement.line);
    } else if (stored != value) {
        Refuse(statement, lines.LineOf(statement.fact), stored);
    }
}

void FactKeeper::Refuse(const Statement& statement, std::uint32_t earlierLine,
                        std::string_view earlier)
{
    std::string text = "found " + Quoted(statement.text) + ", but line " +
                       std::to_string(earlierLine) + " states ";
    text += earlier.empty() ? "another value" : Quoted(earlier);
    m_errors.Column(statement.line, statement.header, text + "; expected the same fact once");
}
} // namespace wb
