#pragma once

#include "CATTrace.h"

#include <string>
#include <utility>
#include <vector>

/// Listens to all traces for the length of a test.
class TraceCapture
{
public:
    TraceCapture()
        : m_before(DSTrace::SetListener([this](std::string_view component, std::string_view line) {
              components.emplace_back(component);
              lines.emplace_back(line);
          }))
    {}
    TraceCapture(const TraceCapture&) = delete;
    TraceCapture& operator=(const TraceCapture&) = delete;
    ~TraceCapture() { DSTrace::SetListener(std::move(m_before)); }

    /// The lines that say something: an operation that begins says its name alone.
    std::vector<std::string> Sentences() const
    {
        std::vector<std::string> sentences;
        for (const std::string& line : lines) {
            if (line.find(' ') != std::string::npos) {
                sentences.push_back(line);
            }
        }
        return sentences;
    }

    std::vector<std::string> components;
    std::vector<std::string> lines;

private:
    DSTrace::Listener m_before;
};
