// Which edges of the controls of the settings pages go along with those of a larger window.
#include "core/locale/MResourceLocale.h"
#include "tests/controls/settings_page/page_session.h"

namespace hx {
namespace {

using Ids = std::set<uint32_t>;

class PageLayout : public PageSession, public testing::WithParamInterface<KindOfPage> {
protected:
    const PageKind& Kind() const override { return kPageKinds[GetParam()]; }
};

INSTANTIATE_TEST_SUITE_P(Each, PageLayout, testing::Values(kMeasurement, kHandheld),
                         [](const auto& page) { return kPageKinds[page.param].name; });

TEST_P(PageLayout, FollowsALargerWindow) {
    const struct {
        std::string edges;  // left, top, right, bottom
        Ids ids;
        Ids of_handheld, of_measurement;
    } kRows[] = {
        {"---b", {6000, 215}, {204, 207, 260}, {261}},
        {"----", {}, {108}, {204, 207, 210, 260, 214}},
        {"--rb", {106, 216}, {}, {}},
        {"l-rb", {276}, {}, {}},
        {"ltrb", {114, 116}, {}, {290}},
        {"l-r-", {115}, {}, {}},
        {"-trb", {277}, {}, {229, 289}},
        {"-t-b", {113, 228}, {206, 210, 224, 225, 253, 269, 275, 282, 283, 285, 286, 287}, {293}},
    };
    constexpr int32_t kWider = 300;
    constexpr int32_t kHigher = 400;
    Begin();
    EXPECT_FALSE(m_page->Create(MResourceLocale::ResourceModule(), Kind().dialog, &Host()));
    const ui::Size size = m_page->TemplateSize();
    const auto bounds_at = [&](int32_t width, int32_t height, uint32_t id) {
        m_page->Move({0, 0, width, height});
        return At(id).Bounds();
    };
    for (const auto& row : kRows) {
        Ids ids = row.ids;
        ids.merge(Ids(GetParam() == kHandheld ? row.of_handheld : row.of_measurement));
        for (const uint32_t id : ids) {
            const ui::Rectangle small = bounds_at(size.width, size.height, id);
            const ui::Rectangle large = bounds_at(size.width + kWider, size.height + kHigher, id);
            const auto edge = [](int32_t moved, int32_t whole, char name) {
                return moved == 0 ? '-' : moved == whole ? name : '?';
            };
            EXPECT_EQ((std::string{edge(large.left - small.left, kWider, 'l'),
                                   edge(large.top - small.top, kHigher, 't'),
                                   edge(large.right - small.right, kWider, 'r'),
                                   edge(large.bottom - small.bottom, kHigher, 'b')}),
                      row.edges)
                << id;
        }
    }
    // Labels of a scale stay at their parts of it.
    const std::vector<uint32_t> scale = GetParam() == kHandheld
                                            ? std::vector<uint32_t>{108, 109, 110, 111, 112}
                                            : std::vector<uint32_t>{293, 292, 291, 290};
    const auto middle = [&](uint32_t id) {
        const ui::Rectangle& bounds = At(id).Bounds();
        return GetParam() == kHandheld ? (bounds.top + bounds.bottom) / 2 : (bounds.left + bounds.right) / 2;
    };
    const int32_t first = middle(scale.front());
    const int32_t length = middle(scale.back()) - first;
    EXPECT_GT(length, kWider);
    const auto steps = static_cast<int32_t>(scale.size()) - 1;
    for (int32_t i = 0; i <= steps; ++i) {
        EXPECT_NEAR(middle(scale[static_cast<size_t>(i)]) - first, length * i / steps, length / 20) << i;
    }
}

}  // namespace
}  // namespace hx
