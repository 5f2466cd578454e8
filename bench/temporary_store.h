// A registry store on disk for one comparison.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/registry/registry.h"

namespace hx::bench {

// A store in a folder of its own, gone with this.
class TemporaryStore {
public:
    TemporaryStore() {
        std::filesystem::remove_all(m_folder);
        registry = OpenAnew();
    }
    TemporaryStore(const TemporaryStore&) = delete;
    TemporaryStore& operator=(const TemporaryStore&) = delete;
    ~TemporaryStore() {
        registry.reset();
        std::filesystem::remove_all(m_folder);
    }

    std::filesystem::path Folder() const { return m_folder; }
    std::filesystem::path File() const { return m_folder / "machine"; }
    // With a connection of its own.
    std::shared_ptr<IRegistry> OpenAnew() const {
        return OpenRegistryStore(m_folder / "machine", m_folder / "user");
    }

    std::shared_ptr<IRegistry> registry;

private:
    const std::filesystem::path m_folder = std::filesystem::temp_directory_path() / "hxbench_registry";
};

}  // namespace hx::bench
