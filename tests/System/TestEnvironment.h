#pragma once

#include "CATEnvironment.h"

#include <map>
#include <optional>
#include <string>

/// Stands in the place of the process's environment for the length of a test; empty at first.
class TestEnvironment
{
public:
    TestEnvironment()
    {
        CATSetEnvironmentSource([this](const char* name) -> std::optional<std::string> {
            const auto found = m_variables.find(name);
            return found == m_variables.end() ? std::nullopt
                                              : std::optional<std::string>(found->second);
        });
    }
    TestEnvironment(const TestEnvironment&) = delete;
    TestEnvironment& operator=(const TestEnvironment&) = delete;
    ~TestEnvironment() { CATSetEnvironmentSource({}); }

    void Set(const std::string& name, const std::string& value) { m_variables[name] = value; }
    void Unset(const std::string& name) { m_variables.erase(name); }

private:
    std::map<std::string, std::string> m_variables;
};
