// Google Benchmark of trees on the screen: made trees of 1,000 and 100,000 nodes at their size and fitted,
// turning to trees of 1,000 nodes, and looking for characters that no font has. What is painted is a picture
// in memory of 1200 x 900 pixels, ground and all.
//
//     bench-drawing [Google Benchmark's options]
#include <QGuiApplication>
#include <QImage>
#include <QPalette>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include "base/text.hpp"
#include "corpus/reader.hpp"
#include "drawing/fonts.hpp"
#include "drawing/tree_picture.hpp"
#include "model/corpus.hpp"

namespace {

using namespace brindle;

constexpr QSize screen{1200, 900};

// A bracketing of that many nodes with one to four daughters at each: some dozen categories, every third node
// tagged, words of five to twelve letters of which few are alike.
class MadeTrees {
  public:
    std::string tree(int nodes) {
        std::string text = "( ";
        append(text, nodes);
        return text + " )\n";
    }

    // One that is about as high as wide: 25 lines of daughters downward.
    std::string dense_tree(int nodes) {
        std::string text = "( (C";
        for (int line = 0; line < 25; ++line) {
            for (int n = nodes / 25; n > 1; --n) text += fmt::format(" (C{}|tag{}", below(40), below(300));
            text += " (C|tag/" + word() + ')' + std::string(static_cast<std::size_t>(nodes / 25 - 1), ')');
        }
        return text + ") )\n";
    }

  private:
    int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
    std::string word() {
        std::string word;
        for (int letters = 5 + below(8); letters > 0; --letters) word += static_cast<char>('a' + below(26));
        return word;
    }
    void append(std::string &text, int nodes) {
        text += fmt::format("(C{}", below(40));
        if (below(3) == 0) text += fmt::format("|tag{}(d1)", below(300));
        if (nodes == 1) text += '/' + word();
        for (int left = nodes - 1; left > 0;) {
            const int share = left <= 4 ? 1 : left / (1 + below(4));
            text += ' ';
            append(text, share);
            left -= share;
        }
        text += ')';
    }

    std::mt19937 random_{1};
};

struct Shown {
    explicit Shown(std::string_view text) {
        read_trees(corpus, text);
        picture.lay_out(corpus.tree(0).root, params, true);
    }
    // Paints what a window shows of the tree from the corner.
    void paint(double zoom) {
        QPainter painter(&image);
        painter.fillRect(image.rect(), colours.ground);
        painter.scale(zoom, zoom);
        picture.paint(painter, QRectF(QPointF(), QSizeF(screen) / zoom), colours, true);
    }
    double fitting_zoom() const {
        return std::min(screen.width() / picture.size().width(), screen.height() / picture.size().height());
    }
    int nodes_in_view(double zoom) const {
        int nodes = 0;
        picture.for_each_in(QRectF(QPointF(), QSizeF(screen) / zoom), [&](const PlacedNode &) { ++nodes; });
        return nodes;
    }

    Corpus corpus;
    LayoutParams params;
    TreePicture picture{find_tree_fonts(start_font, LayoutParams().font_scale).value()};
    TreeColours colours = colours_for(QPalette());
    QImage image{screen, QImage::Format_RGB32};
};

enum class Made { wide_1000, dense_1000, wide_100000 };

Shown &made(Made which) {
    static Shown wide_1000(MadeTrees().tree(1000));
    static Shown dense_1000(MadeTrees().dense_tree(1000));
    static Shown wide_100000(MadeTrees().tree(100'000));
    return which == Made::wide_1000 ? wide_1000 : which == Made::dense_1000 ? dense_1000 : wide_100000;
}

// Zoom 0: as much as makes the whole tree fit.
void paint(benchmark::State &state, Made which, double zoom) {
    Shown &tree = made(which);
    if (zoom == 0) zoom = tree.fitting_zoom();
    for (auto _ : state) tree.paint(zoom);
    state.counters["nodes_in_view"] = tree.nodes_in_view(zoom);
    state.counters["zoom"] = zoom;
}
BENCHMARK_CAPTURE(paint, dense_1000, Made::dense_1000, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paint, dense_1000_fitted, Made::dense_1000, 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paint, wide_1000_fitted, Made::wide_1000, 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paint, wide_100000, Made::wide_100000, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paint, wide_100000_fitted, Made::wide_100000, 0)->Unit(benchmark::kMillisecond);

// To each of 100 trees of 1,000 nodes, all of whose words are new: layout, measuring and painting.
void page_turns(benchmark::State &state, std::string (MadeTrees::*make)(int)) {
    MadeTrees trees;
    std::string text;
    for (int t = 0; t < 100; ++t) text += (trees.*make)(1000);
    Shown shown(text);
    std::vector<double> times;
    for (auto _ : state) {
        shown.picture.set_fonts(shown.picture.fonts());  // nothing is measured yet
        for (int t = 0; t < shown.corpus.amount(); ++t) {
            const auto start = std::chrono::steady_clock::now();
            shown.picture.lay_out(shown.corpus.tree(t).root, shown.params, true);
            shown.paint(1);
            const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
            times.push_back(took.count());
        }
    }
    std::ranges::sort(times);
    state.counters["median_ms"] = times[times.size() / 2];
    state.counters["worst_ms"] = times.back();
}
BENCHMARK_CAPTURE(page_turns, wide, &MadeTrees::tree)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(page_turns, dense, &MadeTrees::dense_tree)->Unit(benchmark::kMillisecond);

// The distinct characters of 100,000 labels, 2,000 of them Chinese and one that no font has.
void look_for_missing_characters(benchmark::State &state) {
    std::vector<std::string> labels;
    for (int i = 0; i < 100'000; ++i) {
        const char16_t character = static_cast<char16_t>(0x4e00 + i % 2000);
        labels.push_back(fmt::format("{}x{}", QString(QChar(character)).toStdString(), i));
    }
    labels.emplace_back("\xEE\x80\x80");
    const QFont usual = find_tree_fonts(start_font, 2).value().category;
    for (auto _ : state) {
        CharacterSet set;
        for (const std::string &label : labels) set.add(label);
        benchmark::DoNotOptimize(characters_without_font(set, usual));
    }
}
BENCHMARK(look_for_missing_characters)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    const QGuiApplication application(argc, argv);
    set_text_locale();
    std::setlocale(LC_NUMERIC, "C");
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
