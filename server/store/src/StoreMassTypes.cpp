#include "Database.h"
#include "History.h"
#include "Schema.h"
#include "WBStore.h"

#include <cstdint>
#include <utility>

namespace wb
{
namespace
{
/// Two types may exchange their orders: the orders step aside first, then take their place.
void StepAside(Database& database, const std::vector<MassType>& types)
{
    const std::int64_t aside = 1 + database.Ask("SELECT max(abs(rank)) FROM mass_type") + INT32_MAX;
    for (const MassType& type : types) {
        database.Kept("UPDATE mass_type SET rank = rank + ? WHERE name = ?")
            .Bind(aside)
            .BindText(type.name)
            .Run();
    }
}

/// Another type that has its order; empty where none has.
std::string HolderOfOrder(Database& database, const MassType& type)
{
    Statement& taken = database.Kept("SELECT name FROM mass_type WHERE rank = ? AND name <> ?");
    taken.Bind(std::int64_t{type.order}).BindText(type.name);
    std::string other;
    while (taken.Step()) {
        other = taken.Text();
    }
    return other;
}

void PutType(Database& database, const MassType& type)
{
    database
        .Kept("INSERT INTO mass_type (name, rank, kind, category, lower_pct, upper_pct, "
              "meaning) VALUES (?, ?, ?, ?, ?, ?, ?) ON CONFLICT (name) DO UPDATE SET "
              "rank = excluded.rank, kind = excluded.kind, category = excluded.category, "
              "lower_pct = excluded.lower_pct, upper_pct = excluded.upper_pct, "
              "meaning = excluded.meaning")
        .BindText(type.name)
        .Bind(std::int64_t{type.order})
        .BindText(type.kind == MassType::Kind::Goal ? "goal" : "claim")
        .Bind(type.category)
        .Bind(type.lowerPct)
        .Bind(type.upperPct)
        .Bind(type.meaning)
        .Run();
}

bool SomeGoalIsActive(Database& database)
{
    return database.Ask("SELECT EXISTS (SELECT 1 FROM part p JOIN mass_type m ON m.id = p.active "
                        "WHERE m.kind = 'goal') OR EXISTS (SELECT 1 FROM use u JOIN mass_type m ON "
                        "m.id = u.active WHERE m.kind = 'goal')") != 0;
}

/// Empty, or a sentence that says why the type cannot be as it is wanted.
std::string PutOrRefuse(Database& database, const MassType& type, const std::string& file)
{
    const std::string subject = file + ": mass type \"" + type.name + "\": ";
    const std::string other = HolderOfOrder(database, type);
    if (!other.empty()) {
        return subject + "the order " + std::to_string(type.order) + " is that of \"" + other +
               "\", expected an order that no other mass type has";
    }
    PutType(database, type);
    if (type.kind == MassType::Kind::Goal && SomeGoalIsActive(database)) {
        return subject + "some part counts with these values, expected a claim, since a goal never "
                         "counts";
    }
    return {};
}
} // namespace

std::vector<std::string> Store::PutMassTypes(const std::vector<MassType>& types,
                                             const std::string& user, const std::string& file)
{
    try {
        Transaction transaction(*m_database);
        UpdateTables(*m_database);
        const std::vector<MassType> before = MassTypes();
        StepAside(*m_database, types);
        for (const MassType& type : types) {
            std::string problem = PutOrRefuse(*m_database, type, file);
            if (!problem.empty()) {
                return {std::move(problem)};
            }
        }
        if (MassTypes() == before) {
            return {};
        }
        // What a type says by default is part of every sum.
        m_database->Execute("UPDATE meta SET value = value + 1 WHERE key = 'change_number';"
                            "UPDATE part SET change_number = (SELECT CAST(value AS INTEGER) FROM "
                            "meta WHERE key = 'change_number')");
        WriteHistory(*m_database, {user, "mass types", file, {}}, {});
        transaction.Commit();
        return {};
    } catch (const StoreError& error) {
        return {error.what()};
    }
}
} // namespace wb
