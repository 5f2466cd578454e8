#include "simulator/scanner/TrackingState.h"

namespace hx::simulator {

TrackingState::TrackingState(const ScannerModel& its_model) : model(its_model), surface(&Surfaces().front()) {
    profile = ProfileOf(model, model.presets.front());
    UpdateOptics();
}

}  // namespace hx::simulator
