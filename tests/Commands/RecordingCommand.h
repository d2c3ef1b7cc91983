#pragma once

#include "CATCommand.h"
#include "CATFatalError.h"
#include "CATHandle.h"

#include <string>
#include <vector>

using Log = std::vector<std::string>;

/// Writes down what the session does with it, and does what a test puts into its hooks.
class RecordingCommand : public CATCommand
{
public:
    RecordingCommand(CATCommand* parent, const CATString& name, Log& log,
                     CATCommandMode mode = CATCommandMode::Exclusive)
        : CATCommand(parent, name), m_log(log)
    {
        RequestStatusChange(mode);
    }
    ~RecordingCommand() override
    {
        Write("destroyed");
        Run(onDestroyed);
    }

    long Activate(CATCommand*, const CATNotification*) override
    {
        Write("activated");
        Run(onActivate);
        return activateStatus;
    }
    long Desactivate(CATCommand* from, const CATNotification*) override
    {
        Write(from == nullptr ? "hidden" : "hidden for " + from->Name().ToStdString());
        Run(onDesactivate);
        return S_OK;
    }
    long Cancel(CATCommand* from, const CATNotification* why) override
    {
        Write(from == nullptr ? "cancelled" : "cancelled for " + from->Name().ToStdString());
        Run(onCancel);
        return CATCommand::Cancel(from, why);
    }
    bool RecoverFromFault() override
    {
        Run(onRecover);
        return recovers;
    }

    std::function<void()> onActivate;
    std::function<void()> onDesactivate;
    std::function<void()> onCancel;
    std::function<void()> onRecover;
    std::function<void()> onDestroyed;
    long activateStatus = S_OK;
    bool recovers = false;

private:
    void Write(const std::string& what) { m_log.push_back(Name().ToStdString() + " " + what); }
    static void Run(const std::function<void()>& hook)
    {
        if (hook) {
            hook();
        }
    }

    Log& m_log;
};

[[noreturn]] inline void RaiseFatalError()
{
    throw CATFatalError("the count is wrong", "Some.cpp", 7);
}
constexpr const char* kFatalErrorSentence = "the count is wrong (Some.cpp:7).";
constexpr const char* kNullHandleSentence = "a null handle was used.";
