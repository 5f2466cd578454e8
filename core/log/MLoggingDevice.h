// What a logger writes to. Called by one thread at a time.
#pragma once

#include <string_view>

namespace hx {

class MLoggingDevice {
public:
    virtual ~MLoggingDevice() = default;
    // What every log starts with: which module, which system, when.
    virtual void WriteHeader() = 0;
    // Adds the text as one piece that ends with a line break. False if nothing, or not all of it, was
    // written.
    virtual bool Write(std::wstring_view text) = 0;
};

}  // namespace hx
