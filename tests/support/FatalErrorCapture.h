#pragma once

#include "CATFatalError.h"

#include <utility>
#include <vector>

/// Keeps the fatal errors of a test and lets it go on behind them.
class FatalErrorCapture
{
public:
    FatalErrorCapture()
        : m_before(CATSetFatalErrorHandler(
              [this](const CATFatalError& error) { m_errors.push_back(error); }))
    {}
    FatalErrorCapture(const FatalErrorCapture&) = delete;
    FatalErrorCapture& operator=(const FatalErrorCapture&) = delete;
    ~FatalErrorCapture() { CATSetFatalErrorHandler(std::move(m_before)); }

    const std::vector<CATFatalError>& Errors() const { return m_errors; }

private:
    std::vector<CATFatalError> m_errors;
    CATFatalErrorHandler m_before;
};
