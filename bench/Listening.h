#pragma once

#include "CATDiagnostics.h"

/// Stands while diagnostic lines go somewhere else; an empty listener silences them.
class Listening
{
public:
    explicit Listening(CATLineStream::Listener listener)
        : m_before(CATDiagnosticOutput().SetListener(std::move(listener)))
    {}
    ~Listening() { CATDiagnosticOutput().SetListener(m_before); }
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;

private:
    CATLineStream::Listener m_before;
};
