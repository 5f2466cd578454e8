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
        EXPECT_FALSE(second);
        EXPECT_TRUE(first);
    }
    EXPECT_EQ(object.held, 0u);
}

TEST(ComPtr, MovingTakesNoReference) {
    Counted object;
    Pointer first(&object);
    Pointer second = std::move(first);
    Pointer third;
    third = std::move(second);
    EXPECT_EQ(object.taken, 1u);
    EXPECT_EQ(third.get(), &object);
    EXPECT_FALSE(first || second);  // NOLINT: emptied by the move, which is what is checked
    Pointer& same = third;
    third = std::move(same);
    EXPECT_EQ(object.held, 1u);
}

TEST(ComPtr, TransfersKeepTheCount) {
    Counted object;
    object.AddRef();
    Pointer pointer;
    pointer.attach(&object);
    EXPECT_EQ(object.held, 1u);
    EXPECT_EQ(pointer.detach(), &object);
    EXPECT_EQ(object.held, 1u);
    EXPECT_FALSE(pointer);
    pointer.attach(&object);

    IUnknown* out = nullptr;
    EXPECT_EQ(pointer.copy_to(&out), S_OK);
    EXPECT_EQ(out, &object);
    EXPECT_EQ(object.held, 2u);
    EXPECT_EQ(pointer.copy_to(nullptr), E_POINTER);
    Pointer().copy_to(&out);
    EXPECT_EQ(out, nullptr);

    pointer.attach(&object);  // the reference that copy_to gave; the one held before goes
    EXPECT_EQ(object.held, 1u);
    pointer.reset();
    EXPECT_EQ(object.held, 0u);
    pointer.reset();
    EXPECT_EQ(object.held, 0u);
}

TEST(ComPtr, PutReleasesFirst) {
    Counted old_object;
    Counted new_object;
    Pointer pointer(&old_object);
    IUnknown** slot = pointer.put();
    EXPECT_EQ(*slot, nullptr);
    EXPECT_EQ(old_object.held, 0u);
    EXPECT_EQ(new_object.QueryInterface(IID_IUnknown, pointer.put_void()), S_OK);
    EXPECT_EQ(pointer, &new_object);
    pointer.reset();
    EXPECT_EQ(new_object.held, 0u);
}

TEST(ComPtr, QueriesGiveEmptyWhenUnsupported) {
    Counted object;
    const Pointer pointer(&object);
    EXPECT_FALSE(pointer.as<IClassFactory>());
    EXPECT_FALSE(Pointer().as<IUnknown>());
    EXPECT_EQ(object.held, 1u);
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

TEST(ComPtr, ConvertsToTheBaseInterface) {
    Counted object;
    hx::ComPtr<Counted> derived(&object);
    const Pointer copy = derived;
    EXPECT_EQ(object.held, 2u);
    const Pointer moved = std::move(derived);
    EXPECT_EQ(object.held, 2u);
    EXPECT_EQ(copy, moved);
}

// Releases its own last reference again from inside the destructor, through the pointer that is letting go.
struct Reentrant final : IUnknown {
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override {
        ++releases;
        was_empty = was_empty && !*holder;
        holder->reset();
        return 0;
    }
    Pointer* holder = nullptr;
    int releases = 0;
    bool was_empty = true;
};

TEST(ComPtr, IsEmptyBeforeTheObjectHearsOfIt) {
    Reentrant object;
    Pointer pointer(&object);
    object.holder = &pointer;
    pointer.reset();
    EXPECT_EQ(object.releases, 1);
    EXPECT_TRUE(object.was_empty);
}

}  // namespace
