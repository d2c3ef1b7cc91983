#pragma once

#include "CATApplicationFrame.h"
#include "CATCkeGlobalFunctions.h"
#include "CATDiagnostics.h"
#include "CATDlgApplication.h"
#include "CATEnvironment.h"
#include "CATHandle.h"
#include "CATMsgCatalog.h"
#include "CATNumberLocale.h"
#include "CATServerCaller.h"
#include "CATSession.h"
#include "CATSettingRepository.h"
#include "CATWBAllDataBuffer.h"

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

using RecordHandle = CATHandle<CATWBAllDataBuffer>;

/// A record as a stream of the server fills it.
inline RecordHandle RecordOf(const std::string& stream)
{
    RecordHandle record = RecordHandle::Adopt(new CATWBAllDataBuffer);
    EXPECT_EQ(record->SetAllData(stream, true), S_OK);
    return record;
}

/// What the server says of one mass type: three origins, and whatever else a test gives it.
struct SetSaid
{
    std::string name;
    std::string origins = "0|0|0|";
    std::string lenders = "__null__|__null__|";
    std::string precision = "0|";
    std::string sigmas = "__null__|__null__|__null__|__null__|__null__|__null__|__null__|__null__|"
                         "__null__|__null__|";
    std::string source = "__null__|__null__|__null__|__null__|";
    std::string principal = "__null__|__null__|__null__|";

    std::string Text() const
    {
        return name + "|" + origins + lenders + precision + sigmas + source + principal;
    }
};

/// An answer of "WBGetValueDetails".
struct DetailsSaid
{
    std::string partName;
    std::vector<SetSaid> sets = {};
    std::string coverage = "0|0|0|0|";
    std::string codes = "0|";
    std::string massTypes = "0|";
    std::string growth = "0|";
    std::string imposed = "0|";
    std::string uncertainty = "0|";
    std::string warnings = "0|";

    std::string Text() const
    {
        std::string text = partName + "|" + std::to_string(sets.size()) + "|";
        for (const SetSaid& set : sets) {
            text += set.Text();
        }
        return text + coverage + codes + massTypes + growth + imposed + uncertainty + warnings;
    }
};

/// The server as the panels meet it; a method that a test gives no answer is silent.
class PanelServer : public CATServerCaller
{
public:
    std::string CallMethod(std::string_view method, std::string_view request,
                           CATServerCallState&) override
    {
        calls.push_back(std::string(method) + ": " + std::string(request));
        if (method == "WBGetValueDetails") {
            return request.starts_with("1|") ? computedDetails : details;
        }
        const auto found = answers.find(method);
        return found == answers.end() ? std::string() : found->second;
    }
    std::optional<std::string> CallObjectService(std::string_view, std::vector<std::string>&,
                                                 std::string_view, bool,
                                                 CATServerCallState&) override
    {
        return std::nullopt;
    }
    /// The calls of that method alone.
    std::vector<std::string> CallsOf(const std::string& method) const
    {
        std::vector<std::string> found;
        for (const std::string& call : calls) {
            if (call.starts_with(method + ": ")) {
                found.push_back(call.substr(method.size() + 2));
            }
        }
        return found;
    }
    std::string details;         // of stored values
    std::string computedDetails; // of a computation
    std::map<std::string, std::string, std::less<>> answers;
    std::vector<std::string> calls;
};

/// A session of its own for each test: shipped units and texts, no settings, English, numbers with
/// a point until the test says otherwise, silent diagnostics.
class PanelSession : public testing::Test
{
protected:
    PanelSession()
    {
        std::filesystem::create_directories(m_settings);
        CATSetEnvironmentSource([this](const char* name) -> std::optional<std::string> {
            if (std::string_view(name) == "CATUserSettingPath") {
                return m_settings.string();
            }
            return std::nullopt;
        });
        CATSettingRepository::CloseAll();
        CATCkeGlobalFunctions::SetParmDictionary({});
        CATMsgCatalog::SetLanguage("en");
        CATUseNumberLocale("C");
        CATSetServerCaller(server);
    }
    ~PanelSession() override
    {
        CATSetServerCaller(nullptr);
        CATUseNumberLocale("C");
        CATMsgCatalog::SetLanguage("en");
        CATCkeGlobalFunctions::SetParmDictionary({});
        CATSettingRepository::CloseAll();
        CATSetEnvironmentSource({});
        std::filesystem::remove_all(m_settings);
        CATDiagnosticErrors().SetListener(std::move(m_errors));
        CATDiagnosticOutput().SetListener(std::move(m_output));
    }

    static void ShowIn(const char* magnitude, const char* symbol)
    {
        const CATICkeMagnitude_var found =
            CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(magnitude);
        ASSERT_FALSE(found.IsNull()) << magnitude;
        EXPECT_GE(found->SetCurrentUnit(symbol), 0) << symbol;
    }

    std::shared_ptr<PanelServer> server = std::make_shared<PanelServer>();

private:
    std::filesystem::path m_settings =
        std::filesystem::temp_directory_path() / ("wb-panel-" + std::to_string(getpid()));
    CATLineStream::Listener m_output = CATDiagnosticOutput().SetListener({});
    CATLineStream::Listener m_errors = CATDiagnosticErrors().SetListener({});
};

inline void PrintTo(const CATUnicodeString& text, std::ostream* stream)
{
    *stream << '"' << text.View() << '"';
}

inline std::string Join(const std::vector<std::string>& pieces)
{
    std::string whole;
    for (const std::string& piece : pieces) {
        whole += piece;
    }
    return whole;
}

/// The firewall of the sample aeroplane as the navigator's pick gives it: no mass by weighing, an
/// estimate whose centre and inertia nobody knows, and an active calculation.
inline std::string FirewallStream()
{
    return Join(
        {"1|FUS-110.1|FUS-110|A|LA1|2|FUS-100.1|FUS-000.1|", "1|0|1|DOC-55|B|2|1|2|",
         "A.1|2026-03-02|mueller|__null__|Estimated|2.1|", "B.1|2026-04-02|smith|jones||0|",
         "5|Computed|0|0|0|0|", "Estimated|1|2.1|0.21|0.42|0|0|0|0|0|0|0|0|0|0|0|10|20|",
         "Calculated|1|1.92|0.0576|0.096|2|0|-60|0.275557|0.115605|0.159998|0.03|-0.02|0.01|"
         "1|0|3|5|0|3|5|",
         "Weighed|0|0|0.5|0.5|", "Supplier|2|1|1|0.2|0.1|2|3|",
         "1|Calculated|Estimated|1|7900|Stainless steel 321|1|1|",
         "3|Stainless steel 321|Sealant|Paint|3|1.5|3|0.3|2|0.2|d|d|d|",
         "0.8660254037844387|0.5|0|-0.5|0.8660254037844387|0|0|0|1|1000|-20.5|0|",
         "6|Operating_time|100|0|Part|3600|TIME|", "Next_inspection|1|1|Part|2026-09-01|__null__|",
         "Vendor|1|0|Part|__null__|__null__|", "Location|1|0|Instance|Bay 3|__null__|",
         "Flammable|4|0|Part|0|__null__|", "Roughness|3|0|Part|3.25|__null__|"});
}

/// Sixty mass types and names of eighty characters, five levels deep.
inline std::string WideStream()
{
    const auto name = [](const std::string& beginning) {
        return (beginning + std::string(80, 'M')).substr(0, 80);
    };
    std::string stream = Join({"0|", name("Instance-"), "|", name("Part-"), "|Version-27|",
                               name("Root-"), "|3|", name("A-"), "|", name("B-"), "|", name("C-"),
                               "|1|1|1|", name("Document-"), "|B|2|1|3|"});
    for (int index = 1; index <= 3; ++index) {
        stream += Join({name("Rev" + std::to_string(index)), "|2026-03-02|", name("user"), "|",
                        name("holder"), "|", name("Type-1-"), "|1234.5|"});
    }
    stream += "60|";
    for (int index = 1; index <= 60; ++index) {
        stream += Join({name("Type-" + std::to_string(index) + "-"),
                        "|1|1234567.891|1234.567|2345.678|-12345.678|23456.789|-34567.891|"
                        "123456.789012|234567.890123|345678.901234|-1234.567891|2345.678912|"
                        "-3456.789123|1|1|12345.678|23456.789|0|3|5|"});
    }
    stream += Join({"1|",
                    name("Type-1-"),
                    "|",
                    name("Type-2-"),
                    "|1|7900.25|",
                    name("Material-"),
                    "|PartInst|1|7850.75|",
                    name("Other-"),
                    "|0|1|",
                    "2|",
                    name("Material-"),
                    "|",
                    name("Paint-"),
                    "|3|1234567.8|2|12.5|d|d|",
                    "0|1|0|-1|0|0|0|0|1|123456.789|-23456.789|34567.891|",
                    "2|",
                    name("Property_"),
                    "|100|0|Part|3600|TIME|",
                    name("Text_"),
                    "|1|0|Instance|",
                    name("Value "),
                    "|__null__|"});
    return stream;
}
