// hxcheckscript FILE...: reads resource scripts as the library does. Says where one is broken, in the form
// that editors jump to, and exits with 1; silent if all is well.
#include <cstdio>
#include <string>

#include "platform/module/module.h"
#include "platform/system/utf8.h"

int main(int count, char** arguments) {
    int result = 0;
    for (int i = 1; i < count; ++i) {
        hx::ModuleError error;
        if (hx::LoadResourceModule(hx::FromUtf8(arguments[i]).value_or(L""), error)) continue;
        const std::wstring text = error.resources.text.empty() ? L"cannot be read" : error.resources.text;
        std::fprintf(stderr, "%s:%u: error: %s\n", arguments[i], error.resources.line,
                     hx::ToUtf8(text).c_str());
        result = 1;
    }
    return result;
}
