#include "display/layout_params.hpp"

namespace brindle {
namespace {

// How much larger vdist is than what the vertical slider shows, for each scale.
constexpr std::array<int, nr_of_font_scales> vertical_offset{23, 27, 33, 45};

constexpr std::array<SizeSliders, nr_of_font_scales> slider_defaults{
    {{25, 33, 7, 1}, {33, 56, 12, 1}, {38, 74, 16, 2}, {43, 76, 20, 3}}};

std::size_t index(int scale) {
    return static_cast<std::size_t>(scale);
}

void take_row(LayoutParams &params, const SizeRow &row) {
    params.vdist = row.vdist;
    params.sisterdist = row.sisterdist;
    params.mindist = row.mindist;
    params.line_width = row.line_width;
}

}  // namespace

void choose_font_scale(LayoutParams &params, int scale) {
    params.font_scale = scale;
    params.text_gap = scale < 2 ? 1 : 2;
    take_row(params, params.size_table[index(scale)]);
}

SizeSliders size_sliders(const LayoutParams &params) {
    return {params.vdist - vertical_offset[index(params.font_scale)], params.sisterdist, params.mindist,
            params.line_width + 1};
}

SizeSliders default_size_sliders(int scale) {
    return slider_defaults[index(scale)];
}

void apply_size_sliders(LayoutParams &params, const SizeSliders &sliders) {
    const std::size_t scale = index(params.font_scale);
    params.size_table[scale] = {sliders.vertical + vertical_offset[scale], sliders.sister, sliders.minimum,
                                sliders.thickness - 1};
    take_row(params, params.size_table[scale]);
}

}  // namespace brindle
