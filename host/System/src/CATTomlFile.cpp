#include "CATTomlFile.h"

#include "Utf8.h"

#define TOML_HEADER_ONLY 1
#define TOML_EXCEPTIONS 0
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wall"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wconversion"
#include <toml++/toml.h>
#pragma GCC diagnostic pop

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>
#include <sstream>

namespace
{

CATTomlValue ValueOf(const toml::node& node);

// The parser sorts a table by its keys; where each key stands in the file brings its order back.
CATTomlValue::Table MembersOf(const toml::table& table)
{
    struct Member
    {
        toml::source_position position;
        const toml::key* key;
        const toml::node* node;
    };
    std::vector<Member> members;
    members.reserve(table.size());
    for (auto member = table.cbegin(); member != table.cend(); ++member) {
        members.push_back({member->first.source().begin, &member->first, &member->second});
    }
    std::ranges::sort(members,
                      [](const Member& a, const Member& b) { return a.position < b.position; });
    CATTomlValue::Table result;
    result.reserve(members.size());
    for (const Member& member : members) {
        CATTomlValue value = ValueOf(*member.node);
        value.SetLine(static_cast<int>(member.position.line));
        result.emplace_back(std::string(member.key->str()), std::move(value));
    }
    return result;
}

CATTomlValue::Array ItemsOf(const toml::array& array)
{
    CATTomlValue::Array items;
    items.reserve(array.size());
    for (const toml::node& node : array) {
        items.push_back(ValueOf(node));
        items.back().SetLine(static_cast<int>(node.source().begin.line));
    }
    return items;
}

template <class T>
CATTomlValue TextOf(const T& moment)
{
    std::ostringstream text;
    text << moment;
    return text.str();
}

CATTomlValue ValueOf(const toml::node& node)
{
    switch (node.type()) {
    case toml::node_type::table:
        return MembersOf(*node.as_table());
    case toml::node_type::array:
        return ItemsOf(*node.as_array());
    case toml::node_type::string:
        return node.as_string()->get();
    case toml::node_type::integer:
        return node.as_integer()->get();
    case toml::node_type::floating_point:
        return node.as_floating_point()->get();
    case toml::node_type::boolean:
        return node.as_boolean()->get();
    case toml::node_type::date:
        return TextOf(node.as_date()->get());
    case toml::node_type::time:
        return TextOf(node.as_time()->get());
    case toml::node_type::date_time:
        return TextOf(node.as_date_time()->get());
    case toml::node_type::none:
        break;
    }
    return {};
}

std::string Quoted(std::string_view text)
{
    constexpr std::string_view kHexadecimal = "0123456789ABCDEF";
    std::string quoted = "\"";
    for (std::size_t offset = 0; offset < text.size();) {
        const Utf8::Character character = Utf8::At(text, offset);
        const char first = text[offset];
        if (character.codePoint == Utf8::Character::kIllFormed) {
            quoted += "\xef\xbf\xbd";
        } else if (first == '"' || first == '\\') {
            quoted += '\\';
            quoted += first;
        } else if (first == '\n') {
            quoted += "\\n";
        } else if (first == '\t') {
            quoted += "\\t";
        } else if (character.codePoint < 0x20 || character.codePoint == 0x7f) {
            quoted += "\\u00";
            quoted += kHexadecimal[static_cast<std::size_t>(character.codePoint >> 4)];
            quoted += kHexadecimal[static_cast<std::size_t>(character.codePoint & 0xf)];
        } else {
            quoted += text.substr(offset, character.bytes);
        }
        offset += character.bytes;
    }
    return quoted + '"';
}

std::string KeyText(const std::string& key)
{
    const bool isBare = !key.empty() && std::ranges::all_of(key, [](char each) {
        return (each >= '0' && each <= '9') || (each >= 'a' && each <= 'z') ||
               (each >= 'A' && each <= 'Z') || each == '_' || each == '-';
    });
    return isBare ? key : Quoted(key);
}

// The shortest digits that read back alike, with a mark of a real where they look like an integer.
std::string RealText(double real)
{
    char digits[32];
    const std::to_chars_result end = std::to_chars(std::begin(digits), std::end(digits), real);
    std::string text(std::begin(digits), end.ptr);
    if (std::isfinite(real) && text.find_first_of(".e") == std::string::npos) {
        text += ".0";
    }
    return text;
}

std::string InlineText(const CATTomlValue& value);

std::string InlineTable(const CATTomlValue::Table& table)
{
    std::string text;
    for (const auto& [key, member] : table) {
        const std::string item = InlineText(member);
        if (!item.empty()) {
            text += (text.empty() ? "" : ", ") + KeyText(key) + " = " + item;
        }
    }
    return "{" + text + "}";
}

std::string InlineArray(const CATTomlValue::Array& array)
{
    std::string text;
    for (const CATTomlValue& each : array) {
        const std::string item = InlineText(each);
        if (!item.empty()) {
            text += (text.empty() ? "" : ", ") + item;
        }
    }
    return "[" + text + "]";
}

// Empty for a value that holds nothing.
std::string InlineText(const CATTomlValue& value)
{
    if (const std::string* text = value.AsText()) {
        return Quoted(*text);
    }
    if (const std::int64_t* integer = value.AsInteger()) {
        return std::to_string(*integer);
    }
    if (const double* real = value.AsReal()) {
        return RealText(*real);
    }
    if (const bool* flag = value.AsFlag()) {
        return *flag ? "true" : "false";
    }
    if (const CATTomlValue::Array* array = value.AsArray()) {
        return InlineArray(*array);
    }
    const CATTomlValue::Table* table = value.AsTable();
    return table == nullptr ? std::string() : InlineTable(*table);
}

// Plain values must stand before the first section, or they would belong to it.
void AppendSection(const CATTomlValue::Table& table, const std::string& path, std::string& text)
{
    for (const auto& [key, value] : table) {
        const std::string item = value.AsTable() == nullptr ? InlineText(value) : std::string();
        if (!item.empty()) {
            text += KeyText(key) + " = " + item + "\n";
        }
    }
    for (const auto& [key, value] : table) {
        if (const CATTomlValue::Table* inner = value.AsTable()) {
            const std::string name = path.empty() ? KeyText(key) : path + "." + KeyText(key);
            text += (text.empty() ? "[" : "\n[") + name + "]\n";
            AppendSection(*inner, name, text);
        }
    }
}

} // namespace

const CATTomlValue* CATTomlValue::Find(std::string_view key) const
{
    const Table* table = AsTable();
    if (table == nullptr) {
        return nullptr;
    }
    const auto found =
        std::ranges::find_if(*table, [&](const auto& member) { return member.first == key; });
    return found == table->end() ? nullptr : &found->second;
}

CATTomlResult CATParseToml(std::string_view text, const std::string& name)
{
    const toml::parse_result parsed = toml::parse(text, std::string_view(name));
    CATTomlResult result;
    result.root = CATTomlValue::Table();
    if (parsed.failed()) {
        const toml::source_position where = parsed.error().source().begin;
        result.problem = name + ":" + std::to_string(where.line) + ":" +
                         std::to_string(where.column) + ": " +
                         std::string(parsed.error().description());
        return result;
    }
    result.root = MembersOf(parsed.table());
    return result;
}

CATTomlResult CATReadTomlFile(const std::string& path)
{
    const auto cannotBeRead = [&](int error) {
        return CATTomlResult{CATTomlValue::Table(), path + ": " + std::strerror(error)};
    };
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"),
                                                               std::fclose);
    if (file == nullptr) {
        return cannotBeRead(errno);
    }
    constexpr std::size_t kPiece = 65536;
    std::string text;
    for (std::size_t size = 0, read = kPiece; read == kPiece; size += read) {
        text.resize(size + kPiece);
        read = std::fread(text.data() + size, 1, kPiece, file.get());
        text.resize(size + read);
    }
    // A directory opens like a file and fails only here.
    if (std::ferror(file.get()) != 0) {
        return cannotBeRead(errno);
    }
    return CATParseToml(text, path);
}

std::string CATFormatToml(const CATTomlValue& table)
{
    std::string text;
    if (const CATTomlValue::Table* members = table.AsTable()) {
        AppendSection(*members, "", text);
    }
    return text;
}
