#include "CATCommandLoader.h"

#include "CATFindPath.h"
#include "CATSession.h"
#include "CATTomlFile.h"

#include <array>
#include <dlfcn.h>
#include <filesystem>
#include <map>
#include <set>

namespace fs = std::filesystem;

namespace
{
struct FieldRow
{
    const char* key;
    CATUnicodeString CATCommandHeader::*field;
    bool isRequired;
};

constexpr std::array kFields{
    FieldRow{"class", &CATCommandHeader::className, true},
    FieldRow{"library", &CATCommandHeader::library, true},
    FieldRow{"companion", &CATCommandHeader::companion, false},
    FieldRow{"title", &CATCommandHeader::title, true},
    FieldRow{"tooltip", &CATCommandHeader::tooltip, false},
    FieldRow{"icon", &CATCommandHeader::icon, false},
    FieldRow{"workshop", &CATCommandHeader::workshop, false},
    FieldRow{"shortcut", &CATCommandHeader::shortcut, false},
};

/// The workbench files by name; of one name the file of the first directory.
std::map<std::string, std::string> WorkbenchFiles()
{
    std::map<std::string, std::string> files;
    for (const std::string& directory : CATResourceDirectories()) {
        std::error_code ignored; // a directory without workbenches is nothing to report
        for (const auto& entry :
             fs::directory_iterator(fs::path(directory) / "workbenches", ignored)) {
            if (entry.path().extension() == ".toml") {
                files.try_emplace(entry.path().filename().string(), entry.path().string());
            }
        }
    }
    return files;
}

/// What is wrong with the entry, or the empty text and the header.
std::string ReadHeader(const CATTomlValue& entry, CATCommandHeader& header)
{
    for (const FieldRow& row : kFields) {
        const CATTomlValue* value = entry.Find(row.key);
        if (value == nullptr) {
            if (row.isRequired) {
                return std::string("a command lacks its \"") + row.key + "\".";
            }
            continue;
        }
        const std::string* text = value->AsText();
        if (text == nullptr || (row.isRequired && text->empty())) {
            return std::string("the \"") + row.key + "\" of a command must be a text" +
                   (row.isRequired ? " that is not empty." : ".");
        }
        header.*row.field = *text;
    }
    return {};
}

void ReadFile(const std::string& path, std::vector<CATCommandHeader>& headers,
              std::vector<std::string>& problems)
{
    const CATTomlResult file = CATReadTomlFile(path);
    if (!file.IsGood()) {
        problems.push_back(file.problem);
        return;
    }
    const CATTomlValue* commands = file.root.Find("command");
    const CATTomlValue::Array* entries = commands == nullptr ? nullptr : commands->AsArray();
    if (entries == nullptr) {
        problems.push_back(path + ": there is no [[command]] in it.");
        return;
    }
    for (const CATTomlValue& entry : *entries) {
        CATCommandHeader header;
        const std::string problem = ReadHeader(entry, header);
        if (problem.empty()) {
            headers.push_back(header);
        } else {
            std::string& sentence = problems.emplace_back(path);
            sentence.append(":").append(std::to_string(entry.Line())).append(": ").append(problem);
        }
    }
}

/// Where a library of that name must stand: beside the one that this code is in.
std::string LibraryPath(const CATString& name)
{
    static const char here = 0;
    Dl_info info{};
    dladdr(&here, &info);
    std::error_code ignored; // a path that cannot be resolved is named as it is
    const fs::path folder = fs::weakly_canonical(info.dli_fname, ignored).parent_path();
    return (folder / ("lib" + name.ToStdString() + ".so")).string();
}

/// A library that stays loaded until the program ends; null, and the sentence, when it cannot be.
/// The loader itself keeps each file once. Its names stay local: what libraries share they link.
void* Load(const std::string& path, CATUnicodeString& problem)
{
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        problem = "The library " + path + " cannot be loaded: " + dlerror() + ".";
    }
    return library;
}

void* FindFunction(void* library, const std::string& path, const std::string& name,
                   CATUnicodeString& problem)
{
    void* function = dlsym(library, name.c_str());
    if (function == nullptr) {
        problem =
            "The function " + name + " is missing in the library " + path + ": " + dlerror() + ".";
    }
    return function;
}

} // namespace

std::vector<CATCommandHeader> CATReadCommandHeaders(std::vector<std::string>& problems)
{
    std::vector<CATCommandHeader> headers;
    for (const auto& [name, path] : WorkbenchFiles()) {
        ReadFile(path, headers, problems);
    }
    return headers;
}

bool CATLoadCompanion(const CATString& companion, CATUnicodeString& problem)
{
    static std::set<std::string> registered;
    const std::string path = LibraryPath(companion);
    if (companion.IsEmpty() || registered.contains(path)) {
        return true;
    }
    void* library = Load(path, problem);
    if (library == nullptr) {
        return false;
    }
    const std::string name = companion.ToStdString() + "Register";
    void* function = FindFunction(library, path, name, problem);
    if (function == nullptr) {
        return false;
    }
    const auto registerCompanion = reinterpret_cast<void (*)()>(function);
    if (const auto fault = CATSession::CatchFault(registerCompanion)) {
        problem = CATUnicodeString("The function " + name + " failed: ") + *fault;
        return false;
    }
    registered.insert(path);
    return true;
}

CATCommand* CATCreateCommand(const CATCommandHeader& header, CATUnicodeString& problem)
{
    const std::string path = LibraryPath(header.library);
    void* library = Load(path, problem);
    if (library == nullptr || !CATLoadCompanion(header.companion, problem)) {
        return nullptr;
    }
    const std::string name = "fctCreate" + header.className.ToStdString();
    void* function = FindFunction(library, path, name, problem);
    if (function == nullptr) {
        return nullptr;
    }
    const auto create = reinterpret_cast<CATCommand* (*)()>(function);
    CATCommand* command = nullptr;
    if (const auto fault = CATSession::CatchFault([&] { command = create(); })) {
        problem = CATUnicodeString("The function " + name + " failed: ") + *fault;
    } else if (command == nullptr) {
        problem = "The function " + name + " made no command.";
    }
    return command;
}
