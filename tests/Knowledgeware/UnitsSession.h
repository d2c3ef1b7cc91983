#pragma once

#include "CATCkeGlobalFunctions.h"
#include "CATEnvironment.h"
#include "CATNumberLocale.h"
#include "CATSettingRepository.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

/// A session of its own for each test: an empty settings directory, no variables but those that the
/// test sets, the shipped units, and everything reported kept.
class UnitsSession : public testing::Test
{
protected:
    UnitsSession()
    {
        std::filesystem::create_directories(m_settings);
        m_environment["CATUserSettingPath"] = m_settings.string();
        CATSetEnvironmentSource([this](const char* name) -> std::optional<std::string> {
            const auto found = m_environment.find(name);
            return found == m_environment.end() ? std::nullopt : std::optional(found->second);
        });
        CATCkeGlobalFunctions::ReportProblemsTo([this](const CATUnicodeString& sentence) {
            m_reports.push_back(sentence.ToStdString());
        });
        CATSettingRepository::ReportProblemsTo([](const CATUnicodeString&) {});
        CATUseNumberLocale("C");
        StartAgain();
    }
    ~UnitsSession() override
    {
        CATUseNumberLocale("C");
        CATSettingRepository::ReportProblemsTo({});
        CATCkeGlobalFunctions::ReportProblemsTo({});
        CATCkeGlobalFunctions::SetParmDictionary({});
        CATSettingRepository::CloseAll();
        CATSetEnvironmentSource({});
        std::filesystem::remove_all(m_directory);
    }

    /// What the next start of the program sees: unit files and settings as they stand on the disk.
    void StartAgain()
    {
        m_reports.clear();
        CATSettingRepository::CloseAll();
        CATCkeGlobalFunctions::SetParmDictionary({});
    }
    static CATICkeMagnitude_var Magnitude(const char* name)
    {
        return CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(name);
    }
    static CATICkeUnit_var Unit(const char* magnitude, const char* symbol)
    {
        return Magnitude(magnitude)->FindUnit(symbol);
    }
    static void WriteFile(const std::filesystem::path& path, const std::string& text)
    {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << text;
    }

    std::filesystem::path m_directory =
        std::filesystem::temp_directory_path() / ("wb-units-" + std::to_string(getpid()));
    std::filesystem::path m_settings = m_directory / "settings";
    std::map<std::string, std::string> m_environment;
    std::vector<std::string> m_reports;
};
