#pragma once

#include "CATDiagnostics.h"

#include <string>
#include <utility>
#include <vector>

/// Listens to a diagnostic stream for the length of a test.
class DiagnosticCapture
{
public:
    explicit DiagnosticCapture(CATLineStream& stream = CATDiagnosticOutput())
        : m_stream(stream),
          m_before(
              stream.SetListener([this](std::string_view line) { m_lines.emplace_back(line); }))
    {}
    DiagnosticCapture(const DiagnosticCapture&) = delete;
    DiagnosticCapture& operator=(const DiagnosticCapture&) = delete;
    ~DiagnosticCapture() { m_stream.SetListener(std::move(m_before)); }

    const std::vector<std::string>& Lines() const { return m_lines; }

private:
    CATLineStream& m_stream;
    std::vector<std::string> m_lines;
    CATLineStream::Listener m_before;
};
