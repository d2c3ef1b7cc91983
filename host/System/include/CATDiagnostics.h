#pragma once

#include "CATUnicodeString.h"

#include <concepts>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

/// One piece of a diagnostic line: a text, an integer, or a real (written as "%.15g").
class WB_EXPORT CATDiagnosticPiece
{
public:
    CATDiagnosticPiece(const char* text) : m_text(text == nullptr ? "" : text) {} // NOLINT
    CATDiagnosticPiece(std::string_view text) : m_text(text) {}                   // NOLINT
    CATDiagnosticPiece(const std::string& text) : m_text(text) {}                 // NOLINT
    CATDiagnosticPiece(const CATUnicodeString& text) : m_text(text.View()) {}     // NOLINT
    CATDiagnosticPiece(std::integral auto value)
        : m_kind(Kind::Integer), m_integer(static_cast<long long>(value))
    {}                                                                      // NOLINT
    CATDiagnosticPiece(double value) : m_kind(Kind::Real), m_real(value) {} // NOLINT
    void AppendTo(std::string& line) const;

private:
    enum class Kind
    {
        Text,
        Integer,
        Real
    };
    Kind m_kind = Kind::Text;
    std::string_view m_text;
    long long m_integer = 0;
    double m_real = 0.0;
};

/// A stream of diagnostic lines, for developers; users never see them. Callers pass pieces: when
/// nobody listens, nothing is formatted.
class WB_EXPORT CATLineStream
{
public:
    using Listener = std::function<void(std::string_view line)>;

    explicit CATLineStream(Listener listener) : m_listener(std::move(listener)) {}
    CATLineStream(const CATLineStream&) = delete;
    CATLineStream& operator=(const CATLineStream&) = delete;

    /// Writes one line made of the pieces. A piece may hold line ends of its own.
    template <class... Pieces>
    void Line(const Pieces&... pieces)
    {
        if (m_listener) {
            Write({CATDiagnosticPiece(pieces)...});
        }
    }
    bool IsHeard() const { return static_cast<bool>(m_listener); }
    /// Installs a listener and returns the one that stood there; an empty one silences the stream.
    Listener SetListener(Listener listener);

private:
    void Write(std::initializer_list<CATDiagnosticPiece> pieces) const;

    Listener m_listener;
};

/// The session's two streams; they begin on the standard output and the standard error.
WB_EXPORT CATLineStream& CATDiagnosticOutput();
WB_EXPORT CATLineStream& CATDiagnosticErrors();
