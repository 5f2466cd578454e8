// A registry of a test's own, in memory, as that of the process while the test runs.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string_view>

#include "platform/registry/registry.h"

// Lets everything be read and nothing be written, as the machine's store does for most users.
class ReadOnlyRegistry : public hx::IRegistry {
public:
    using Root = hx::RegistryRoot;
    using Result = hx::RegistryResult;

    explicit ReadOnlyRegistry(std::shared_ptr<IRegistry> store) : m_store(std::move(store)) {}

    Result OpenKey(Root root, std::wstring_view path, hx::RegistryAccess access) override {
        return access == hx::RegistryAccess::kRead ? m_store->OpenKey(root, path, access)
                                                   : Result::kAccessDenied;
    }
    Result CreateKey(Root, std::wstring_view) override { return Result::kAccessDenied; }
    Result DeleteKey(Root, std::wstring_view) override { return Result::kAccessDenied; }
    Result QueryValue(Root root, std::wstring_view path, std::wstring_view name,
                      hx::RegistryValue& value) override {
        return m_store->QueryValue(root, path, name, value);
    }
    Result SetValue(Root, std::wstring_view, std::wstring_view, const hx::RegistryValue&) override {
        return Result::kAccessDenied;
    }
    Result DeleteValue(Root, std::wstring_view, std::wstring_view) override { return Result::kAccessDenied; }
    Result ListKeys(Root root, std::wstring_view path, std::vector<std::wstring>& names) override {
        return m_store->ListKeys(root, path, names);
    }
    Result ListValues(Root root, std::wstring_view path,
                      std::vector<hx::NamedRegistryValue>& values) override {
        return m_store->ListValues(root, path, values);
    }

private:
    std::shared_ptr<IRegistry> m_store;
};

class WithMemoryRegistry : public testing::Test {
protected:
    static constexpr auto kUserRoot = hx::RegistryRoot::kCurrentUser;
    static constexpr auto kMachineRoot = hx::RegistryRoot::kLocalMachine;

    void SetUp() override { hx::SetRegistry(m_registry); }
    void TearDown() override { hx::SetRegistry(nullptr); }

    // From now on.
    void RefuseWrites() { hx::SetRegistry(std::make_shared<ReadOnlyRegistry>(m_registry)); }

    bool HasKey(hx::RegistryRoot root, std::wstring_view path) const {
        return m_registry->OpenKey(root, path, hx::RegistryAccess::kRead) == hx::RegistryResult::kDone;
    }
    // What lies in the store itself, whoever wrote it.
    std::optional<hx::RegistryValue> Stored(hx::RegistryRoot root, std::wstring_view path,
                                            std::wstring_view name) const {
        hx::RegistryValue value;
        if (m_registry->QueryValue(root, path, name, value) != hx::RegistryResult::kDone) return {};
        return value;
    }
    void Store(hx::RegistryRoot root, std::wstring_view path, std::wstring_view name,
               const hx::RegistryValue& value) const {
        ASSERT_EQ(m_registry->CreateKey(root, path), hx::RegistryResult::kDone);
        ASSERT_EQ(m_registry->SetValue(root, path, name, value), hx::RegistryResult::kDone);
    }

    std::shared_ptr<hx::IRegistry> m_registry = hx::MakeMemoryRegistry();
};
