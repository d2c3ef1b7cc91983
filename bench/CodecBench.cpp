#include "BenchTable.h"
#include "Listening.h"

#include "CATWBAllDataBuffer.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstring>

namespace
{

struct StreamSize
{
    int massTypes;
    int revisions;
    int statistics;
    int properties;
};
constexpr StreamSize kLargeRecord{60, 500, 2000, 5000};

void Add(std::string& stream, const std::string& field)
{
    stream += field;
    stream += '|';
}

void AddReal(std::string& stream, double value)
{
    char digits[32];
    const auto end =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 15);
    stream.append(digits, end.ptr);
    stream += '|';
}

/// A statistic that differs from the others below `distinct` and repeats beyond.
void AddStatistics(std::string& stream, int count, int distinct)
{
    Add(stream, std::to_string(count));
    for (int index = 0; index < count; ++index) {
        Add(stream, "Material number " + std::to_string(index % distinct));
    }
    for (int index = 0; index < count; ++index) {
        Add(stream, "3");
        AddReal(stream, 0.123456789 * (index % distinct + 1));
    }
    for (int index = 0; index < count; ++index) {
        AddReal(stream, 7850.5);
    }
}

/// A full answer, as the server sends it for a part with an instance in the PDM.
std::string MakeStream(const StreamSize& size, int distinctStatistics)
{
    std::string stream = "1|INST-0001|PART-0001|A|PRC-07|2|SUB-3|SUB-1|1|0|1|DOC-55|B|2|1|";
    Add(stream, std::to_string(size.revisions));
    for (int index = 0; index < size.revisions; ++index) {
        stream += "B." + std::to_string(index) + "|2026/07/01|user1|__null__|Estimated|";
        AddReal(stream, 12.5 + 0.001 * index);
    }
    Add(stream, std::to_string(size.massTypes));
    for (int index = 0; index < size.massTypes; ++index) {
        Add(stream, index == 0 ? "Computed" : "Mass type " + std::to_string(index));
        Add(stream, "1");
        for (int term = 0; term < 12; ++term) {
            AddReal(stream, 1.2345678 * (term + 1) + index);
        }
        stream += "1|0|5|5|0|3|5|";
    }
    stream += "1|Mass type 1|Mass type 1|1|7850|Steel|1|0|";
    AddStatistics(stream, size.statistics, distinctStatistics);
    stream += "1|0|0|0|1|0|0|0|1|0|0|0|";
    Add(stream, std::to_string(size.properties));
    for (int index = 0; index < size.properties; ++index) {
        stream += "Property_" + std::to_string(index) + "|100|0|Part|" + std::to_string(index) +
                  ".25|LENGTH|";
    }
    return stream;
}

CATUnicodeString LargeStream()
{
    return MakeStream(kLargeRecord, kLargeRecord.statistics);
}

void DecodeStream(benchmark::State& state, const CATUnicodeString& stream)
{
    for ([[maybe_unused]] auto turn : state) {
        CATWBAllDataBuffer record;
        if (record.SetAllData(stream, true) != S_OK) {
            state.SkipWithError("the stream was refused");
        }
        benchmark::DoNotOptimize(record);
    }
}

void Decode(benchmark::State& state)
{
    const Listening silence({});
    DecodeStream(state, LargeStream());
}
BENCHMARK(Decode)->Unit(benchmark::kMillisecond);

void DecodeWithDiagnostics(benchmark::State& state)
{
    std::FILE* file = std::tmpfile();
    {
        const Listening toFile([file](std::string_view line) {
            std::fwrite(line.data(), 1, line.size(), file);
            std::fputc('\n', file);
        });
        DecodeStream(state, LargeStream());
    }
    std::fclose(file);
}
BENCHMARK(DecodeWithDiagnostics)->Unit(benchmark::kMillisecond);

/// The least that reading the stream takes: find each separator, convert each number.
void BarePass(benchmark::State& state)
{
    const std::string stream = LargeStream().ToStdString();
    for ([[maybe_unused]] auto turn : state) {
        double sum = 0.0;
        const char* at = stream.data();
        const char* const end = at + stream.size();
        while (at < end) {
            const char* bar =
                static_cast<const char*>(std::memchr(at, '|', static_cast<std::size_t>(end - at)));
            if (*at >= '0' && *at <= '9') {
                double value = 0.0;
                std::from_chars(at, bar, value);
                sum += value;
            }
            at = bar + 1;
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(BarePass)->Unit(benchmark::kMillisecond);

void Encode(benchmark::State& state)
{
    const Listening silence({});
    CATWBAllDataBuffer record;
    record.SetAllData(LargeStream(), true);
    for ([[maybe_unused]] auto turn : state) {
        CATUnicodeString text;
        if (record.GetAllData(text) != S_OK) {
            state.SkipWithError("the record was not encoded");
        }
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(Encode)->Unit(benchmark::kMillisecond);

/// A field of a request as the record holds it.
struct Field
{
    enum class Kind
    {
        Text,
        Integer,
        Real
    };
    Kind kind = Kind::Text;
    int integer = 0;
    double real = 0.0;
    std::string text;
};

/// The fields of a request. Behind the mark of the user's properties the values are texts, numbers
/// or not: that is how the record holds them.
std::vector<Field> SplitRequest(const std::string& stream)
{
    std::vector<Field> fields;
    bool inProperties = false;
    for (std::size_t at = 0; at < stream.size();) {
        const std::size_t bar = stream.find('|', at);
        Field field;
        field.text = stream.substr(at, bar - at);
        const char* end = field.text.data() + field.text.size();
        inProperties = inProperties || field.text == "<userDefinedProps>";
        if (!field.text.empty() &&
            std::from_chars(field.text.data(), end, field.integer).ptr == end) {
            field.kind = Field::Kind::Integer;
        } else if (!inProperties && !field.text.empty() &&
                   std::from_chars(field.text.data(), end, field.real).ptr == end) {
            field.kind = Field::Kind::Real;
        }
        fields.push_back(std::move(field));
        at = bar + 1;
    }
    return fields;
}

/// The least that writing the same stream takes: convert the same numbers, copy the same texts.
void BareWrite(benchmark::State& state)
{
    const Listening silence({});
    CATWBAllDataBuffer record;
    record.SetAllData(LargeStream(), true);
    CATUnicodeString text;
    record.GetAllData(text);
    const std::string stream = text.ToStdString();
    const std::vector<Field> fields = SplitRequest(stream);
    std::string out(stream.size() + 64, ' ');
    for ([[maybe_unused]] auto turn : state) {
        char* to = out.data();
        for (const Field& field : fields) {
            if (field.kind == Field::Kind::Integer) {
                to = std::to_chars(to, to + 32, field.integer).ptr;
            } else if (field.kind == Field::Kind::Real) {
                to = std::to_chars(to, to + 32, field.real, std::chars_format::general, 15).ptr;
            } else {
                std::memcpy(to, field.text.data(), field.text.size());
                to += field.text.size();
            }
            *to++ = '|';
        }
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(BareWrite)->Unit(benchmark::kMillisecond);

/// Half of the statistics stand twice.
CATUnicodeString StatisticsStream(int count)
{
    return MakeStream({1, 0, count, 0}, count / 2);
}

void Statistics20000(benchmark::State& state)
{
    const Listening silence({});
    DecodeStream(state, StatisticsStream(20000));
}
BENCHMARK(Statistics20000)->Unit(benchmark::kMillisecond);

void Statistics2000(benchmark::State& state)
{
    const Listening silence({});
    DecodeStream(state, StatisticsStream(2000));
}
BENCHMARK(Statistics2000)->Unit(benchmark::kMillisecond);

const RegisterBenchLine kDecode({"decode a large record / bare pass with from_chars", "Decode",
                                 "BarePass", 6.0});
const RegisterBenchLine kDecodeDiagnostics({"the same with diagnostics to a file / bare pass",
                                            "DecodeWithDiagnostics", "BarePass", 0.0});
const RegisterBenchLine kEncode({"encode the same record / to_chars and a copy", "Encode",
                                 "BareWrite", 4.0});
const RegisterBenchLine kStatistics({"20,000 statistics, half of them duplicates / 2,000",
                                     "Statistics20000", "Statistics2000", 15.0});

} // namespace
