#include "WBGroupStore.h"

#include "WBGroupTexts.h"

#include "CATSettingRepository.h"
#include "CATStatus.h"
#include "KR4WBClientSettings.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace
{

struct KindRow
{
    const char* suffix; // of the settings' keys
    int lists;
    int head; // entries before the lists
};
constexpr std::array kKinds{KindRow{"Instances", 5, 0}, KindRow{"Criteria", 4, 1}};
constexpr std::string_view kCount = "Count";

const KindRow& RowOf(WBGroupKind kind)
{
    return kKinds[static_cast<std::size_t>(kind)];
}

CATUnicodeString Prefix(const CATUnicodeString& root)
{
    return root + ".";
}

const CATSettingRepository* Settings()
{
    return CATSettingRepository::GetRepository("KR4WBClientSettings");
}

enum class Stored
{
    Nothing,
    Whole,
    Damaged
};
/// The client settings share out what is there and leave over what does not suffice; only the
/// stored number of entries tells that something is missing.
Stored StateOf(WBGroupKind kind, const CATUnicodeString& root, const CATUnicodeString& name)
{
    const CATSettingRepository* const settings = Settings();
    if (settings == nullptr) {
        return Stored::Nothing;
    }
    const KindRow& row = RowOf(kind);
    const CATUnicodeString key = Prefix(root) + name + row.suffix;
    int count = 0;
    const long countStatus = settings->ReadSetting(key + kCount, count);
    CATListValCATUnicodeString items;
    const long itemsStatus = settings->ReadSetting(key, items);
    if (countStatus == S_FALSE && itemsStatus == S_FALSE) {
        return Stored::Nothing;
    }
    const bool isWhole = countStatus == S_OK && itemsStatus == S_OK && count == items.Size() &&
                         count >= row.head && (count - row.head) % row.lists == 0;
    return isWhole ? Stored::Whole : Stored::Damaged;
}

WBStoredGroup Read(WBGroupKind kind, const CATUnicodeString& root, const CATUnicodeString& name)
{
    WBStoredGroup group;
    group.lists.resize(static_cast<std::size_t>(RowOf(kind).lists));
    auto& lists = group.lists;
    if (kind == WBGroupKind::Instances) {
        KR4WBClientSettings::GetItemInstanceGroup(Prefix(root), name, lists[0], lists[1], lists[2],
                                                  lists[3], lists[4]);
    } else {
        KR4WBClientSettings::GetCriteriaGroup(Prefix(root), name, group.joined, lists[0], lists[1],
                                              lists[2], lists[3]);
    }
    return group;
}

bool Write(WBGroupKind kind, const CATUnicodeString& root, const CATUnicodeString& name,
           WBStoredGroup group)
{
    auto& lists = group.lists;
    if (kind == WBGroupKind::Instances) {
        return KR4WBClientSettings::SetItemInstanceGroup(Prefix(root), name, lists[0], lists[1],
                                                         lists[2], lists[3], lists[4]) == S_OK;
    }
    return KR4WBClientSettings::SetCriteriaGroup(Prefix(root), name, group.joined, lists[0],
                                                 lists[1], lists[2], lists[3]) == S_OK;
}

WBStoredGroup EmptyGroup(WBGroupKind kind)
{
    WBStoredGroup group;
    group.lists.resize(static_cast<std::size_t>(RowOf(kind).lists));
    if (kind == WBGroupKind::Criteria) {
        group.joined = "and";
    }
    return group;
}

/// The group without a name holds the names of the others in its first list.
bool WriteNames(WBGroupKind kind, const CATUnicodeString& root,
                const std::vector<CATUnicodeString>& names)
{
    WBStoredGroup group = EmptyGroup(kind);
    for (CATListValCATUnicodeString& list : group.lists) {
        list.Resize(static_cast<int>(names.size()));
    }
    group.lists.front() = CATListValCATUnicodeString(names);
    return Write(kind, root, {}, group);
}

/// The names of the groups that have a number of entries, whatever that is.
std::vector<CATUnicodeString> NamesByKeys(WBGroupKind kind, const CATUnicodeString& root)
{
    std::vector<CATUnicodeString> names;
    const CATUnicodeString prefix = Prefix(root);
    const CATUnicodeString suffix = CATUnicodeString(RowOf(kind).suffix) + kCount;
    const CATListValCATUnicodeString keys = Settings()->Keys();
    for (const CATUnicodeString& key : keys.Items()) {
        if (!key.View().starts_with(prefix.View()) || !key.View().ends_with(suffix.View())) {
            continue;
        }
        const int length = key.Length() - prefix.Length() - suffix.Length();
        const CATUnicodeString name = key.Part(prefix.Length(), std::max(length, 0));
        int count = 0;
        const bool wasDeleted =
            Settings()->ReadSetting(key, count) == S_OK && count <= RowOf(kind).head;
        if (WBGroupNameProblem(name).IsEmpty() && !wasDeleted) {
            names.push_back(name);
        }
    }
    return names;
}

/// Brings what was written into the file; what cannot be brought there is forgotten, so that the
/// session and the file go on saying the same.
bool Keep(bool isWritten)
{
    if (isWritten && KR4WBClientSettings::Save() == S_OK) {
        return KR4WBClientSettings::Commit() == S_OK;
    }
    KR4WBClientSettings::Rollback();
    return false;
}

} // namespace

WBStoredNames WBStoredGroupNames(WBGroupKind kind, const CATUnicodeString& root)
{
    switch (StateOf(kind, root, {})) {
    case Stored::Whole:
        return {Read(kind, root, {}).lists.front().Items(), false};
    case Stored::Damaged:
        return {NamesByKeys(kind, root), true};
    case Stored::Nothing:
        break;
    }
    return {};
}

bool WBIsGroupStored(WBGroupKind kind, const CATUnicodeString& root, const CATUnicodeString& name)
{
    const std::vector<CATUnicodeString> names = WBStoredGroupNames(kind, root).names;
    if (std::ranges::find(names, name) != names.end()) {
        return true;
    }
    const Stored state = StateOf(kind, root, name);
    return state == Stored::Damaged ||
           (state == Stored::Whole && !Read(kind, root, name).lists.front().IsEmpty());
}

std::optional<WBStoredGroup> WBReadStoredGroup(WBGroupKind kind, const CATUnicodeString& root,
                                               const CATUnicodeString& name)
{
    return StateOf(kind, root, name) == Stored::Whole ? std::optional(Read(kind, root, name))
                                                      : std::nullopt;
}

bool WBSaveGroup(WBGroupKind kind, const CATUnicodeString& root, const CATUnicodeString& name,
                 const WBStoredGroup& group)
{
    std::vector<CATUnicodeString> names = WBStoredGroupNames(kind, root).names;
    if (std::ranges::find(names, name) == names.end()) {
        names.push_back(name);
    }
    return Keep(Write(kind, root, name, group) && WriteNames(kind, root, names));
}

bool WBDeleteGroup(WBGroupKind kind, const CATUnicodeString& root, const CATUnicodeString& name)
{
    std::vector<CATUnicodeString> names = WBStoredGroupNames(kind, root).names;
    std::erase(names, name);
    return Keep(Write(kind, root, name, EmptyGroup(kind)) && WriteNames(kind, root, names));
}

CATUnicodeString WBGroupNameProblem(const CATUnicodeString& name)
{
    if (name.IsEmpty()) {
        return WBGroupText("Name.Empty", "@The group has no name. Type one.");
    }
    constexpr unsigned char kFirstLetter = 0x20;
    const bool hasControls = std::ranges::any_of(
        name.View(), [](char letter) { return static_cast<unsigned char>(letter) < kFirstLetter; });
    if (name.Contains(".") || hasControls) {
        return WBGroupText("Name.Refused",
                           "@\"/p1\" cannot be the name of a group. Expected a name without \".\".",
                           {name});
    }
    return {};
}
