#pragma once

#include "CATCollections.h"
#include "KR4WBClientSettings.h"

#include <string>

/// What one round of saving leaves in the client's settings. All of it tells the same round: a file
/// made of two rounds would not.
inline constexpr int kRoundEntries = 500;

inline bool SaveSettingsRound(const char* round)
{
    CATListValCATUnicodeString entries;
    entries.Resize(kRoundEntries, CATUnicodeString(round));
    return KR4WBClientSettings::SetVersion(round) == S_OK &&
           KR4WBClientSettings::SetItemInstanceGroup("ROOT.", "wing", entries, entries, entries,
                                                     entries, entries) == S_OK &&
           KR4WBClientSettings::SetCriteriaGroup("ROOT.", "heavy", round, entries, entries, entries,
                                                 entries) == S_OK &&
           KR4WBClientSettings::Save() == S_OK;
}

/// The round that the settings tell; empty where they do not tell one whole round.
inline std::string ReadSettingsRound()
{
    CATUnicodeString version;
    CATUnicodeString criterion;
    CATListValCATUnicodeString lists[9];
    const bool isRead =
        KR4WBClientSettings::GetVersion(version) == S_OK &&
        KR4WBClientSettings::GetItemInstanceGroup("ROOT.", "wing", lists[0], lists[1], lists[2],
                                                  lists[3], lists[4]) == S_OK &&
        KR4WBClientSettings::GetCriteriaGroup("ROOT.", "heavy", criterion, lists[5], lists[6],
                                              lists[7], lists[8]) == S_OK;
    bool isWhole = isRead && criterion == version;
    for (const CATListValCATUnicodeString& list : lists) {
        isWhole = isWhole && list.Size() == kRoundEntries;
        for (int position = 1; isWhole && position <= list.Size(); ++position) {
            isWhole = list[position] == version;
        }
    }
    return isWhole ? version.Text() : std::string();
}
