#include "CATCkeUnitFiles.h"

#include "CATEnvironment.h"
#include "CATFindPath.h"
#include "CATStatus.h"
#include "CATTomlFile.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace
{

/// One key of a unit's entry: what it must hold, and how it reaches the definition.
struct UnitKey
{
    std::string_view key;
    bool isRequired;
    std::string_view expected;
    bool (*read)(const CATTomlValue& value, CATCkeUnitDefinition& unit); ///< false: not as expected
};

bool ReadSymbol(const CATTomlValue& value, CATCkeUnitDefinition& unit)
{
    const std::string* const text = value.AsText();
    if (text == nullptr || !CATCkeIsUsableSymbol(*text)) {
        return false;
    }
    unit.symbol = CATUnicodeString(*text);
    return true;
}

bool ReadNames(const CATTomlValue& value, CATCkeUnitDefinition& unit)
{
    const CATTomlValue::Array* const items = value.AsArray();
    const auto isName = [](const CATTomlValue& item) {
        return item.AsText() != nullptr && !item.AsText()->empty();
    };
    if (items == nullptr || !std::ranges::all_of(*items, isName)) {
        return false;
    }
    for (const CATTomlValue& item : *items) {
        unit.names.emplace_back(*item.AsText());
    }
    return true;
}

bool ReadFactor(const CATTomlValue& value, CATCkeUnitDefinition& unit)
{
    const std::string* const text = value.AsText();
    const std::optional<CATCkeFactor> factor =
        text == nullptr ? std::nullopt : CATCkeReadFactor(*text);
    unit.factor = factor.value_or(CATCkeFactor());
    return factor.has_value();
}

bool ReadOffset(const CATTomlValue& value, CATCkeUnitDefinition& unit)
{
    const std::string* const text = value.AsText();
    const std::optional<double> offset = text == nullptr ? std::nullopt : CATCkeReadDecimal(*text);
    unit.offset = offset.value_or(0.0);
    return offset.has_value();
}

bool ReadDecimals(const CATTomlValue& value, CATCkeUnitDefinition& unit)
{
    const std::int64_t* const decimals = value.AsInteger();
    if (decimals == nullptr || *decimals < 0 || *decimals > kCATCkeMostDecimals) {
        return false;
    }
    unit.decimals = static_cast<int>(*decimals);
    return true;
}

bool ReadSmall(const CATTomlValue& value, CATCkeUnitDefinition& unit)
{
    const std::string* const word = value.AsText();
    if (word == nullptr || (*word != "exponent" && *word != "plain")) {
        return false;
    }
    unit.small = *word == "exponent" ? CATCkeSmallValues::Exponent : CATCkeSmallValues::Plain;
    return true;
}

// The source is for whoever reads the file.
bool ReadSource(const CATTomlValue& value, CATCkeUnitDefinition& /*unit*/)
{
    return value.AsText() != nullptr;
}

constexpr std::array kUnitKeys{
    UnitKey{"symbol", true,
            "a text of at most 32 bytes that does not begin with a digit, a sign, \".\", \",\", e, "
            "E, x or X and "
            "holds no \";\", \"|\", \"[\" or \"]\"",
            ReadSymbol},
    UnitKey{"names", false, "a list of texts", ReadNames},
    UnitKey{"factor", true, "a text such as \"25.4\" or \"0.45359237 * 9.80665 / 0.3048\"",
            ReadFactor},
    UnitKey{"offset", false, "a text such as \"273.15\"", ReadOffset},
    UnitKey{"decimals", true, "a whole number from 0 to 12", ReadDecimals},
    UnitKey{"small", false, "\"exponent\" or \"plain\"", ReadSmall},
    UnitKey{"source", false, "a text", ReadSource},
};
constexpr std::array<std::string_view, 4> kMagnitudeKeys{"name", "storage", "default", "unit"};

std::string Quoted(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

/// The text of a member; null when the table has none or it is empty.
const std::string* FindText(const CATTomlValue& table, std::string_view key)
{
    const CATTomlValue* const value = table.Find(key);
    const std::string* const text = value == nullptr ? nullptr : value->AsText();
    return text == nullptr || text->empty() ? nullptr : text;
}

/// Reads the entries of one file into the dictionary.
class UnitFile
{
public:
    UnitFile(const std::string& path, CATCkeParmDictionary& dictionary, const CATCkeReport& report)
        : m_path(path), m_dictionary(dictionary), m_report(report)
    {}

    void Read(const CATTomlValue& root)
    {
        for (const auto& [key, value] : *root.AsTable()) {
            const CATTomlValue::Array* const magnitudes =
                key == "magnitude" ? value.AsArray() : nullptr;
            if (magnitudes == nullptr) {
                Report(value.Line(), Quoted(key) + " is left out: expected [[magnitude]] alone");
                continue;
            }
            for (const CATTomlValue& magnitude : *magnitudes) {
                ReadMagnitude(magnitude);
            }
        }
    }

private:
    void Report(int line, const std::string& what) const
    {
        m_report(m_path + ':' + std::to_string(line) + ": " + what);
    }

    void ReadMagnitude(const CATTomlValue& entry) const
    {
        const std::string* const name = FindText(entry, "name");
        if (name == nullptr) {
            Report(entry.Line(), "a magnitude is left out: expected name = \"...\"");
            return;
        }
        if (!HasKnownKeys(entry, *name)) {
            return;
        }
        const CATHandle<CATCkeMagnitude> known = m_dictionary.Find(CATUnicodeString(*name));
        if (known.IsNull()) {
            ReadNewMagnitude(entry, *name);
        } else {
            ReadKnownMagnitude(entry, *known);
        }
    }

    bool HasKnownKeys(const CATTomlValue& entry, const std::string& name) const
    {
        for (const auto& [key, value] : *entry.AsTable()) {
            if (std::ranges::find(kMagnitudeKeys, key) == kMagnitudeKeys.end()) {
                Report(value.Line(), "magnitude " + name + " is left out: unknown key " +
                                         Quoted(key) + ", expected name, storage, default or unit");
                return false;
            }
        }
        return true;
    }

    void ReadNewMagnitude(const CATTomlValue& entry, const std::string& name) const
    {
        const std::string* const storage = FindText(entry, "storage");
        if (storage == nullptr) {
            Report(entry.Line(),
                   "magnitude " + name + " is left out: expected storage = \"SYMBOL\"");
            return;
        }
        const auto magnitude = CATHandle<CATCkeMagnitude>::Adopt(new CATCkeMagnitude(
            CATUnicodeString(name), CATUnicodeString(*storage))); // the handle takes the reference
        ReadUnits(entry, *magnitude);
        if (magnitude->StorageUnit().IsNull()) {
            Report(entry.Line(), "magnitude " + name + " is left out: expected its storage unit " +
                                     Quoted(*storage) + " among its units");
            return;
        }
        ReadDefault(entry, *magnitude);
        m_dictionary.Add(magnitude);
    }

    // Factors count in the storage unit: a file that thinks of another one cannot be believed.
    void ReadKnownMagnitude(const CATTomlValue& entry, CATCkeMagnitude& magnitude) const
    {
        const std::string symbol = magnitude.StorageSymbol().ToStdString();
        if (const CATTomlValue* const storage = entry.Find("storage");
            storage != nullptr && (storage->AsText() == nullptr || *storage->AsText() != symbol)) {
            Report(storage->Line(), "magnitude " + magnitude.Name().ToStdString() +
                                        " is left out: expected its storage unit to stay " +
                                        Quoted(symbol));
            return;
        }
        ReadUnits(entry, magnitude);
        ReadDefault(entry, magnitude);
    }

    void ReadUnits(const CATTomlValue& entry, CATCkeMagnitude& magnitude) const
    {
        const CATTomlValue* const units = entry.Find("unit");
        if (units == nullptr) {
            return;
        }
        if (units->AsArray() == nullptr) {
            Report(units->Line(), "units of " + magnitude.Name().ToStdString() +
                                      " are left out: expected [[magnitude.unit]]");
            return;
        }
        for (const CATTomlValue& unit : *units->AsArray()) {
            ReadUnit(unit, magnitude);
        }
    }

    void ReadUnit(const CATTomlValue& entry, CATCkeMagnitude& magnitude) const
    {
        const std::string* const symbol = FindText(entry, "symbol");
        const std::string who =
            "unit " + (symbol == nullptr ? std::string("without symbol") : Quoted(*symbol)) +
            " of " + magnitude.Name().ToStdString() + " is left out: ";
        CATCkeUnitDefinition unit;
        if (!ReadDefinition(entry, who, unit)) {
            return;
        }
        switch (magnitude.AddUnit(unit)) {
        case CATCkeMagnitude::Added::SymbolOrNameTaken:
            Report(entry.Line(), who + "expected a symbol and names that no other unit has");
            break;
        case CATCkeMagnitude::Added::NotTheStorageUnit:
            Report(entry.Line(), who + "expected factor \"1\" and no offset of the storage unit");
            break;
        case CATCkeMagnitude::Added::Yes:
        case CATCkeMagnitude::Added::KnownAlike:
            break;
        }
    }

    bool ReadDefinition(const CATTomlValue& entry, const std::string& who,
                        CATCkeUnitDefinition& unit) const
    {
        if (entry.AsTable() == nullptr) {
            Report(entry.Line(), who + "expected [[magnitude.unit]]");
            return false;
        }
        for (const auto& [key, value] : *entry.AsTable()) {
            const auto row = std::ranges::find(kUnitKeys, std::string_view(key), &UnitKey::key);
            if (row == kUnitKeys.end()) {
                Report(value.Line(), who + "unknown key " + Quoted(key));
                return false;
            }
            if (!row->read(value, unit)) {
                Report(value.Line(), who + key + ": expected " + std::string(row->expected));
                return false;
            }
        }
        const auto isMissing = [&entry](const UnitKey& row) {
            return row.isRequired && entry.Find(row.key) == nullptr;
        };
        const auto missing = std::ranges::find_if(kUnitKeys, isMissing);
        if (missing != kUnitKeys.end()) {
            Report(entry.Line(), who + std::string(missing->key) + " is missing: expected " +
                                     std::string(missing->expected));
            return false;
        }
        return true;
    }

    void ReadDefault(const CATTomlValue& entry, CATCkeMagnitude& magnitude) const
    {
        const CATTomlValue* const value = entry.Find("default");
        if (value != nullptr && (value->AsText() == nullptr ||
                                 !magnitude.MakeDefault(CATUnicodeString(*value->AsText())))) {
            Report(value->Line(), "default of " + magnitude.Name().ToStdString() +
                                      " is left out: expected the symbol of one of its units");
        }
    }

    const std::string& m_path;
    CATCkeParmDictionary& m_dictionary;
    const CATCkeReport& m_report;
};

std::vector<std::string> DirectoriesOf(const char* variable)
{
    std::vector<std::string> directories;
    const char* const list = CATGetEnv(variable);
    std::string_view rest = list == nullptr ? "" : list;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(';'), rest.size());
        if (end > 0) {
            directories.emplace_back(rest.substr(0, end));
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return directories;
}

void AppendOnce(std::vector<std::filesystem::path>& paths, const std::filesystem::path& path)
{
    std::error_code ignored;
    const std::filesystem::path canonical = std::filesystem::weakly_canonical(path, ignored);
    const auto isSame = [&](const std::filesystem::path& known) {
        return std::filesystem::weakly_canonical(known, ignored) == canonical;
    };
    if (std::ranges::none_of(paths, isSame)) {
        paths.push_back(path);
    }
}

/// The "*.toml" files of a directory by name; none of one that cannot be read.
std::vector<std::filesystem::path> TomlFiles(const std::filesystem::path& directory)
{
    std::vector<std::filesystem::path> files;
    std::error_code ignored;
    for (std::filesystem::directory_iterator entry(directory, ignored), end; entry != end;
         entry.increment(ignored)) {
        if (entry->path().extension() == ".toml") {
            files.push_back(entry->path());
        }
    }
    std::ranges::sort(files);
    return files;
}

} // namespace

std::vector<std::string> CATCkeUnitFilePaths()
{
    // The session's own directory stands last among the resources and is read first.
    std::vector<std::string> directories = CATResourceDirectories();
    if (!directories.empty()) {
        std::rotate(directories.begin(), directories.end() - 1, directories.end());
    }
    std::vector<std::filesystem::path> paths;
    for (const std::string& directory : directories) {
        for (const std::filesystem::path& file :
             TomlFiles(std::filesystem::path(directory) / "units")) {
            AppendOnce(paths, file);
        }
    }
    for (const std::string& directory : DirectoriesOf("CATUserSettingPath")) {
        const std::filesystem::path file = std::filesystem::path(directory) / "units.toml";
        std::error_code ignored;
        if (std::filesystem::exists(file, ignored)) {
            AppendOnce(paths, file);
        }
    }
    return {paths.begin(), paths.end()};
}

CATHandle<CATCkeParmDictionary> CATCkeReadDictionary(const std::vector<std::string>& paths,
                                                     const CATCkeReport& report)
{
    auto dictionary =
        CATHandle<CATCkeParmDictionary>::Adopt(new CATCkeParmDictionary); // the handle takes it
    for (const std::string& path : paths) {
        const CATTomlResult file = CATReadTomlFile(path);
        if (file.IsGood()) {
            UnitFile(path, *dictionary, report).Read(file.root);
        } else {
            report(file.problem);
        }
    }
    if (dictionary->MagnitudeNames().IsEmpty()) {
        report("no magnitude is known: expected unit files \"units/*.toml\" among the session's "
               "resources");
    }
    dictionary->UseSettings(report);
    return dictionary;
}
