#pragma once

#include "CATDiagnostics.h"

#include <functional>
#include <initializer_list>
#include <string_view>

/// The trace of one component: lines for developers, kept apart from the two diagnostic streams so
/// that a whole session can be followed, or one component alone. Users never see them. By default
/// nobody listens; then nothing is formatted.
class WB_EXPORT DSTrace
{
public:
    using Listener = std::function<void(std::string_view component, std::string_view line)>;

    /// The component's name is a literal: it outlives the trace.
    explicit DSTrace(const char* component) : m_component(component) {}

    /// Writes one line made of the pieces.
    template <class... Pieces>
    void Line(const Pieces&... pieces) const
    {
        if (IsHeard()) {
            Write({CATDiagnosticPiece(pieces)...});
        }
    }

    static bool IsHeard();
    /// Installs the session's listener and returns the one that stood there; an empty one silences
    /// all traces.
    static Listener SetListener(Listener listener);

private:
    void Write(std::initializer_list<CATDiagnosticPiece> pieces) const;

    const char* m_component;
};
