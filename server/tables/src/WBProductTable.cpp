#include "WBProductTable.h"

#include "CsvTable.h"
#include "ProductReader.h"
#include "TableErrors.h"
#include "WBChecksum.h"
#include "WBRules.h"

#include <filesystem>
#include <fstream>
#include <future>
#include <iterator>
#include <system_error>

namespace wb
{
std::vector<std::string> TableSummary::Remarks() const
{
    constexpr std::size_t kMost = 5;
    std::vector<std::string> remarks;
    if (momentsAlone > 0) {
        remarks.push_back("inertias given as three moments alone, with products counted as 0: " +
                          std::to_string(momentsAlone));
    }
    if (!oppositeHands.empty()) {
        std::string text =
            "uses of the opposite hand: " + std::to_string(oppositeHands.size()) + ", ";
        for (std::size_t i = 0; i < oppositeHands.size() && i < kMost; ++i) {
            text += (i == 0 ? "" : ", ") + oppositeHands[i];
        }
        remarks.push_back(text + (oppositeHands.size() > kMost ? ", ..." : ""));
    }
    return remarks;
}

TableResult ReadProductTable(std::string_view content, const std::string& name,
                             const TableOptions& options, const KnownProducts& known)
{
    TableResult result;
    TableErrors errors(name);
    if (!options.massType.empty() && FindMassType(known.MassTypes(), options.massType) == nullptr) {
        errors.File("the mass type " + Quoted(options.massType) +
                    " of --mass-type is not in the table of mass types; --mass-types FILE.csv "
                    "adds it");
    }
    const CsvTable table = CsvTable::Parse(content, errors);
    if (!errors.Any() && table.Header().empty()) {
        errors.File("the file is empty, expected a header and rows");
    }
    if (!errors.Any()) {
        // The checksum looks at every byte once more, beside the reader where there is a processor.
        auto checksum = std::async(std::launch::async, [content] { return Checksum(content); });
        ProductReader reader(table, options, known, errors);
        if (!errors.Any()) {
            reader.Read();
        }
        if (!errors.Any()) {
            result.product = std::move(reader.TakeProduct());
            result.summary = std::move(reader.TakeSummary());
            result.summary.checksum = checksum.get();
        }
    }
    result.errors = errors.Sentences();
    return result;
}

FileBytes ReadFileBytes(const std::string& path)
{
    std::error_code code;
    FileBytes file;
    if (std::filesystem::is_directory(path, code)) {
        file.error = path + ": is a directory, expected a file";
        return file;
    }
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        file.error = path + ": " +
                     (std::filesystem::exists(path, code) ? "cannot be opened for reading"
                                                          : "does not exist");
        return file;
    }
    // A pipe has no size: what it holds comes behind nothing.
    const auto size = std::filesystem::file_size(path, code);
    file.bytes.resize(code ? 0 : size);
    stream.read(file.bytes.data(), static_cast<std::streamsize>(file.bytes.size()));
    const bool complete = static_cast<std::size_t>(stream.gcount()) == file.bytes.size();
    if (complete) {
        file.bytes.append(std::istreambuf_iterator<char>(stream), {});
    }
    if (!complete || stream.bad()) {
        file.error = path + ": cannot be read to its end";
    }
    return file;
}

TableResult ReadProductFile(const std::string& path, const TableOptions& options,
                            const KnownProducts& known)
{
    const FileBytes file = ReadFileBytes(path);
    if (!file.error.empty()) {
        TableResult result;
        result.errors.push_back(file.error);
        return result;
    }
    return ReadProductTable(file.bytes, path, options, known);
}

TableResult ReadLocalProduct(const std::string& path, const TableOptions& options)
{
    return ReadProductFile(path, options, KnownProducts());
}
} // namespace wb
