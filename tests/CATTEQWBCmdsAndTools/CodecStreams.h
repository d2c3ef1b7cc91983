#pragma once

#include <string>

// Streams of the server, in the groups in which they are read.

/// Has-instance flag, identifiers, path, document flags, documents.
constexpr const char* kIdentification =
    "0|INST-0001|PART-0001|A|PRC-07|2|ROOT-1|SUB-3|1|0|1|DOC-55|B|2|1|";
constexpr const char* kRevisions = "1|B.1|2010/07/01|user1|__null__|Estimated|12.5|";
constexpr const char* kMassTypes =
    "2|Computed|1|12.5|0.1|0.2|1|2|3|10|20|30|0.5|0.25|0.75|1|1|5|5|0|0|0|Estimated|0|0|0|0|";
constexpr const char* kActiveTypes = "1|Estimated|Estimated|";
constexpr const char* kDensity = "1|7850|Steel|PartRef|1|7850|Steel|";
constexpr const char* kPriority = "1|0|";
constexpr const char* kStatistics = "1|Steel|3|12.5|ignored|";
constexpr const char* kTransformation = "1|0|0|0|1|0|0|0|1|0|0|0|";
constexpr const char* kProperties = "1|Customer|1|0|Part|CUST-01|__null__|";

/// A stream of which a test replaces one group.
struct ServerStream
{
    std::string identification = kIdentification;
    std::string revisions = kRevisions;
    std::string massTypes = kMassTypes;
    std::string activeTypes = kActiveTypes;
    std::string density = kDensity;
    std::string priority = kPriority;
    std::string statistics = kStatistics;
    std::string transformation = kTransformation;
    std::string properties = kProperties;

    std::string Short() const
    {
        return massTypes + activeTypes + density + priority + statistics + transformation +
               properties;
    }
    std::string Full() const { return identification + revisions + Short(); }
};

/// The complete answer for a part without an instance in the PDM, as one line.
constexpr const char* kWorkedExample =
    "0|INST-0001|PART-0001|A|PRC-07|2|ROOT-1|SUB-3|1|0|1|DOC-55|B|2|1|1|B.1|2010/07/01|user1|"
    "__null__|Estimated|12.5|2|Computed|1|12.5|0.1|0.2|1|2|3|10|20|30|0.5|0.25|0.75|1|1|5|5|0|0|0|"
    "Estimated|0|0|0|0|1|Estimated|Estimated|1|7850|Steel|PartRef|1|7850|Steel|1|0|1|Steel|3|12.5|"
    "ignored|1|0|0|0|1|0|0|0|1|0|0|0|1|Customer|1|0|Part|CUST-01|__null__|";

/// What a record tells of itself by its accessors.
template <class Record, class Value>
Value Got(const Record& record, long (Record::*get)(Value&) const)
{
    Value value{};
    (record.*get)(value);
    return value;
}
