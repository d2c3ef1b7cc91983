#pragma once

#include <csignal>

#include <array>
#include <exception>

/// Keeps Ctrl-C, a closed terminal and requests to end from ending the program in the middle of
/// work that has something to clear away. The work asks now and then whether one came, and then
/// leaves by an exception; whoever holds this then lets the program end as it was told to. Where
/// the work hangs, a second one ends the program at once. One of these lives at a time.
class PostponedEnd
{
public:
    /// Leaves the work that was interrupted.
    class Interrupted : public std::exception
    {
    public:
        const char* what() const noexcept override { return "interrupted"; }
    };

    PostponedEnd();
    /// Ends the program by the signal that came, as if it came now; without one it only gives back
    /// what signals did before.
    ~PostponedEnd();
    PostponedEnd(const PostponedEnd&) = delete;
    PostponedEnd& operator=(const PostponedEnd&) = delete;

    /// Throws Interrupted when one has come.
    void LeaveWhenAsked() const;

private:
    struct Before
    {
        int signal;
        struct sigaction action;
    };
    std::array<Before, 3> m_before;
};
