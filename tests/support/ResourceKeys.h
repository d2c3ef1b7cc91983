#pragma once

#include "CATFindPath.h"
#include "CATTomlFile.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

inline void CollectResourceKeys(const CATTomlValue& table, const std::string& prefix,
                                std::set<std::string>& keys)
{
    for (const auto& [key, value] : *table.AsTable()) {
        if (value.AsTable() != nullptr) {
            CollectResourceKeys(value, prefix + key + ".", keys);
        } else {
            keys.insert(prefix + key);
        }
    }
}

/// The keys of a catalog or a dialog's resource file, "catalogs/<name>.toml", which must be there.
inline std::set<std::string> ResourceKeys(const std::string& resource)
{
    const CATTomlResult file = CATReadTomlFile(CATFindResource(resource));
    EXPECT_TRUE(file.IsGood()) << file.problem;
    std::set<std::string> keys;
    CollectResourceKeys(file.root, "", keys);
    EXPECT_FALSE(keys.empty()) << resource;
    return keys;
}
