#include "settings/profile/LastReadStatusHelper.h"

namespace hx {
namespace {

std::vector<uint32_t> g_list;

}  // namespace

void LastReadStatusHelper::Append(uint32_t status) {
    g_list.push_back(status);
}

const std::vector<uint32_t>& LastReadStatusHelper::List() {
    return g_list;
}

}  // namespace hx
