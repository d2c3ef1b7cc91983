#pragma once

#include "ENOWBAllDataBuffer.h"

class WBFieldReader;
class WBFieldWriter;

/// The record, and the only place that knows how it travels: turns the "|"-separated streams of the
/// server into the record and the record into the streams that the client sends.
///
/// A stream is a flat sequence of fields; lists are announced by their length, optional groups by a
/// flag or status. There is no escaping: a text that holds "|" cannot travel. An empty material
/// name and an empty property value travel as "__null__". Numbers are read with either decimal
/// separator and written with the session's.
///
/// A field that should be a number and is not raises the host's fatal error (see CATWBToken); what
/// was read before it stays in the record. A stream that ends early reads as empty fields, so a
/// missing text is empty, a missing real 0.0 and a missing integer fatal. When a list's announced
/// length is far beyond what the stream holds, the list ends with the stream or after a thousand
/// entries, whichever is later, and its length is what was kept: a wrong length costs an error, not
/// the session's memory. The integers that should follow are missing then, so such a stream ends in
/// the fatal error like any other that is cut; only who goes on after it sees the shorter list.
class WB_EXPORT CATWBAllDataBuffer : public ENOWBAllDataBuffer
{
public:
    CATWBAllDataBuffer();
    CATWBAllDataBuffer(const CATWBAllDataBuffer& other);
    CATWBAllDataBuffer& operator=(const CATWBAllDataBuffer& other);
    ~CATWBAllDataBuffer() override;

    /// Reads the server's answer of initial values: the full layout, or the short one that begins
    /// at the mass types and leaves identifiers and revisions as they are. Appends to the record's
    /// lists, so it is meant for a new record. S_OK; E_FAIL when the persistency flag is negative,
    /// with the fields before it in the record and nothing behind it read.
    long SetAllData(const CATUnicodeString& stream, bool fullLayout);
    /// Writes the request that carries the user's values to the server; replaces `stream`. E_FAIL,
    /// with the stream ending where the fault is, when the part cannot be told or a valued mass
    /// type has no centre of gravity or no inertia; else the status of reading the density
    /// priority, which is read last. What this writes is not what SetAllData reads.
    long GetAllData(CATUnicodeString& stream);
    /// Reads the answer of a computation: the values of the computed mass type, and the material
    /// statistics, which replace the record's. The transformation is kept when asked for and else
    /// read past. Always S_OK.
    long SetComputedData(const CATUnicodeString& stream, bool storeTransformation);
    /// Writes the request for a computation; replaces `stream`. E_FAIL, with the stream ending
    /// where the fault is, when some value of the record cannot be read.
    long GetComputedInfo(CATUnicodeString& stream);

private:
    friend class WBFieldWriter;

    /// Decimal text.
    static CATUnicodeString toString(int value);
    /// The text of a real in the format that client and server share.
    static CATUnicodeString toString(double value);

    /// What a writer does when a value of the record cannot be read: a request that goes on has the
    /// value's default in its place.
    enum class OnFault
    {
        Stop,
        GoOn
    };

    // Each section's reader stands beside the writer that mirrors it, where the section travels
    // both ways. A writer that returns a status has failed unless it is S_OK.
    long ReadIdentification(WBFieldReader& reader);
    long WritePart(WBFieldWriter& writer) const;
    long WriteIdentification(WBFieldWriter& writer) const;
    void ReadInstancePath(WBFieldReader& reader);
    void ReadRevisions(WBFieldReader& reader);
    void ReadMassTypes(WBFieldReader& reader);
    void ReadMassType(WBFieldReader& reader);
    long WriteMassTypes(WBFieldWriter& writer);
    long WriteMassType(WBFieldWriter& writer, const CATUnicodeString& massType) const;
    long WriteMassProperties(WBFieldWriter& writer, const CATUnicodeString& massType) const;
    void ReadPrecision(WBFieldReader& reader, const CATUnicodeString& massType);
    long WritePrecision(WBFieldWriter& writer, const CATUnicodeString& massType,
                        OnFault onFault) const;
    void ReadFlagsAndActiveTypes(WBFieldReader& reader);
    void WriteActiveTypes(WBFieldWriter& writer) const;
    void ReadDensity(WBFieldReader& reader);
    void ReadPartRefDensity(WBFieldReader& reader);
    void WriteDensity(WBFieldWriter& writer) const;
    void ReadTransformation(WBFieldReader& reader, bool store);
    void ReadExtraProperties(WBFieldReader& reader);
    void WriteExtraProperties(WBFieldWriter& writer) const;
    long WriteAllData(WBFieldWriter& writer);
    long WriteComputedInfo(WBFieldWriter& writer) const;
};
