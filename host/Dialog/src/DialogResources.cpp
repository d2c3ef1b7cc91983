#include "DialogResources.h"

#include "CATDiagnostics.h"
#include "CATFindPath.h"
#include "CATMsgCatalog.h"
#include "CATTomlFile.h"

#include <map>

namespace
{

using Texts = std::map<std::string, std::string>;

/// What was read of one dialog's files.
struct ReadFile
{
    Texts texts;
    bool isThere = false;
};

/// Everything read so far, by language and file. Language changes are rare and files are small, so
/// nothing is dropped.
std::map<std::string, ReadFile>& Cache()
{
    static std::map<std::string, ReadFile> cache;
    return cache;
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

/// Nested tables become dotted keys; what stands there already, from the user's language, stays.
void Flatten(const CATTomlValue& value, const std::string& path, Texts& texts)
{
    if (const std::string* text = value.AsText()) {
        texts.emplace(path, *text);
        return;
    }
    if (const CATTomlValue::Table* table = value.AsTable()) {
        for (const auto& [key, member] : *table) {
            std::string inner = path;
            if (!inner.empty()) {
                inner += '.';
            }
            inner += key;
            Flatten(member, inner, texts);
        }
    }
}

/// Reads one file into what is there; false when there is no such file or it is broken.
bool ReadInto(ReadFile& read, const std::string& relativeName)
{
    const std::string path = CATFindResource(relativeName);
    if (path.empty()) {
        return false;
    }
    const CATTomlResult result = CATReadTomlFile(path);
    if (!result.IsGood()) {
        Report("The dialog texts cannot be read: " + result.problem);
        return false;
    }
    Flatten(result.root, "", read.texts);
    return true;
}

const ReadFile& Read(const std::string& file)
{
    const std::string language = CATMsgCatalog::Language().ToStdString();
    const auto [entry, isNew] = Cache().try_emplace(language + "/" + file);
    ReadFile& read = entry->second;
    if (isNew) {
        const std::string name = "dialogs/" + file + ".toml";
        const bool hasOwn = language != "en" && ReadInto(read, language + "/" + name);
        const bool hasEnglish = ReadInto(read, name);
        read.isThere = hasOwn || hasEnglish;
        if (!read.isThere && CATFindResource(name).empty()) {
            Report("The dialog texts are missing: there is no file " + name + " in the resources.");
        }
    }
    return read;
}

} // namespace

std::optional<std::string> FindDialogText(const std::string& file, const std::string& key)
{
    const Texts& texts = Read(file).texts;
    const auto found = texts.find(key);
    return found == texts.end() ? std::nullopt : std::optional(found->second);
}

bool HasDialogTexts(const std::string& file)
{
    return Read(file).isThere;
}

void ReportDialogProblemsTo(std::function<void(const CATUnicodeString& sentence)> listener)
{
    Listener() = std::move(listener);
}
