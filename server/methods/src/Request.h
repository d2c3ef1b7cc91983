#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// A request cannot be answered; what() is the sentence for the user.
class RequestError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Reads the fields of a request front to back. A missing or wrong field throws RequestError with a
/// sentence that names it.
class Request
{
public:
    explicit Request(std::string_view text) : m_rest(text) {}

    /// A field that must hold something. "__null__" is something.
    std::string_view Text(const char* name);
    /// A field that must be there; it may be empty.
    std::string_view Any(const char* name) { return Next(name); }
    /// A finite number, with either decimal mark.
    double Number(const char* name);
    /// A finite number of at least 0, with either decimal mark.
    double Size(const char* name);
    /// A field that must be there and be empty.
    void Empty(const char* name);
    /// A whole number of at least 0.
    std::int64_t Count(const char* name);
    /// A whole number from 0 to most.
    std::int64_t Choice(const char* name, std::int64_t most);
    bool Flag(const char* name);
    /// That nothing follows but one empty field.
    void End();
    /// Everything that was not read yet, for a reader of another kind of request.
    std::string_view Rest() const { return m_rest; }

private:
    std::string_view Next(const char* name);

    std::string_view m_rest;
};

/// A path longer than any product is deep; a larger count is a mistake and not worth a walk.
constexpr std::int64_t kDeepest = 10000;

/// A date as streams write it: with the delimiter that all clients read.
std::string WireDate(std::string date);

/// The name of a user or of a file, which may hold anything, as a field of an answer or a line of a
/// warning: "?" stands for what would shift the fields or be taken for an error.
std::string WireName(std::string name);

/// Builds an answer, each field followed by "|".
class AnswerText
{
public:
    AnswerText& Add(std::string_view text); // an empty text travels as "__null__"
    AnswerText& Add(const std::string& text) { return Add(std::string_view(text)); }
    AnswerText& Add(const char* text) { return Add(std::string_view(text)); }
    AnswerText& Add(double number); // an unknown number travels as 0
    /// A number that travels as "__null__" where it is unknown.
    AnswerText& AddFigure(double number);
    AnswerText& Add(std::int64_t number);
    AnswerText& Add(std::size_t number) { return Add(static_cast<std::int64_t>(number)); }
    AnswerText& Add(int number) { return Add(std::int64_t{number}); }
    AnswerText& Add(bool flag) { return Add(std::int64_t{flag ? 1 : 0}); }
    std::string Take() { return std::move(m_text); }

private:
    std::string m_text;
};
} // namespace wb
