#pragma once

#include "PanelChecks.h"
#include "PanelSession.h"
#include "WBFilterPanel.h"

#include "CATDlgMultiList.h"
#include "CATDlgNotify.h"
#include "CATNavigator.h"
#include "CATWBVPMNavGUITable.h"

#include <QComboBox>

/// LA1 with a fuselage of two levels and a wing; what stands below SYS-000 nobody tells. SC1 is
/// another product.
class SmallProducts : public CATProductSource
{
public:
    std::vector<CATProductRow> Roots() override { return {}; }
    std::vector<CATProductRow> Uses(const CATUnicodeString& part, const CATUnicodeString&) override
    {
        asked.push_back(part.ToStdString());
        if (part == "LA1") {
            return {Row("FUS-000.1", "FUS-000", "Fuselage", true),
                    Row("WNG-000.1", "WNG-000", "Wing", false),
                    Row("SYS-000.1", "SYS-000", "Systems", true)};
        }
        if (part == "FUS-000") {
            return {Row("FUS-100.1", "FUS-100", "Front fuselage", true)};
        }
        if (part == "FUS-100") {
            return {Row("FUS-110.1", "FUS-110", "Firewall", false)};
        }
        return {};
    }
    static CATProductRow Row(const char* instance, const char* part, const char* name, bool hasUses)
    {
        CATProductRow row;
        row.instance = instance;
        row.part = part;
        row.version = "A";
        row.name = name;
        row.hasUses = hasUses;
        return row;
    }
    std::vector<std::string> asked; ///< parts whose uses were asked for
};

inline void OpenSmallProduct(const char* root)
{
    CATNavigator::Open(std::make_shared<SmallProducts>(), SmallProducts::Row(root, root, "", true));
}

/// The settings that filters are kept in, and LA1 open in the navigator.
class FilterSession : public PanelSession
{
protected:
    FilterSession() { OpenSmallProduct("LA1"); }
    ~FilterSession() override { CATNavigator::Close(); }

    static CATSettingRepository& Settings()
    {
        return *CATSettingRepository::GetRepository("CATWBVPMNavFilterPanel");
    }
    static std::filesystem::path SettingsFile()
    {
        return SettingsDirectory() / "CATWBVPMNavFilterPanel.CATSettings";
    }
    static std::filesystem::path SettingsDirectory() { return CATGetEnv("CATUserSettingPath"); }
    static void Store(const char* key, const char* text)
    {
        Settings().WriteSetting(key, CATUnicodeString(text));
        Settings().Commit();
    }
    static void StoreAll(const char* key, const CATListValCATUnicodeString& texts)
    {
        Settings().WriteSetting(key, texts);
        Settings().Commit();
    }
    static std::string Stored(const char* key)
    {
        CATUnicodeString text = "(none)";
        Settings().ReadSetting(key, text);
        return text.ToStdString();
    }
    static std::vector<std::string> AllStored(const char* key)
    {
        CATListValCATUnicodeString texts;
        Settings().ReadSetting(key, texts);
        std::vector<std::string> all;
        for (const CATUnicodeString& text : texts.Items()) {
            all.push_back(text.ToStdString());
        }
        return all;
    }
    /// What the next session finds.
    static void BeginNewSession() { CATSettingRepository::CloseAll(); }
    /// Nothing can be written any more: a folder stands where the file should come.
    static void LockSettings()
    {
        std::filesystem::create_directories(SettingsFile() / "in_the_way");
    }
    static void UnlockSettings() { std::filesystem::remove_all(SettingsFile()); }
};
