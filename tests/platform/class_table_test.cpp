#include "platform/com/class_table.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>

HX_IID(IAnswer, "B0000000-0000-0000-0000-000000000001")
struct IAnswer : IUnknown {
    virtual int Value() = 0;
};

namespace {

class Answer final : public hx::Implements<Answer, hx::FreeThreaded, IAnswer> {
public:
    int Value() override { return 42; }

private:
    hx::ModuleLock m_lock;
};

constexpr CLSID CLSID_Answer = hx::MakeGuid("B0000000-0000-0000-0000-0000000000A1");
constexpr CLSID CLSID_Throwing = hx::MakeGuid("B0000000-0000-0000-0000-0000000000A2");

HRESULT CreateThrowing(REFIID, void**) {
    throw std::bad_alloc();
}

constexpr hx::ClassRow rows[] = {
    {CLSID_Answer, L"Hx.Answer.1", L"Hx.Answer", L"Answer", L"Answers", L"Both", &hx::CreateObject<Answer>},
    {CLSID_Throwing, L"Hx.Throwing.1", L"", L"Throwing", L"", L"Both", &CreateThrowing},
};

class ClassTable : public testing::Test {
protected:
    hx::ComPtr<IClassFactory> Factory(REFCLSID clsid) {
        hx::ComPtr<IClassFactory> factory;
        EXPECT_EQ(m_classes.GetClassObject(clsid, IID_IClassFactory, factory.put_void()), S_OK);
        return factory;
    }
    // Every test leaves the module idle.
    void TearDown() override { EXPECT_EQ(m_classes.CanUnloadNow(), S_OK); }

    hx::ModuleClasses m_classes{rows};
};

// What every class does for its clients is tested with those of the libraries.
TEST_F(ClassTable, WhatAConstructorThrowsIsACode) {
    void* out = &m_classes;
    EXPECT_EQ(Factory(CLSID_Throwing)->CreateInstance(nullptr, IID_IUnknown, &out), E_OUTOFMEMORY);
    EXPECT_EQ(out, nullptr);
}

TEST_F(ClassTable, ALockCopiedIsALockMore) {
    auto first = std::make_unique<hx::ModuleLock>();
    auto second = std::make_unique<hx::ModuleLock>(*first);
    *second = *first;
    first.reset();
    EXPECT_EQ(m_classes.CanUnloadNow(), S_FALSE);
}

TEST_F(ClassTable, AFactoryHeldOutlivesTheTable) {
    auto classes = std::make_unique<hx::ModuleClasses>(rows);
    hx::ComPtr<IClassFactory> factory;
    EXPECT_EQ(classes->GetClassObject(CLSID_Answer, IID_IClassFactory, factory.put_void()), S_OK);
    classes.reset();
    hx::ComPtr<IAnswer> answer;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IAnswer, answer.put_void()), S_OK);
    EXPECT_EQ(answer->Value(), 42);
}

}  // namespace
