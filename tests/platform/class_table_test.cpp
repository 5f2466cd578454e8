#include "platform/com/class_table.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <utility>

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
constexpr CLSID CLSID_Missing = hx::MakeGuid("B0000000-0000-0000-0000-0000000000A3");

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

TEST_F(ClassTable, RefusesUnknownClassesAndWhatOnlyTheObjectHas) {
    for (const auto& [clsid, iid] :
         {std::pair(CLSID_Missing, IID_IClassFactory), {CLSID_Answer, IID_IAnswer}}) {
        void* out = &m_classes;
        EXPECT_EQ(m_classes.GetClassObject(clsid, iid, &out), CLASS_E_CLASSNOTAVAILABLE);
        EXPECT_EQ(out, nullptr);
    }
    EXPECT_EQ(m_classes.GetClassObject(CLSID_Answer, IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(ClassTable, CreationFailsCleanly) {
    const auto factory = Factory(CLSID_Answer);
    void* out = &m_classes;
    EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(out, nullptr);
    out = &m_classes;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    out = &m_classes;
    EXPECT_EQ(Factory(CLSID_Throwing)->CreateInstance(nullptr, IID_IUnknown, &out), E_OUTOFMEMORY);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IAnswer, nullptr), E_POINTER);
}

TEST_F(ClassTable, IsBusyWhileAnythingOfItIsHeld) {
    hx::ComPtr<IClassFactory> factory = Factory(CLSID_Answer);
    EXPECT_EQ(Factory(CLSID_Answer), factory) << "one factory per class";
    EXPECT_EQ(factory.as<IUnknown>().as<IClassFactory>(), factory);
    EXPECT_EQ(m_classes.CanUnloadNow(), S_FALSE) << "a factory is held";
    hx::ComPtr<IAnswer> answer;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IAnswer, answer.put_void()), S_OK);
    EXPECT_EQ(answer->Value(), 42);
    factory.reset();
    EXPECT_EQ(m_classes.CanUnloadNow(), S_FALSE) << "an object is held";
    answer.reset();
    EXPECT_EQ(m_classes.CanUnloadNow(), S_OK) << "the table's own factory does not count";
}

TEST_F(ClassTable, IsBusyUntilTheLastLockGoes) {
    const auto lock = [this](BOOL on) { return Factory(CLSID_Answer)->LockServer(on); };
    EXPECT_EQ(lock(FALSE), E_UNEXPECTED);
    EXPECT_EQ(lock(TRUE), S_OK);
    EXPECT_EQ(lock(TRUE), S_OK);
    EXPECT_EQ(lock(FALSE), S_OK);
    EXPECT_EQ(m_classes.CanUnloadNow(), S_FALSE);
    EXPECT_EQ(lock(FALSE), S_OK);
    EXPECT_EQ(m_classes.CanUnloadNow(), S_OK);

    auto first = std::make_unique<hx::ModuleLock>();
    auto second = std::make_unique<hx::ModuleLock>(*first);
    *second = *first;
    first.reset();
    EXPECT_EQ(m_classes.CanUnloadNow(), S_FALSE) << "a lock copied is a lock more";
}

TEST_F(ClassTable, AFactoryHeldOutlivesTheTable) {
    auto classes = std::make_unique<hx::ModuleClasses>(rows);
    hx::ComPtr<IClassFactory> factory;
    EXPECT_EQ(classes->GetClassObject(CLSID_Answer, IID_IClassFactory, factory.put_void()), S_OK);
    classes.reset();
    hx::ComPtr<IAnswer> answer;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IAnswer, answer.put_void()), S_OK);
}

}  // namespace
