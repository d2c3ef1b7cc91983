#include "CATTrace.h"

#include <string>
#include <utility>

namespace
{

DSTrace::Listener& TheListener()
{
    static DSTrace::Listener listener;
    return listener;
}

} // namespace

bool DSTrace::IsHeard()
{
    return static_cast<bool>(TheListener());
}

DSTrace::Listener DSTrace::SetListener(Listener listener)
{
    return std::exchange(TheListener(), std::move(listener));
}

void DSTrace::Write(std::initializer_list<CATDiagnosticPiece> pieces) const
{
    std::string line;
    for (const CATDiagnosticPiece& piece : pieces) {
        piece.AppendTo(line);
    }
    // A copy, so that a listener may take itself off.
    const Listener listener = TheListener();
    listener(m_component, line);
}
