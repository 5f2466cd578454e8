// Creates an object of each registered class, as a program of somebody else does, and prints the classes'
// names.
#include <algorithm>
#include <iostream>

#include "platform/com/comptr.h"
#include "platform/com/loader.h"
#include "platform/system/utf8.h"

int main() {
    auto entries = hx::ClassLookup()->All();
    std::ranges::sort(entries, {}, &hx::ClassEntry::prog_id);
    bool all_done = !entries.empty();
    for (const hx::ClassEntry& entry : entries) {
        hx::ComPtr<IUnknown> object;
        const HRESULT result =
            CoCreateInstance(entry.clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.put_void());
        std::cout << hx::ToUtf8(entry.prog_id) << (SUCCEEDED(result) ? "" : " cannot be created") << '\n';
        all_done = all_done && SUCCEEDED(result);
    }
    return all_done ? 0 : 1;
}
