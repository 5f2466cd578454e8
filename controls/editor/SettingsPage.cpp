#include "controls/editor/SettingsPage.h"

#include "platform/com/boundary.h"

namespace hx {

void SettingsPage::ShowFailure() noexcept {
    AtBoundary([&] {
        try {
            throw;
        } catch (const MException& exception) {
            ErrorBox(exception);
        } catch (const std::bad_alloc&) {
            ErrorBox(MException(MErrorOutOfMemory()));
        } catch (...) {
            ErrorBox(MException());
        }
        return S_OK;
    });
}

}  // namespace hx
