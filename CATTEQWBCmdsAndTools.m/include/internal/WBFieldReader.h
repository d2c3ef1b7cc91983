#pragma once

#include "CATWBToken.h"

#include "CATDiagnostics.h"

#include <string_view>

/// The fields of a stream, each echoed with its label to the diagnostic output as it is read. When
/// nobody listens there, no line is made.
class WBFieldReader
{
public:
    explicit WBFieldReader(const CATUnicodeString& stream);

    CATUnicodeString Text(const char* label);
    /// The same without making a text of it; valid as long as the reader.
    std::string_view View(const char* label);
    /// A text in which "__null__" stands for nothing.
    CATUnicodeString NullableText(const char* label);
    /// Numbers that must be there: anything else is a fatal error, but a blank real is 0.0.
    int Int(const char* label);
    double Real(const char* label);
    /// Numbers where anything else counts as 0.
    int LenientInt(const char* label);
    double LenientReal(const char* label);
    /// Reads past that many fields.
    void SkipTexts(int count);

    /// Whether entry `index` (from 0) of a list that was announced as `count` long is to be read.
    /// Within the stream every entry is. Beyond its end entries are empty, and only a list of up to
    /// kCompletedEntries is completed with them: a longer one announced a length that the stream
    /// cannot hold.
    bool HasEntry(int index, int count) const;
    /// Tells the diagnostic output when a list was kept shorter than announced.
    void ReportKept(const char* what, int announced, int kept);
    /// The announced length of a list whose entries take at least `bytesPerEntry` bytes, bounded by
    /// what the rest of the stream can hold, for lists that are made before their entries are read.
    int Believed(const char* what, int announced, int bytesPerEntry);

    CATLineStream& Echo() { return m_echo; }
    CATWBToken& Stream() { return m_stream; }

    static constexpr int kCompletedEntries = 1000;

private:
    CATWBToken m_stream;
    CATLineStream& m_echo;
};
