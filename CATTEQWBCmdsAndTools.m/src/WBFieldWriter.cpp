#include "WBFieldWriter.h"

#include "CATWBAllDataBuffer.h"

void WBFieldWriter::Text(std::string_view text)
{
    m_stream.append(text);
    m_stream.push_back('|');
}

void WBFieldWriter::Int(int value)
{
    Text(CATWBAllDataBuffer::toString(value).View());
}

void WBFieldWriter::Real(double value)
{
    Text(CATWBAllDataBuffer::toString(value).View());
}

void WBFieldWriter::NullableText(std::string_view text)
{
    Text(text.empty() ? std::string_view("__null__") : text);
}

std::string_view StripBlanks(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}
