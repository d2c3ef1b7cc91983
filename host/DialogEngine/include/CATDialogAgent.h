#pragma once

#include "CATCommand.h"
#include "CATPathElement.h"

#include <functional>
#include <vector>

class CATDialogState;

/// Waits for one input of the user. The behaviour word says how; its bit 0x40000 has the agent take
/// several picked objects as one set, at once. Other bits do nothing but are kept.
class WB_EXPORT CATDialogAgent : public CATCommand
{
public:
    static constexpr int kTakesSets = 0x40000;

    explicit CATDialogAgent(const CATString& name, CATCommand* parent = nullptr);
    /// Leaves the states that it waits in.
    ~CATDialogAgent() override;
    /// Empty at every level: an agent has no catalog of its own.
    CATString GetResourceFilename(int level) const override;

    void SetBehaviour(int behaviour) { m_behaviour = behaviour; }
    int Behaviour() const { return m_behaviour; }
    bool IsOutputSet() const { return m_outputSet; }
    /// Forgets the output and waits for the next; called inside the action of the transition that
    /// it caused, it does not start that action again.
    virtual void InitializeAcquisition();

protected:
    void SetOutput(bool isSet) { m_outputSet = isSet; }

private:
    friend class CATDialogState; // keeps m_states

    int m_behaviour = 0;
    bool m_outputSet = false;
    std::vector<CATDialogState*> m_states;
};

/// Waits for picked objects, each as the path that leads to it.
class WB_EXPORT CATPathElementAgent : public CATDialogAgent
{
public:
    explicit CATPathElementAgent(const CATString& name, CATCommand* parent = nullptr);

    /// Takes a pick, in pick order: all of it as a set, or its last object alone, in place of what
    /// was picked before. An empty pick is not taken and changes nothing. True when the output was
    /// set.
    virtual bool Offer(const std::vector<CATPathElement_var>& picked);
    void InitializeAcquisition() override;
    /// The picked path; null when nothing was picked. Of a set, the first.
    CATPathElement_var GetValue() const;
    /// Every picked path, in pick order.
    const std::vector<CATPathElement_var>& GetListOfValues() const { return m_values; }

private:
    std::vector<CATPathElement_var> m_values;
};
