#include "KeptSums.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <vector>

namespace wb
{
namespace
{
/// Bytes of another form, of an earlier program, are no sum.
constexpr std::int64_t kForm = 1;

/// Puts numbers and texts one behind the other, in the form in which memory holds them.
class Writer
{
public:
    void Field(double number) { Raw(&number, sizeof number); }
    void Field(std::int64_t number) { Raw(&number, sizeof number); }
    void Field(bool flag) { Field(std::int64_t{flag ? 1 : 0}); }
    void Field(Dimension dimension) { Field(static_cast<std::int64_t>(dimension)); }
    void Field(const std::string& text)
    {
        Field(static_cast<std::int64_t>(text.size()));
        m_bytes += text;
    }
    template <typename Item, typename Write>
    void List(const std::vector<Item>& items, const Write& write)
    {
        Field(static_cast<std::int64_t>(items.size()));
        for (const Item& item : items) {
            write(item);
        }
    }
    std::string Take() { return std::move(m_bytes); }

private:
    void Raw(const void* number, std::size_t size)
    {
        m_bytes.append(static_cast<const char*>(number), size);
    }

    std::string m_bytes;
};

/// Reads what a Writer wrote. Where the bytes end early everything else is 0 and empty.
class Reader
{
public:
    explicit Reader(std::string_view bytes) : m_bytes(bytes) {}

    void Field(double& number) { Raw(&number, sizeof number); }
    void Field(std::int64_t& number) { Raw(&number, sizeof number); }
    void Field(bool& flag)
    {
        std::int64_t number = 0;
        Field(number);
        flag = number != 0;
    }
    void Field(Dimension& dimension)
    {
        std::int64_t number = 0;
        Field(number);
        dimension = number == 2 ? Dimension::Surface : Dimension::Volume;
    }
    void Field(std::string& text)
    {
        const std::size_t size = Count(1);
        text = m_bytes.substr(0, size);
        m_bytes.remove_prefix(size);
    }
    template <typename Item, typename Read>
    void List(std::vector<Item>& items, const Read& read)
    {
        items.resize(Count(sizeof(double)));
        for (Item& item : items) {
            read(item);
        }
    }
    bool IsWhole() const { return m_isGood && m_bytes.empty(); }

private:
    void Raw(void* number, std::size_t size)
    {
        m_isGood = m_isGood && m_bytes.size() >= size;
        if (m_isGood) {
            std::memcpy(number, m_bytes.data(), size);
            m_bytes.remove_prefix(size);
        }
    }
    /// A count of items of at least so many bytes each; 0 where there are not as many.
    std::size_t Count(std::size_t bytesEach)
    {
        std::int64_t count = 0;
        Field(count);
        m_isGood =
            m_isGood && count >= 0 && static_cast<std::size_t>(count) <= m_bytes.size() / bytesEach;
        return m_isGood ? static_cast<std::size_t>(count) : 0;
    }

    std::string_view m_bytes;
    bool m_isGood = true;
};

/// All fields in their order, for either direction; shared errors hold rows for nodes.
template <typename Stream, typename Sum, typename Row>
void Fields(Stream& stream, Sum& sum, const Row& row)
{
    for (auto* body : {&sum.firm, &sum.taken, &sum.loose}) {
        stream.Field(body->mass);
        stream.Field(body->lower);
        stream.Field(body->upper);
        for (auto& coordinate : body->centre) {
            stream.Field(coordinate);
        }
        for (auto& term : body->inertia) {
            stream.Field(term);
        }
    }
    stream.Field(sum.hasApart);
    stream.Field(sum.massMissing);
    stream.Field(sum.counts.leaves);
    stream.Field(sum.counts.withoutMass);
    stream.Field(sum.counts.massWithoutCentre);
    stream.Field(sum.counts.massWithoutInertia);
    stream.List(sum.materials, [&](auto& share) {
        stream.Field(share.material);
        stream.Field(share.dimension);
        stream.Field(share.density);
        stream.Field(share.mass);
    });
    for (auto* shares : {&sum.massTypes, &sum.codes}) {
        stream.List(*shares, [&](auto& share) {
            stream.Field(share.name);
            stream.Field(share.mass);
        });
    }
    stream.Field(sum.withoutCode);
    stream.Field(sum.growthAllowance);
    stream.List(sum.sharedErrors, [&](auto& shared) {
        row(shared);
        stream.Field(shared.sum.lower);
        stream.Field(shared.sum.upper);
    });
    for (auto* squares : {&sum.ownSquares, &sum.apartSquares}) {
        stream.Field(squares->lower);
        stream.Field(squares->upper);
    }
}

/// Shares are sorted, and what is no number has no place in an order.
bool HasOrder(const KeptSum& sum)
{
    const auto isNumber = [](const auto& share) {
        return std::isfinite(share.mass);
    };
    return std::ranges::all_of(sum.materials, isNumber) &&
           std::ranges::all_of(
               sum.materials, [](double density) { return std::isfinite(density); },
               &MaterialShare::density) &&
           std::ranges::all_of(sum.massTypes, isNumber) && std::ranges::all_of(sum.codes, isNumber);
}

std::string PrecisionText(const ComputeOptions& options)
{
    switch (options.precision) {
    case ComputeOptions::Precision::Active:
        return "Active";
    case ComputeOptions::Precision::MostPrecise:
        return "MostPrecise";
    case ComputeOptions::Precision::Specified:
        break;
    }
    return options.massType; // never one of the other two
}
} // namespace

std::string SumKey(const ComputeOptions& options)
{
    return "sum|" + PrecisionText(options);
}

std::string AnswerKey(const ComputeOptions& options)
{
    std::string key = "answer|" + PrecisionText(options);
    if (!options.filter.IsEmpty()) {
        key += "|" + options.filter.name; // the warnings name it
    }
    for (const Filter::Line& line : options.filter.lines) {
        key += std::string("|") + (line.in ? "I|" : "X|") + line.instance + "|" + line.part + "|" +
               line.version + "|" + std::to_string(line.path.size());
        for (const std::string& instance : line.path) {
            key += "|" + instance;
        }
    }
    return key;
}

std::string WriteSum(const KeptSum& sum, const std::function<RowId(std::uint32_t node)>& rowOf)
{
    Writer writer;
    writer.Field(kForm);
    Fields(writer, sum, [&](const KeptSum::SharedErrors& shared) {
        writer.Field(std::int64_t{rowOf(shared.node)});
    });
    return writer.Take();
}

std::optional<KeptSum> ReadSum(std::string_view bytes,
                               const std::function<std::uint32_t(RowId row)>& nodeOf)
{
    Reader reader(bytes);
    std::int64_t form = 0;
    reader.Field(form);
    if (form != kForm) {
        return std::nullopt;
    }
    KeptSum sum;
    Fields(reader, sum, [&](KeptSum::SharedErrors& shared) {
        RowId row = 0;
        reader.Field(row);
        shared.node = nodeOf(row);
    });
    return reader.IsWhole() && HasOrder(sum) ? std::optional(std::move(sum)) : std::nullopt;
}

std::string WriteTexts(const KeptTexts& texts)
{
    Writer writer;
    writer.Field(kForm);
    writer.Field(texts.answer);
    writer.Field(texts.warnings);
    return writer.Take();
}

std::optional<KeptTexts> ReadTexts(std::string_view bytes)
{
    Reader reader(bytes);
    std::int64_t form = 0;
    KeptTexts texts;
    reader.Field(form);
    reader.Field(texts.answer);
    reader.Field(texts.warnings);
    return form == kForm && reader.IsWhole() ? std::optional(std::move(texts)) : std::nullopt;
}
} // namespace wb
