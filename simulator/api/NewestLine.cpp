#include "simulator/api/NewestLine.h"

#include "simulator/api/ApiObject.h"

namespace hx::simulator {
namespace {

class NewestLine final : public Line {
public:
    void HangUp() override {
        if (const auto newest = ApiObject::Newest()) newest->HangUp();
    }
};

}  // namespace

std::shared_ptr<Line> MakeNewestLine() {
    return std::make_shared<NewestLine>();
}

}  // namespace hx::simulator
