#pragma once

#include "CATDiagnostics.h"
#include "CATFatalError.h"
#include "CATNumberLocale.h"
#include "CATStatus.h"
#include "CATUnicodeString.h"
#include "DiagnosticCapture.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

/// A fatal error is thrown, or kept and gone on from, while this lives.
class FatalErrors
{
public:
    enum class Then
    {
        Throw,
        GoOn
    };
    explicit FatalErrors(Then then)
        : m_before(CATSetFatalErrorHandler([this, then](const CATFatalError& error) {
              m_raised.push_back(error);
              if (then == Then::Throw) {
                  throw error;
              }
          }))
    {}
    ~FatalErrors() { CATSetFatalErrorHandler(std::move(m_before)); }
    FatalErrors(const FatalErrors&) = delete;
    FatalErrors& operator=(const FatalErrors&) = delete;

    const std::vector<CATFatalError>& Raised() const { return m_raised; }

private:
    std::vector<CATFatalError> m_raised;
    CATFatalErrorHandler m_before;
};

/// The session writes numbers so while this lives; then plainly again.
class NumberLocale
{
public:
    explicit NumberLocale(const char* name) { EXPECT_TRUE(CATUseNumberLocale(name)) << name; }
    ~NumberLocale() { CATUseNumberLocale("C"); }
    NumberLocale(const NumberLocale&) = delete;
    NumberLocale& operator=(const NumberLocale&) = delete;
};

constexpr const char* kPointLocale = "C";
constexpr const char* kCommaLocale = "de_DE.UTF-8";

/// Both streams are silent while this lives, so that tests that read much do not write it all.
class SilentStreams
{
public:
    SilentStreams()
        : m_output(CATDiagnosticOutput().SetListener({})),
          m_errors(CATDiagnosticErrors().SetListener({}))
    {}
    ~SilentStreams()
    {
        CATDiagnosticOutput().SetListener(std::move(m_output));
        CATDiagnosticErrors().SetListener(std::move(m_errors));
    }
    SilentStreams(const SilentStreams&) = delete;
    SilentStreams& operator=(const SilentStreams&) = delete;

private:
    CATLineStream::Listener m_output;
    CATLineStream::Listener m_errors;
};

inline void PrintTo(const CATUnicodeString& text, std::ostream* stream)
{
    *stream << '"' << text.View() << '"';
}
