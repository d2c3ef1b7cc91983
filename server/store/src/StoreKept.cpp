#include "Database.h"
#include "WBStore.h"

namespace wb
{
std::optional<KeptResult> Store::FindKept(RowId part, std::string_view key) const
{
    try {
        std::optional<KeptResult> found;
        Statement& row = m_database->Kept(
            "SELECT part, key, change_number, result FROM kept_result WHERE part = ? AND key = ?");
        row.Bind(part).BindText(key);
        while (row.Step()) {
            KeptResult& kept = found.emplace();
            kept.part = row.Integer();
            kept.key = row.Text();
            kept.changeNumber = row.Integer();
            kept.result = row.Bytes();
        }
        return found;
    } catch (const StoreError&) {
        return std::nullopt;
    }
}

std::vector<KeptLine> Store::KeptLines(std::string_view key) const
{
    try {
        std::vector<KeptLine> lines;
        Statement& rows = m_database->Kept(
            "SELECT k.part, k.change_number = p.change_number, length(k.result) FROM kept_result k "
            "JOIN part p ON p.id = k.part WHERE k.key = ?");
        rows.BindText(key);
        while (rows.Step()) {
            KeptLine& line = lines.emplace_back();
            line.part = rows.Integer();
            line.upToDate = rows.Integer() != 0;
            line.bytes = rows.Integer();
        }
        return lines;
    } catch (const StoreError&) {
        return {};
    }
}

bool Store::Keep(const std::vector<KeptResult>& results, const std::string& user)
{
    if (results.empty()) {
        return true;
    }
    const NoWaiting noWaiting(*m_database);
    try {
        Transaction transaction(*m_database);
        for (const KeptResult& kept : results) {
            m_database->Kept("DELETE FROM kept_result WHERE part = ? AND key = ?")
                .Bind(kept.part)
                .BindText(kept.key)
                .Run();
            m_database
                ->Kept("INSERT INTO kept_result (part, key, change_number, who, result) "
                       "VALUES (?, ?, ?, ?, ?)")
                .Bind(kept.part)
                .BindText(kept.key)
                .Bind(kept.changeNumber)
                .BindText(user)
                .BindBlob(kept.result.data(), static_cast<int>(kept.result.size()))
                .Run();
            // Every filter that somebody tries leaves a result; nobody comes back to all of them.
            m_database
                ->Kept("DELETE FROM kept_result WHERE part = ?1 AND id <= (SELECT id FROM "
                       "kept_result WHERE part = ?1 ORDER BY id DESC LIMIT 1 OFFSET 100)")
                .Bind(kept.part)
                .Run();
        }
        transaction.Commit();
        return true;
    } catch (const StoreError&) {
        return false;
    }
}
} // namespace wb
