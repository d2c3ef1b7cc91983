#pragma once

#include "TemporaryDirectory.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <string>

struct Outcome
{
    int status = -1;
    std::string out;
    std::string err;
};

/// Runs the program as a user would, in a folder of its own with empty settings.
class ProgramRun : public testing::Test
{
protected:
    Outcome Run(const std::string& arguments) const
    {
        return RunShell("'" WB_PROGRAM "' " + arguments + " </dev/null");
    }
    /// The same with the shell's own pipes and redirections.
    Outcome RunShell(const std::string& line) const
    {
        // One shell of its own for the line, so that its variables hold for every program in it.
        // A session that another test had in this process has left its settings directory.
        const std::string command =
            "unset CATUserSettingPath; cd '" + folder.Path() + "' && export XDG_CONFIG_HOME='" +
            folder.At("config") + "' XDG_DATA_HOME='" + folder.At("data-home") + "' " +
            environment + " && { " + line + "; } 2>'" + folder.At("stderr") + "'";
        Outcome outcome;
        std::FILE* pipe = popen(command.c_str(), "r");
        std::array<char, 4096> block{};
        while (const std::size_t count = std::fread(block.data(), 1, block.size(), pipe)) {
            outcome.out.append(block.data(), count);
        }
        outcome.status = WEXITSTATUS(pclose(pipe));
        outcome.err = folder.Read("stderr");
        return outcome;
    }

    TemporaryDirectory folder;
    std::string environment;
};
