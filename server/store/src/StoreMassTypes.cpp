#include "Database.h"
#include "WBStore.h"

#include <cstdint>

namespace wb
{
std::vector<std::string> Store::PutMassTypes(const std::vector<MassType>& types,
                                             const std::string& user, const std::string& file)
{
    try {
        Transaction transaction(*m_database);
        const std::vector<MassType> before = MassTypes();
        // Two types may exchange their orders: the orders step aside first, then take their place.
        const std::int64_t aside =
            1 + m_database->Ask("SELECT max(abs(rank)) FROM mass_type") + INT32_MAX;
        for (const MassType& type : types) {
            m_database->Kept("UPDATE mass_type SET rank = rank + ? WHERE name = ?")
                .Bind(aside)
                .BindText(type.name)
                .Run();
        }
        for (const MassType& type : types) {
            Statement& taken =
                m_database->Kept("SELECT name FROM mass_type WHERE rank = ? AND name <> ?");
            taken.Bind(std::int64_t{type.order}).BindText(type.name);
            std::string other;
            while (taken.Step()) {
                other = taken.Text();
            }
            if (!other.empty()) {
                std::string sentence = file;
                sentence += ": mass type \"" + type.name + "\": the order ";
                sentence += std::to_string(type.order) + " is that of \"" + other;
                sentence += "\", expected an order that no other mass type has";
                return {sentence};
            }
            const bool goal = type.kind == MassType::Kind::Goal;
            m_database
                ->Kept("INSERT INTO mass_type (name, rank, kind, category, lower_pct, upper_pct, "
                       "meaning) VALUES (?, ?, ?, ?, ?, ?, ?) ON CONFLICT (name) DO UPDATE SET "
                       "rank = excluded.rank, kind = excluded.kind, category = excluded.category, "
                       "lower_pct = excluded.lower_pct, upper_pct = excluded.upper_pct, "
                       "meaning = excluded.meaning")
                .BindText(type.name)
                .Bind(std::int64_t{type.order})
                .BindText(goal ? "goal" : "claim")
                .Bind(type.category)
                .Bind(type.lowerPct)
                .Bind(type.upperPct)
                .Bind(type.meaning)
                .Run();
            if (goal && m_database->Ask("SELECT EXISTS (SELECT 1 FROM part p JOIN mass_type m ON "
                                        "m.id = p.active WHERE m.kind = 'goal') OR EXISTS (SELECT "
                                        "1 FROM use u JOIN mass_type m ON m.id = u.active WHERE "
                                        "m.kind = 'goal')") != 0) {
                return {file + ": mass type \"" + type.name +
                        "\": some part counts with these values, expected a claim, since a goal "
                        "never counts"};
            }
        }
        if (MassTypes() == before) {
            return {};
        }
        // What a type says by default is part of every sum.
        m_database->Execute("UPDATE meta SET value = value + 1 WHERE key = 'change_number';"
                            "UPDATE part SET change_number = (SELECT CAST(value AS INTEGER) FROM "
                            "meta WHERE key = 'change_number')");
        m_database->Kept("INSERT INTO history (who, what, subject) VALUES (?, 'mass types', ?)")
            .BindText(user)
            .Bind(file)
            .Run();
        transaction.Commit();
        return {};
    } catch (const StoreError& error) {
        return {error.what()};
    }
}
} // namespace wb
