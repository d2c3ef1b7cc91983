#include "WBTablePieces.h"

#include "ProductReader.h"
#include "WBChecksum.h"
#include "WBRules.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <future>
#include <optional>
#include <system_error>
#include <utility>

namespace wb
{
namespace
{
/// Some thousand rows: their uses stay in the caches until they are stored.
constexpr std::size_t kPieceBytes = std::size_t{256} * 1024;

class KnownTypes : public KnownProducts
{
public:
    explicit KnownTypes(std::vector<MassType> types) : m_types(std::move(types)) {}
    std::vector<MassType> MassTypes() const override { return m_types; }

private:
    std::vector<MassType> m_types;
};

/// The lines of a file, many at a time.
class LinePieces
{
public:
    explicit LinePieces(const std::string& path) : m_file(path, std::ios::binary) {}

    /// Whole lines; empty behind the end of the file.
    std::string_view Next()
    {
        m_piece.erase(0, m_taken);
        m_taken = 0;
        while (m_taken == 0 && m_file) {
            const std::size_t rest = m_piece.size();
            m_piece.resize(rest + kPieceBytes);
            m_file.read(m_piece.data() + rest, kPieceBytes);
            m_piece.resize(rest + static_cast<std::size_t>(m_file.gcount()));
            m_taken = m_file ? m_piece.rfind('\n') + 1 : m_piece.size();
        }
        return std::string_view(m_piece).substr(0, m_taken);
    }
    /// The file cannot be read to its end.
    bool HasFailed() const { return m_file.bad() || !m_file.is_open(); }

private:
    std::ifstream m_file;
    std::string m_piece;
    std::size_t m_taken = 0;
};

/// The table with its header alone; nothing when that cannot stand in one line.
std::optional<CsvTable> HeaderOf(std::string_view firstLines, TableErrors& errors)
{
    const std::string_view line = firstLines.substr(0, firstLines.find('\n'));
    if (line.find('"') != std::string_view::npos) {
        return std::nullopt;
    }
    CsvTable table = CsvTable::Parse(line, errors);
    return table.Header().empty() ? std::nullopt : std::optional(std::move(table));
}
} // namespace

class TablePieces::Reader
{
public:
    Reader(std::string path, const TableOptions& options, std::vector<MassType> massTypes)
        : m_path(std::move(path)),
          m_options(options),
          m_known(std::move(massTypes)),
          m_errors(m_path)
    {}
    ~Reader()
    {
        if (m_next.valid()) {
            m_next.wait();
        }
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    bool FindParts()
    {
        LinePieces pieces(m_path);
        std::uint32_t line = 1;
        for (std::string_view lines = pieces.Next(); !lines.empty(); lines = pieces.Next()) {
            if (!m_reader && !Begin(lines)) {
                return false;
            }
            if (!Take(lines, line)) {
                return false;
            }
            m_reader->ReadPartsOfPiece();
            if (m_errors.Any()) {
                return false;
            }
        }
        if (!m_reader || pieces.HasFailed()) {
            return false;
        }
        m_reader->NumberParts();
        m_partsBelow.resize(m_reader->TakeProduct().parts.size());
        m_lines.emplace(m_path);
        Begin();
        return true;
    }

    std::size_t PartCount() const { return m_partsBelow.size(); }

    std::vector<Use> Next()
    {
        std::vector<Use> uses = m_next.get();
        if (!uses.empty()) {
            Begin();
        }
        return uses;
    }

    const Product* Rest()
    {
        m_reader->FinishPieces();
        const Product& product = m_reader->TakeProduct();
        if (m_refused || m_errors.Any() || HasUsesBelowSingleParts(product) ||
            !FindCycle(m_partsBelow).empty()) {
            return nullptr;
        }
        Summary().checksum = m_checksum.Finish();
        return &product;
    }

    TableSummary& Summary() { return m_reader->TakeSummary(); }

private:
    bool Begin(std::string_view firstLines)
    {
        auto table = HeaderOf(firstLines, m_errors);
        if (!table) {
            return false;
        }
        m_table = std::move(*table);
        m_reader.emplace(m_table, m_options, m_known, m_errors);
        return !m_errors.Any();
    }

    /// Puts the rows of some lines into the table; line: of the first one, and then of the next
    /// piece's.
    bool Take(std::string_view lines, std::uint32_t& line)
    {
        const std::uint32_t first = line;
        line += static_cast<std::uint32_t>(std::ranges::count(lines, '\n'));
        if (first > 1) {
            return m_table.TakePlainRows(lines, first);
        }
        lines.remove_prefix(std::min(lines.find('\n'), lines.size() - 1) + 1);
        return m_table.TakePlainRows(lines, first + 1);
    }

    /// Reads the next piece while the one before is stored.
    void Begin()
    {
        m_next = std::async(std::launch::async, [this] { return ReadUses(); });
    }

    std::vector<Use> ReadUses()
    {
        // A piece of rows that use nothing is followed by others.
        for (std::string_view lines = m_lines->Next(); !lines.empty(); lines = m_lines->Next()) {
            m_checksum.Add(lines);
            m_refused = m_refused || !Take(lines, m_line);
            if (m_refused) {
                return {};
            }
            m_reader->ReadPiece();
            Product& product = m_reader->TakeProduct();
            m_refused =
                m_errors.Any() || m_reader->HasUnnamedUses() ||
                std::ranges::any_of(product.uses, [](const Use& use) {
                    return !use.sets.empty() || !use.material.empty() || use.parent == use.part;
                });
            if (m_refused) {
                return {};
            }
            for (const Use& use : product.uses) {
                m_partsBelow[use.parent].push_back(use.part);
            }
            if (!product.uses.empty()) {
                return std::exchange(product.uses, {});
            }
        }
        m_refused = m_lines->HasFailed();
        return {};
    }

    bool HasUsesBelowSingleParts(const Product& product) const
    {
        for (std::size_t part = 0; part < m_partsBelow.size(); ++part) {
            const PartType type = product.parts[part].type;
            if ((type == PartType::Part || type == PartType::Adjustment) &&
                !m_partsBelow[part].empty()) {
                return true;
            }
        }
        return false;
    }

    const std::string m_path;
    const TableOptions m_options;
    const KnownTypes m_known;
    TableErrors m_errors;
    CsvTable m_table;
    std::optional<ProductReader> m_reader;
    std::optional<LinePieces> m_lines;
    std::uint32_t m_line = 1;
    std::vector<std::vector<std::uint32_t>> m_partsBelow; // per part, one for each use
    ChecksumMaker m_checksum;
    bool m_refused = false;
    std::future<std::vector<Use>> m_next;
};

std::unique_ptr<TablePieces> TablePieces::Open(const std::string& path, const TableOptions& options,
                                               std::vector<MassType> massTypes)
{
    // A pipe can be read only once.
    std::error_code code;
    if (!std::filesystem::is_regular_file(path, code) ||
        (!options.massType.empty() && FindMassType(massTypes, options.massType) == nullptr)) {
        return nullptr;
    }
    auto reader = std::make_unique<Reader>(path, options, std::move(massTypes));
    return reader->FindParts() ? std::unique_ptr<TablePieces>(new TablePieces(std::move(reader)))
                               : nullptr;
}

TablePieces::TablePieces(std::unique_ptr<Reader> reader) : m_reader(std::move(reader))
{}

TablePieces::~TablePieces() = default;

std::size_t TablePieces::PartCount() const
{
    return m_reader->PartCount();
}

std::vector<Use> TablePieces::Next()
{
    return m_reader->Next();
}

const Product* TablePieces::Rest()
{
    return m_reader->Rest();
}

TableSummary& TablePieces::Summary()
{
    return m_reader->Summary();
}
} // namespace wb
