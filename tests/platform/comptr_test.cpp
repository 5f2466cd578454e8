#include "platform/com/comptr.h"

#include <gtest/gtest.h>

#include "tests/platform/counted.h"

namespace {

using Pointer = hx::ComPtr<IUnknown>;

TEST(ComPtr, EachCopyHoldsOneReference) {
    Counted object;
    {
        const Pointer first(&object);
        EXPECT_EQ(object.held, 1u);
        Pointer second = first;
        EXPECT_EQ(object.held, 2u);
        second = Pointer(&object);
        EXPECT_EQ(object.held, 2u);
        const Pointer& same = second;
        second = same;
        EXPECT_EQ(object.held, 2u);
        second = nullptr;
        EXPECT_EQ(object.held, 1u);
        hx::ComPtr<Counted> derived(&object);
        const Pointer base = derived;
        EXPECT_EQ(object.held, 3u);
        const Pointer moved = std::move(derived);
        EXPECT_EQ(object.held, 3u);
    }
    EXPECT_EQ(object.held, 0u);
}

TEST(ComPtr, MovingTakesNoReference) {
    Counted object;
    Pointer first(&object);
    Pointer second = std::move(first);
    Pointer third;
    third = std::move(second);
    EXPECT_FALSE(first || second);  // NOLINT: emptied by the move, which is what is checked
    EXPECT_EQ(object.taken, 1u);
    Pointer& same = third;
    third = std::move(same);
    EXPECT_EQ(object.held, 1u);
}

TEST(ComPtr, TransfersKeepTheCount) {
    Counted object;
    object.AddRef();
    Pointer pointer;
    pointer.attach(&object);
    EXPECT_EQ(pointer.detach(), &object);
    EXPECT_EQ(object.held, 1u);
    EXPECT_FALSE(pointer);
    pointer.attach(&object);

    IUnknown* out = nullptr;
    EXPECT_EQ(pointer.copy_to(&out), S_OK);
    EXPECT_EQ(out, &object);
    EXPECT_EQ(object.held, 2u);
    pointer.attach(&object);  // the reference that copy_to gave; the one held before goes
    EXPECT_EQ(object.held, 1u);
    EXPECT_EQ(pointer.copy_to(nullptr), E_POINTER);
    Pointer().copy_to(&out);
    EXPECT_EQ(out, nullptr);

    EXPECT_EQ(*pointer.put(), nullptr);
    EXPECT_EQ(object.held, 0u);
    EXPECT_EQ(object.QueryInterface(IID_IUnknown, pointer.put_void()), S_OK);
    pointer.reset();
    pointer.reset();
    EXPECT_EQ(object.held, 0u);
}

TEST(ComPtr, QueriesGiveEmptyWhenUnsupported) {
    Counted object;
    const Pointer pointer(&object);
    EXPECT_FALSE(pointer.as<IClassFactory>() || Pointer().as<IUnknown>());
    EXPECT_EQ(pointer.as<IUnknown>(), pointer);
    void* out = &object;
    EXPECT_EQ(pointer.query_to(IID_IClassFactory, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(pointer.query_to(IID_IUnknown, nullptr), E_POINTER);
    out = &object;
    EXPECT_EQ(Pointer().query_to(IID_IUnknown, &out), E_POINTER);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(object.held, 1u);
}

}  // namespace
