#pragma once
// The sizes by which a window lays trees out, and what its "Tree Size Controls" make of them.
#include <array>

namespace brindle {

// The four sizes kept for each font scale, in pixels.
struct SizeRow {
    int vdist;       // between the baselines of two levels
    int sisterdist;  // between the centres of two neighbouring nodes
    int mindist;     // least gap between two texts of a level
    int line_width;  // of branches; 0: the thinnest line there is
    bool operator==(const SizeRow &) const = default;
};

inline constexpr int nr_of_font_scales = 4;  // "small", "medium", "default", "large"

// A window's layout parameters; a new one holds the start values. Whether punctuation is shown is the
// TreeView's.
struct LayoutParams {
    int vdist = 71;
    int text_gap = 2;  // between a category and its tag, and under a node's text
    int sisterdist = 74;
    int mindist = 16;
    int line_width = 1;
    int font_scale = 2;  // 0..3
    std::array<SizeRow, nr_of_font_scales> size_table{
        {{48, 33, 7, 0}, {60, 56, 12, 0}, {71, 74, 16, 1}, {88, 76, 20, 2}}};
};

// The baseline of the root's category, and what a window leaves free right of and below a tree.
inline constexpr int top_baseline = 25;

// Takes the scale's row and text gap.
void choose_font_scale(LayoutParams &params, int scale);

// What the four sliders of the tree size controls say.
struct SizeSliders {
    int vertical;
    int sister;
    int minimum;
    int thickness;
    bool operator==(const SizeSliders &) const = default;
};

// The sliders that show the current sizes.
SizeSliders size_sliders(const LayoutParams &params);
// The sliders that "Reset" puts in for the scale.
SizeSliders default_size_sliders(int scale);
// "Apply": the sliders' sizes become current, and the current scale's row.
void apply_size_sliders(LayoutParams &params, const SizeSliders &sliders);

}  // namespace brindle
