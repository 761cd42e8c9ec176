#include "display/layout_levels.hpp"

#include <algorithm>

namespace brindle {

void LayoutLevels::enter(int depth) {
    depth_ = depth;
    const auto needed = static_cast<std::size_t>(depth) + 4;  // its words' level and the two below that
    if (levels_.size() < needed) levels_.resize(needed);
    if (sums_.size() <= static_cast<std::size_t>(depth)) sums_.resize(static_cast<std::size_t>(depth) + 1);
    sums_[static_cast<std::size_t>(depth)] =
        (depth > 0 ? sums_[static_cast<std::size_t>(depth) - 1] : 0) + at(depth).moves;
}

// The moves that a moving level has made, REQUIRES: not above the walk. Nearly always asked for the walk's
// level or the two below it.
int LayoutLevels::sum_of_moves(int level) const {
    int sum = sums_[static_cast<std::size_t>(depth_)];
    for (int l = depth_ + 1; l <= level; ++l) sum += at(l).moves;
    return sum;
}

LevelEnd LayoutLevels::end(int level) const {
    const Level &l = at(level);
    if (l.latest < 0 || l.kind != Kind::moving) return l.end;
    const int sum = sum_of_moves(level);
    return {l.end.anchor + sum, l.end.right + sum};
}

// Where a node stands now: its place when it was placed, moved by all its ancestors that the walk is done
// with. Paths to the first ancestor that is not done are shortened as they are walked.
int LayoutLevels::x_of(int i) {
    path_.clear();
    const auto is_done = [&](int n) { return n >= 0 && placed(n).moved != INT_MIN; };
    for (int n = i; is_done(placed(n).up); n = placed(n).up) path_.push_back(n);
    for (auto n = path_.rbegin(); n != path_.rend(); ++n) {
        Placed &p = placed(*n);
        const Placed &up = placed(p.up);
        p.moved_below_up += up.moved + up.moved_below_up;
        p.up = up.up;
    }
    return placed(i).node->x + placed(i).moved_below_up;
}

// No list of the level ends further right. While its texts are in order the last one is the rightmost.
int LayoutLevels::highest_list(const Level &level) {
    if (level.kind == Kind::searched) return level.highest;
    return level.last_list < 0 ? INT_MIN : x_of(level.last_list);
}

void LayoutLevels::place_node(int node, int level, LevelEnd end, bool ends_list) {
    place(level, end, node, false);
    leave_word_behind(level + 1, node);
    if (!ends_list) return;
    Level &l = at(level);
    placed(node).prev_list = l.last_list;
    l.last_list = node;
    l.highest = std::max(l.highest, end.anchor);
}

void LayoutLevels::place_word(int terminal, int level, LevelEnd end) {
    place(level, end, terminal, true);
    leave_word_behind(level + 1, -1);
}

// On a moving level everything stands left of its latest text, and the new text comes right of that.
void LayoutLevels::place(int level, LevelEnd end, int latest, bool is_word) {
    Level &l = at(level);
    const bool in_order = l.kind == Kind::moving || highest_list(l) <= end.anchor;
    l.latest = latest;
    l.is_word = is_word;
    if (in_order) {
        const int sum = sum_of_moves(level);
        l.end = {end.anchor - sum, end.right - sum};
        if (l.kind != Kind::moving) watched_.erase(level);
        l.kind = Kind::moving;
    } else {
        l.end = end;
        if (l.kind != Kind::searched) search_from_now(level, highest_list(l));
    }
}

// A text has come on the level above: if this level's latest text is the word of another terminal there, it
// will not move any more.
void LayoutLevels::leave_word_behind(int level, int terminal) {
    Level &l = at(level);
    if (l.kind != Kind::moving || !l.is_word || l.latest == terminal) return;
    l.end = end(level);
    l.kind = Kind::standing;
    l.candidate = l.last_list;
    if (l.candidate < 0) return;
    l.candidate_x = x_of(l.candidate);
    watched_.insert(level);
}

void LayoutLevels::search_from_now(int level, int highest) {
    Level &l = at(level);
    if (l.kind == Kind::moving) l.end = end(level);
    l.kind = Kind::searched;
    l.highest = highest;
    watched_.insert(level);
}

void LayoutLevels::move_below(int mother, int reach, int delta) {
    const Move move{mother, depth_, delta};
    followed_ = -1;
    for (auto it = watched_.upper_bound(depth_); it != watched_.end() && *it <= reach;) {
        const int level = *it;
        if (at(level).kind == Kind::searched || meets_candidate(level, move)) {
            words_ = follow_definition(level, move);
            followed_ = level;
            if (level < reach) check_level_below(level + 1, words_);
        }
        it = watched_.upper_bound(level);
    }
    at(depth_ + 1).moves += delta;
    at(reach + 1).moves -= delta;
}

// A standing level: true if a list end under the mover stands on the anchor. Otherwise the candidate moves.
bool LayoutLevels::meets_candidate(int level, const Move &move) {
    Level &l = at(level);
    if (l.candidate <= move.mother) return false;
    if (l.candidate_x == l.end.anchor) {
        search_from_now(level, highest_list(l));
        return true;
    }
    l.candidate_x += move.delta;
    while (l.candidate_x > l.end.anchor) {
        l.candidate = placed(l.candidate).prev_list;
        if (l.candidate < 0) {
            watched_.erase(level);
            return false;
        }
        l.candidate_x = x_of(l.candidate) + (l.candidate > move.mother ? move.delta : 0);
    }
    return false;
}

// The terminals one level above whose words on this level move with them, rightmost first.
std::vector<int> LayoutLevels::words_moved_into(int level, const Move &move) const {
    if (level == move.depth + 1) return {};
    if (followed_ == level - 1) return words_;
    const Level &above = at(level - 1);
    const bool moves = above.kind == Kind::moving && !above.is_word &&
                       placed_[static_cast<std::size_t>(above.latest)].node->lex != nullptr;
    return moves ? std::vector<int>{above.latest} : std::vector<int>();
}

// The level's end as the definition moves it: the lists under the mover from right to left, and between them
// the words that move. Returns the terminals at list ends that were met and so move their words.
std::vector<int> LayoutLevels::follow_definition(int level, const Move &move) {
    Level &l = at(level);
    const std::vector<int> words = words_moved_into(level, move);
    std::vector<int> met;
    auto word = words.begin();
    const auto move_words_right_of = [&](int i) {
        for (; word != words.end() && *word > i; ++word) {
            l.end.anchor += move.delta;
            l.end.right += move.delta;
        }
    };
    for (int list = l.last_list; list > move.mother; list = placed(list).prev_list) {
        move_words_right_of(list);
        if (x_of(list) != l.end.anchor) continue;
        l.end.anchor += move.delta;
        l.end.right += move.delta;
        if (placed(list).node->lex) met.push_back(list);
    }
    move_words_right_of(-1);
    if (l.highest != INT_MIN) l.highest += move.delta;
    return met;
}

// A level whose words move otherwise than it expects follows the definition from now on.
void LayoutLevels::check_level_below(int level, const std::vector<int> &words) {
    const Level &l = at(level);
    if (l.kind == Kind::searched) return;
    std::vector<int> expected;
    if (l.kind == Kind::moving && l.is_word) expected.push_back(l.latest);
    if (words != expected) search_from_now(level, l.last_list < 0 ? INT_MIN : x_of(l.last_list));
}

std::vector<int> LayoutLevels::right_edges() const {
    std::vector<int> edges;
    int sum = 0;
    for (const Level &l : levels_) {
        sum += l.moves;
        edges.push_back(l.latest >= 0 && l.kind == Kind::moving ? l.end.right + sum : l.end.right);
    }
    return edges;
}

}  // namespace brindle
