#include "CATMsgCatalog.h"

#include "CATDiagnostics.h"
#include "CATEnvironment.h"
#include "CATFindPath.h"
#include "CATTomlFile.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <optional>
#include <set>

namespace
{

constexpr const char* kEnglish = "en";

using Texts = std::map<std::string, CATUnicodeString, std::less<>>;

struct State
{
    std::optional<CATUnicodeString> chosenLanguage;
    CATUnicodeString readLanguage; // the one that `catalogs` was read for
    std::map<std::string, Texts, std::less<>> catalogs;
    std::set<std::string> reported;
    std::function<void(const CATUnicodeString&)> listener;
};

State& TheState()
{
    static State state;
    return state;
}

void Drop(State& state)
{
    state.catalogs.clear();
    state.reported.clear();
}

void Report(State& state, const std::string& file, const std::string& sentence)
{
    if (!state.reported.insert(file).second) {
        return;
    }
    CATDiagnosticErrors().Line(sentence);
    if (state.listener) {
        state.listener(sentence);
    }
}

CATUnicodeString EnvironmentLanguage()
{
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = CATGetEnv(name);
        if (value == nullptr || *value == '\0') {
            continue;
        }
        const std::string locale = value;
        const std::string language = locale.substr(0, locale.find_first_of("_.@"));
        // The name becomes part of a path, so nothing but letters is let through.
        const bool isName = std::all_of(language.begin(), language.end(),
                                        [](char letter) { return letter >= 'a' && letter <= 'z'; });
        return isName && !language.empty() ? CATUnicodeString(language)
                                           : CATUnicodeString(kEnglish);
    }
    return kEnglish;
}

// A key may be written as a path of tables or as one quoted name; both end up as the dotted key.
void AddTexts(const CATTomlValue& table, const std::string& prefix, Texts& texts)
{
    for (const auto& [key, value] : *table.AsTable()) {
        if (const std::string* text = value.AsText()) {
            texts.insert_or_assign(prefix + key, CATUnicodeString(*text));
        } else if (value.AsTable() != nullptr) {
            AddTexts(value, prefix + key + ".", texts);
        }
    }
}

// True when there is such a file, good or not.
bool ReadInto(State& state, const std::string& resource, Texts& texts)
{
    const std::string path = CATFindResource(resource);
    if (path.empty()) {
        return false;
    }
    const CATTomlResult file = CATReadTomlFile(path);
    if (file.IsGood()) {
        AddTexts(file.root, "", texts);
    } else {
        Report(state, path, "The message catalog cannot be read: " + file.problem);
    }
    return true;
}

// English first, then the user's language over it.
Texts ReadCatalog(State& state, const std::string& name, const CATUnicodeString& language)
{
    const std::string resource = "catalogs/" + name + ".toml";
    Texts texts;
    bool isThere = ReadInto(state, resource, texts);
    if (language != kEnglish) {
        isThere = ReadInto(state, language.ToStdString() + "/" + resource, texts) || isThere;
    }
    if (!isThere) {
        Report(state, resource, "The message catalog is missing: " + resource);
    }
    return texts;
}

const Texts& TextsOf(State& state, const CATUnicodeString& catalog)
{
    const CATUnicodeString language = CATMsgCatalog::Language();
    if (state.readLanguage != language) {
        Drop(state);
        state.readLanguage = language;
    }
    const auto found = state.catalogs.find(catalog.View());
    if (found != state.catalogs.end()) {
        return found->second;
    }
    const std::string name = catalog.ToStdString();
    return state.catalogs.emplace(name, ReadCatalog(state, name, language)).first->second;
}

// One pass, so that what a parameter brings is not taken for a place of another one.
CATUnicodeString FillIn(const CATUnicodeString& text, const CATListValCATUnicodeString& parameters)
{
    constexpr std::string_view kMark = "/p";
    constexpr std::size_t kMostDigits = 4;
    const std::string_view pattern = text.View();
    std::string filled;
    std::size_t copied = 0;
    for (std::size_t mark = pattern.find(kMark); mark != std::string_view::npos;
         mark = pattern.find(kMark, mark + kMark.size())) {
        std::size_t end = mark + kMark.size();
        int position = 0;
        while (end < pattern.size() && end - mark - kMark.size() < kMostDigits &&
               std::isdigit(static_cast<unsigned char>(pattern[end])) != 0) {
            position = position * 10 + (pattern[end] - '0');
            ++end;
        }
        if (position >= 1 && position <= parameters.Size()) {
            filled.append(pattern, copied, mark - copied).append(parameters[position].View());
            copied = end;
        }
    }
    return copied == 0 ? text : CATUnicodeString(filled.append(pattern, copied));
}

} // namespace

CATUnicodeString CATMsgCatalog::BuildMessage(const CATUnicodeString& catalog,
                                             const CATUnicodeString& key,
                                             const CATUnicodeString& defaultText,
                                             const CATListValCATUnicodeString& parameters)
{
    const Texts& texts = TextsOf(TheState(), catalog);
    const auto found = texts.find(key.View());
    if (found != texts.end()) {
        return FillIn(found->second, parameters);
    }
    const bool isLiteral = defaultText.View().starts_with('@');
    return FillIn(isLiteral ? defaultText.Part(1) : defaultText, parameters);
}

CATUnicodeString CATMsgCatalog::Language()
{
    const State& state = TheState();
    return state.chosenLanguage ? *state.chosenLanguage : EnvironmentLanguage();
}

void CATMsgCatalog::SetLanguage(const CATUnicodeString& language)
{
    State& state = TheState();
    state.chosenLanguage =
        language.IsEmpty() ? std::nullopt : std::optional<CATUnicodeString>(language);
    Drop(state);
}

void CATMsgCatalog::ReportProblemsTo(std::function<void(const CATUnicodeString& sentence)> listener)
{
    TheState().listener = std::move(listener);
}
