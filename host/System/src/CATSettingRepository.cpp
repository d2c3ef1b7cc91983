#include "CATSettingRepository.h"

#include "CATDiagnostics.h"
#include "CATEnvironment.h"
#include "CATFileReplacement.h"
#include "CATFindPath.h"
#include "CATStatus.h"
#include "CATTomlFile.h"
#include "DirectoryList.h"

#include <cstring>
#include <filesystem>
#include <limits>
#include <map>
#include <optional>
#include <utility>

namespace
{

namespace fs = std::filesystem;

constexpr const char* kUserPath = "CATUserSettingPath";
constexpr const char* kReferencePath = "CATReferenceSettingPath";
constexpr const char* kSuffix = ".CATSettings";

using Values = std::map<std::string, CATTomlValue, std::less<>>;
using Repositories = std::map<std::string, std::unique_ptr<CATSettingRepository>, std::less<>>;

Repositories& OpenRepositories()
{
    static Repositories repositories;
    return repositories;
}

std::function<void(const CATUnicodeString&)>& Listener()
{
    static std::function<void(const CATUnicodeString&)> listener;
    return listener;
}

void Report(const std::string& sentence)
{
    CATDiagnosticErrors().Line(sentence);
    if (Listener()) {
        Listener()(sentence);
    }
}

std::string PathVariable(const char* name)
{
    const char* value = CATGetEnv(name);
    return value == nullptr ? std::string() : std::string(value);
}

// The directory that the user's files are written to; empty when there is none.
std::string UserDirectory()
{
    const std::vector<std::string> directories = SplitDirectories(PathVariable(kUserPath));
    return directories.empty() ? std::string() : directories.front();
}

std::string FileIn(const char* pathVariable, const std::string& fileName)
{
    return CATFindPath(fileName, PathVariable(pathVariable)).ToStdString();
}

// False, and told to the listener, when there is no such directory and it cannot be made.
bool MakeDirectory(const std::string& directory)
{
    std::error_code error;
    fs::create_directories(directory, error);
    if (error) {
        Report("The directory of the settings cannot be made: " + directory + ": " +
               error.message());
    }
    return !error;
}

Values ValuesOf(const CATTomlValue& root)
{
    Values values;
    for (const auto& [key, value] : *root.AsTable()) {
        values.emplace(key, value);
    }
    return values;
}

Values ReadReference(const std::string& path)
{
    if (path.empty()) {
        return {};
    }
    const CATTomlResult file = CATReadTomlFile(path);
    if (!file.IsGood()) {
        Report("The reference settings cannot be read: " + file.problem);
    }
    return ValuesOf(file.root);
}

// Moves a file that cannot be read out of the way, so that what it holds can still be rescued by
// hand. False, and told to the listener, when that is not possible.
bool SetAside(const std::string& path, const std::string& problem)
{
    std::error_code error;
    int number = 1;
    while (fs::exists(path + ".damaged-" + std::to_string(number), error)) {
        ++number;
    }
    const std::string kept = path + ".damaged-" + std::to_string(number);
    fs::rename(path, kept, error);
    if (error) {
        Report("The settings cannot be read: " + problem + ". The file cannot be set aside: " +
               error.message() + ". Nothing will be saved over it");
        return false;
    }
    Report("The settings cannot be read: " + problem + ". The file was kept as " + kept);
    return true;
}

std::string FileText(const Values& values)
{
    CATTomlValue::Table table(values.begin(), values.end());
    return CATFormatToml(std::move(table));
}

std::optional<int> AsInt(const CATTomlValue& value)
{
    const std::int64_t* integer = value.AsInteger();
    if (integer == nullptr || *integer < std::numeric_limits<int>::min() ||
        *integer > std::numeric_limits<int>::max()) {
        return std::nullopt;
    }
    return static_cast<int>(*integer);
}

std::optional<double> AsReal(const CATTomlValue& value)
{
    const double* real = value.AsReal();
    return real == nullptr ? std::nullopt : std::optional<double>(*real);
}

std::optional<CATUnicodeString> AsText(const CATTomlValue& value)
{
    const std::string* text = value.AsText();
    return text == nullptr ? std::nullopt : std::optional<CATUnicodeString>(*text);
}

std::optional<CATListValCATUnicodeString> AsTexts(const CATTomlValue& value)
{
    const CATTomlValue::Array* array = value.AsArray();
    if (array == nullptr) {
        return std::nullopt;
    }
    CATListValCATUnicodeString texts;
    for (const CATTomlValue& item : *array) {
        if (item.AsText() == nullptr) {
            return std::nullopt;
        }
        texts.Append(CATUnicodeString(*item.AsText()));
    }
    return texts;
}

} // namespace

struct CATSettingRepository::Contents
{
    CATUnicodeString name;
    std::string file;       // where the user's settings are written; empty when there is no place
    std::string unreadable; // a user's file that could not be set aside; it is not written over
    Values reference;
    Values user;
    Values committed;

    const CATTomlValue* Find(std::string_view key) const
    {
        for (const Values* values : {&user, &reference}) {
            const auto found = values->find(key);
            if (found != values->end()) {
                return &found->second;
            }
        }
        return nullptr;
    }

    template <class T>
    long Read(const CATUnicodeString& key, std::optional<T> (*convert)(const CATTomlValue&),
              T& output) const
    {
        const CATTomlValue* value = Find(key.View());
        if (value == nullptr) {
            return S_FALSE;
        }
        std::optional<T> converted = convert(*value);
        if (!converted) {
            return E_FAIL;
        }
        output = *std::move(converted);
        return S_OK;
    }

    long Write(const CATUnicodeString& key, CATTomlValue value)
    {
        if (key.IsEmpty()) {
            return E_INVALIDARG;
        }
        user.insert_or_assign(key.ToStdString(), std::move(value));
        return S_OK;
    }

    void ReadUser(const std::string& path)
    {
        const CATTomlResult read = CATReadTomlFile(path);
        if (read.IsGood()) {
            user = ValuesOf(read.root);
        } else if (!SetAside(path, read.problem)) {
            unreadable = path;
        }
        committed = user;
    }
};

CATSettingRepository::CATSettingRepository(std::unique_ptr<Contents> contents)
    : m_contents(std::move(contents))
{}

CATSettingRepository::~CATSettingRepository() = default;

CATSettingRepository* CATSettingRepository::GetRepository(const CATUnicodeString& name)
{
    if (name.IsEmpty() || name.Contains("/")) {
        return nullptr;
    }
    const auto open = OpenRepositories().find(name.View());
    if (open != OpenRepositories().end()) {
        return open->second.get();
    }
    const std::string fileName = name.ToStdString() + kSuffix;
    const std::string directory = UserDirectory();
    const std::string reference = FileIn(kReferencePath, fileName);
    if (directory.empty() && reference.empty()) {
        return nullptr;
    }
    auto contents = std::make_unique<Contents>();
    contents->name = name;
    contents->reference = ReadReference(reference);
    if (!directory.empty()) {
        MakeDirectory(directory);
        contents->file = (fs::path(directory) / fileName).string();
        const std::string path = FileIn(kUserPath, fileName);
        if (!path.empty()) {
            contents->ReadUser(path);
        }
    }
    std::unique_ptr<CATSettingRepository> repository(new CATSettingRepository(std::move(contents)));
    return OpenRepositories()
        .emplace(name.ToStdString(), std::move(repository))
        .first->second.get();
}

void CATSettingRepository::CloseAll()
{
    OpenRepositories().clear();
}

void CATSettingRepository::ReportProblemsTo(
    std::function<void(const CATUnicodeString& sentence)> listener)
{
    Listener() = std::move(listener);
}

const CATUnicodeString& CATSettingRepository::Name() const
{
    return m_contents->name;
}

long CATSettingRepository::ReadSetting(const CATUnicodeString& key, int& value) const
{
    return m_contents->Read(key, AsInt, value);
}

long CATSettingRepository::ReadSetting(const CATUnicodeString& key, double& value) const
{
    return m_contents->Read(key, AsReal, value);
}

long CATSettingRepository::ReadSetting(const CATUnicodeString& key, CATUnicodeString& value) const
{
    return m_contents->Read(key, AsText, value);
}

long CATSettingRepository::ReadSetting(const CATUnicodeString& key,
                                       CATListValCATUnicodeString& values) const
{
    return m_contents->Read(key, AsTexts, values);
}

long CATSettingRepository::WriteSetting(const CATUnicodeString& key, int value)
{
    return m_contents->Write(key, static_cast<std::int64_t>(value));
}

long CATSettingRepository::WriteSetting(const CATUnicodeString& key, double value)
{
    return m_contents->Write(key, value);
}

long CATSettingRepository::WriteSetting(const CATUnicodeString& key, const CATUnicodeString& value)
{
    return m_contents->Write(key, value.ToStdString());
}

long CATSettingRepository::WriteSetting(const CATUnicodeString& key,
                                        const CATListValCATUnicodeString& values)
{
    CATTomlValue::Array items;
    for (const CATUnicodeString& value : values.Items()) {
        items.emplace_back(value.ToStdString());
    }
    return m_contents->Write(key, std::move(items));
}

long CATSettingRepository::RemoveSetting(const CATUnicodeString& key)
{
    return m_contents->user.erase(key.ToStdString()) == 0 ? S_FALSE : S_OK;
}

CATListValCATUnicodeString CATSettingRepository::Keys() const
{
    Values all = m_contents->user;
    all.insert(m_contents->reference.begin(), m_contents->reference.end());
    CATListValCATUnicodeString keys;
    for (const auto& [key, value] : all) {
        keys.Append(CATUnicodeString(key));
    }
    return keys;
}

long CATSettingRepository::SaveRepository()
{
    const std::string& file = m_contents->file;
    if (file.empty()) {
        Report("The settings " + m_contents->name.ToStdString() + kSuffix +
               " cannot be saved: " + kUserPath + " names no directory");
        return E_FAIL;
    }
    if (!m_contents->unreadable.empty()) {
        std::error_code error;
        if (fs::exists(m_contents->unreadable, error) &&
            !SetAside(m_contents->unreadable, m_contents->unreadable)) {
            return E_FAIL;
        }
        m_contents->unreadable.clear();
    }
    if (!MakeDirectory(fs::path(file).parent_path().string())) {
        return E_FAIL;
    }
    const int failure = CATReplaceFile(file, FileText(m_contents->user));
    if (failure != 0) {
        Report("The settings cannot be saved: " + file + ": " + std::strerror(failure));
        return E_FAIL;
    }
    return S_OK;
}

long CATSettingRepository::Commit()
{
    m_contents->committed = m_contents->user;
    return S_OK;
}

long CATSettingRepository::Rollback()
{
    m_contents->user = m_contents->committed;
    return S_OK;
}
