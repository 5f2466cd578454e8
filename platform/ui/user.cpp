#include "platform/ui/user.h"

namespace hx::ui {

bool SetTrackBar(IUser& user, TrackBar& track_bar, int32_t position) {
    return user.Drag(track_bar, position) && user.Drop(track_bar);
}

}  // namespace hx::ui
