#include "platform/com/implements.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <thread>

#include "platform/com/boundary.h"

HX_IID(IBase, "A0000000-0000-0000-0000-000000000001")
struct IBase : IUnknown {
    virtual int Base() = 0;
};
HX_IID(ILeft, "A0000000-0000-0000-0000-000000000002")
struct ILeft : IBase {
    virtual int Left() = 0;
};
HX_IID(IRight, "A0000000-0000-0000-0000-000000000003")
struct IRight : IBase {
    virtual int Right() = 0;
};
HX_IID(IOther, "A0000000-0000-0000-0000-000000000004")
struct IOther : IUnknown {
    virtual int Other() = 0;
};

namespace {

int g_alive = 0;

// IBase comes along twice and is listed first, before the two that bring it.
class Thing final : public hx::Implements<Thing, hx::FreeThreaded, IBase, ILeft, IRight, IOther> {
public:
    Thing() { ++g_alive; }
    ~Thing() override { --g_alive; }
    int Base() override { return 1; }
    int Left() override { return 2; }
    int Right() override { return 3; }
    int Other() override { return 4; }
};

// Does not list the base of its interface.
struct Narrow final : hx::Implements<Narrow, hx::SingleThreaded, ILeft> {
    int Base() override { return 1; }
    int Left() override { return 2; }
};

TEST(Implements, RefusesEverythingElse) {
    const auto narrow = hx::Make<Narrow>();
    // A base that is not listed, a stranger, none.
    for (const IID& iid : {IID_IBase, IID_IOther, IID_NULL}) {
        void* out = &g_alive;
        EXPECT_EQ(narrow->QueryInterface(iid, &out), E_NOINTERFACE);
        EXPECT_EQ(out, nullptr);
    }
    EXPECT_EQ(narrow->QueryInterface(IID_ILeft, nullptr), E_POINTER);
    EXPECT_EQ(narrow->AddRef(), 2u) << "a refused query took a reference";
    EXPECT_EQ(narrow->Release(), 1u);
}

// Every listed interface answers; identity, symmetry, reflexivity and transitivity, over all pairs.
TEST(Implements, KeepsTheRulesOfQueryInterface) {
    const hx::ComPtr<ILeft> start = hx::Make<Thing>();
    const hx::ComPtr<IUnknown> identity = start.as<IUnknown>();
    const IID ids[] = {IID_IUnknown, IID_IBase, IID_ILeft, IID_IRight, IID_IOther};
    for (const IID& from : ids) {
        hx::ComPtr<IUnknown> first;
        ASSERT_EQ(start.query_to(from, first.put_void()), S_OK);
        EXPECT_EQ(first.as<IUnknown>(), identity);
        for (const IID& to : ids) {
            hx::ComPtr<IUnknown> second;
            hx::ComPtr<IUnknown> back;
            ASSERT_EQ(first.query_to(to, second.put_void()), S_OK);
            ASSERT_EQ(second.query_to(from, back.put_void()), S_OK);
            EXPECT_EQ(back, first);
        }
    }
    EXPECT_EQ(start->AddRef(), 3u) << "a query leaked a reference";
    start->Release();
    EXPECT_EQ(static_cast<void*>(identity.get()), static_cast<void*>(start.as<IBase>().get()))
        << "the first interface listed";
    EXPECT_TRUE(start->Left() == 2 && start.as<IRight>()->Right() == 3 && start.as<IOther>()->Other() == 4);
}

TEST(Implements, CountsAndDiesOnAnyThread) {
    {
        const auto thing = hx::Make<Thing>();
        const auto churn = [&thing] {
            for (int i = 0; i < 20000; ++i) EXPECT_TRUE(thing.as<IOther>().as<IBase>());
        };
        std::thread other(churn);
        churn();
        other.join();
        EXPECT_EQ(thing->AddRef(), 2u);
        thing->Release();
        EXPECT_EQ(g_alive, 1);
    }
    for (int round = 0; round < 200; ++round) {
        hx::ComPtr<Thing> mine = hx::Make<Thing>();
        std::thread other([theirs = mine]() mutable { theirs.reset(); });
        mine.reset();
        other.join();
        ASSERT_EQ(g_alive, 0);
    }
}

// Hands itself around and takes it back before its constructor ends; then the constructor may fail.
class Eager final : public hx::Implements<Eager, hx::SingleThreaded, IOther> {
public:
    explicit Eager(bool fails) {
        const hx::ComPtr<IOther> self(this);
        if (fails) throw std::runtime_error("no");
    }
    int Other() override { return 4; }
};

TEST(Implements, SurvivesBeingHandedAroundByItsConstructor) {
    const auto eager = hx::Make<Eager>(false);
    EXPECT_EQ(eager->AddRef(), 2u);
    eager->Release();
    EXPECT_THROW(hx::Make<Eager>(true), std::runtime_error);
}

TEST(Boundary, TurnsExceptionsIntoCodes) {
    EXPECT_EQ(hx::AtBoundary([] { return DISP_E_OVERFLOW; }), DISP_E_OVERFLOW);
    EXPECT_EQ(hx::AtBoundary([]() -> HRESULT { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_EQ(hx::AtBoundary([]() -> HRESULT { throw std::runtime_error("no"); }), E_FAIL);
    EXPECT_EQ(hx::AtBoundary([]() -> HRESULT { throw hx::FatalComError{E_UNEXPECTED}; }), E_UNEXPECTED);
}

}  // namespace
