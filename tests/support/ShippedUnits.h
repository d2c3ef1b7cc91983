#pragma once

#include "CATCkeGlobalFunctions.h"
#include "CATEnvironment.h"
#include "CATSettingRepository.h"
#include "TemporaryDirectory.h"

#include <optional>
#include <string>
#include <string_view>

/// While it lives the session has the shipped units and an empty settings folder of its own.
class ShippedUnits
{
public:
    ShippedUnits()
    {
        CATSetEnvironmentSource([this](const char* name) {
            return std::string_view(name) == "CATUserSettingPath"
                       ? std::optional<std::string>(m_settings.Path())
                       : std::nullopt;
        });
        ReadAnew();
    }
    ShippedUnits(const ShippedUnits&) = delete;
    ShippedUnits& operator=(const ShippedUnits&) = delete;
    ~ShippedUnits()
    {
        ReadAnew();
        CATSetEnvironmentSource({});
    }

    const TemporaryDirectory& Settings() const { return m_settings; }

private:
    static void ReadAnew()
    {
        CATSettingRepository::CloseAll();
        CATCkeGlobalFunctions::SetParmDictionary({});
    }

    TemporaryDirectory m_settings;
};
