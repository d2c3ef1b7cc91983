#pragma once

/// Constants and enumerations that the client, its panels and the server share. Needs the standard
/// library alone, so that the server, which knows nothing of the host, includes it too.
class CATENOWBCSCommonDefinitions
{
public:
    // The enumerations have a fixed type: a stream may carry a value that is none of theirs, and
    // the record keeps it as received.

    /// How much of a value is there.
    enum ValueStatus : int
    {
        Empty = 0,
        Assigned = 1,
        PartiallyAssigned = 2
    };
    /// Which density goes first where a part has one of its own and one of its material.
    enum DensityPriority : int
    {
        WBDensityFirst = 0,
        MaterialDensityFirst = 1
    };
    enum PrecisionType : int
    {
        NoPrecision = 0,
        PrecisionDefined = 1
    };
    /// A precision is a percentage of the mass or a mass.
    enum PrecisionValueType : int
    {
        Percentage = 0,
        Absolute = 1
    };
    /// What a computation covers.
    enum Entity : int
    {
        InstanceWithChildren = 0,
        Root = 1,
        PartAlone = 2
    };

    /// The mass type of what the program derived; nobody types, imports or sends it.
    static constexpr const char* Computed = "Computed";
    /// What a material is applied to.
    static constexpr const char* partRef = "PartRef";
    static constexpr const char* partInst = "PartInst";
    /// How reals are written, on the wire and for people alike.
    static constexpr const char* FormatDouble = "%.15g";
    /// Between year, month and day of a date text.
    static constexpr const char* dateYMDFieldDelimiter1 = "/";
    /// The two workshops' names.
    static constexpr const char* vpmNavWshp = "NavigatorWorkshop";
    static constexpr const char* prodStructWshp = "StructureWorkshop";
    /// Begins a server answer that is an error text.
    static constexpr const char* errMsgHeader = "#WB_ERROR#";
};
