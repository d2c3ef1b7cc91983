#include "CATBaseUnknown.h"
#include "CATHandle.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

class Interface
{
public:
    virtual ~Interface() = default;
    virtual int Answer() const = 0;
};

class Counted : public CATBaseUnknown
{
public:
    explicit Counted(int* alive) : m_alive(alive) { ++*m_alive; }
    Counted(const Counted& other) : CATBaseUnknown(other), m_alive(other.m_alive) { ++*m_alive; }
    Counted& operator=(const Counted&) = default;
    ~Counted() override { --*m_alive; }

private:
    int* m_alive;
};

// An object that lives in a larger one: nobody's last reference ends it.
class Part : public CATBaseUnknown
{
public:
    explicit Part(int* released) : m_released(released) { BeginUnheld(); }

private:
    void OnLastRelease() const override { ++*m_released; }

    int* m_released;
};

class Answering : public Counted, public Interface
{
public:
    using Counted::Counted;
    int Answer() const override { return 42; }
};

TEST(CATBaseUnknown, StartsWithOneReferenceAndGoesAwayWithTheLast)
{
    int alive = 0;
    auto* object = new Counted(&alive);
    EXPECT_EQ(object->ReferenceCount(), 1);
    object->AddRef();
    EXPECT_EQ(object->ReferenceCount(), 2);
    object->Release();
    EXPECT_EQ(alive, 1);
    object->Release();
    EXPECT_EQ(alive, 0);
}

TEST(CATBaseUnknown, CopyStartsWithOneReferenceAndAssignmentLeavesTheCount)
{
    int alive = 0;
    auto* object = new Counted(&alive);
    object->AddRef();
    auto* copy = new Counted(*object);
    EXPECT_EQ(copy->ReferenceCount(), 1);
    *copy = *object;
    EXPECT_EQ(copy->ReferenceCount(), 1);
    copy->Release();
    object->Release();
    object->Release();
    EXPECT_EQ(alive, 0);
}

TEST(CATBaseUnknown, ObjectInALargerOneBeginsUnheldAndStaysWhenItIsReleased)
{
    int released = 0;
    Part part(&released);
    EXPECT_EQ(part.ReferenceCount(), 0);
    for (int turn = 1; turn <= 2; ++turn) {
        {
            const CATHandle<Part> handle(&part);
            const CATHandle<Part> other = handle;
            EXPECT_EQ(part.ReferenceCount(), 2);
            EXPECT_EQ(released, turn - 1);
        }
        EXPECT_EQ(part.ReferenceCount(), 0);
        EXPECT_EQ(released, turn);
    }
}

TEST(CATBaseUnknown, NamesItsClass)
{
    const CATBaseUnknown object;
    EXPECT_STREQ(object.ClassName(), "CATBaseUnknown");
}

TEST(CATHandle, SharesAnObjectAndAdoptTakesTheReferenceOver)
{
    int alive = 0;
    auto* object = new Counted(&alive);
    {
        const CATHandle<Counted> adopted = CATHandle<Counted>::Adopt(object);
        EXPECT_EQ(object->ReferenceCount(), 1);
        const CATHandle<Counted> shared(object);
        EXPECT_EQ(object->ReferenceCount(), 2);
        EXPECT_TRUE(shared == adopted);
    }
    EXPECT_EQ(alive, 0);
}

TEST(CATHandle, CopyMoveAndAssignmentKeepTheCountRight)
{
    int alive = 0;
    CATHandle<Counted> first = CATHandle<Counted>::Adopt(new Counted(&alive));
    CATHandle<Counted> second = first;
    EXPECT_EQ(first->ReferenceCount(), 2);
    const CATHandle<Counted> third = std::move(second);
    EXPECT_EQ(first->ReferenceCount(), 2);
    second = CATHandle<Counted>::Adopt(new Counted(&alive));
    EXPECT_EQ(alive, 2);
    second = first;
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(first->ReferenceCount(), 3);
}

TEST(CATHandle, AsksTheObjectForAnotherType)
{
    int alive = 0;
    const CATBaseUnknown_var answering = CATHandle<Answering>::Adopt(new Answering(&alive));
    const CATHandle<Interface> asked = answering;
    ASSERT_TRUE(asked);
    EXPECT_EQ(asked->Answer(), 42);
    const CATBaseUnknown_var plain = CATHandle<Counted>::Adopt(new Counted(&alive));
    EXPECT_TRUE(CATHandle<Interface>(plain).IsNull());
}

TEST(CATHandle, NullHandleRaisesWhenItIsUsed)
{
    const CATHandle<Counted> null;
    EXPECT_TRUE(null.IsNull());
    EXPECT_EQ(null.Get(), nullptr);
    EXPECT_THROW(null->ReferenceCount(), CATNullHandle);
    EXPECT_THROW((*null).ReferenceCount(), CATNullHandle);
    EXPECT_STREQ(CATNullHandle().What(), "a null handle was used");
}

} // namespace
