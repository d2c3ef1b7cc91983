#pragma once

#include "WBExport.h"

/// A kind of thing that a command can tell others about ("PushButtonActivated"). An event is one
/// object that lives as long as the program; two events are the same when they are the same object.
class WB_EXPORT CATEvent
{
public:
    explicit constexpr CATEvent(const char* name) : m_name(name) {}
    CATEvent(const CATEvent&) = delete;
    CATEvent& operator=(const CATEvent&) = delete;
    const char* Name() const { return m_name; }

private:
    const char* m_name;
};

class CATCommand;

/// One occurrence of an event: who sent it, and a number whose meaning belongs to the event (the
/// index of a tab page, the type of a unit), 0 otherwise.
struct CATNotification
{
    const CATEvent& event;
    CATCommand& sender;
    int detail = 0;
};
