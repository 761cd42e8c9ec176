#include "display/layout_levels.hpp"

namespace brindle {
namespace {

std::vector<int> just(int i) {
    return i < 0 ? std::vector<int>() : std::vector{i};
}

}  // namespace

void LayoutLevels::add_node() {
    moves_.push_back({.up = nodes_.back().mother});
    const auto needed = static_cast<std::size_t>(nodes_.back().depth) + 3;  // to the level below its word
    if (levels_.size() < needed) levels_.resize(needed);
}

// The way up leads over ancestors that are closed; it is shortened as it is gone.
int LayoutLevels::x_of(int i) {
    path_.clear();
    for (int n = i; is_closed(moves(n).up); n = moves(n).up) path_.push_back(n);
    for (auto n = path_.rbegin(); n != path_.rend(); ++n) {
        Moves &m = moves(*n);
        const Moves &up = moves(m.up);
        m.by += up.below + up.by;
        m.up = up.up;
    }
    return node(i).x + moves(i).by;
}

LevelEnd LayoutLevels::end(int level) {
    const Level &l = at(level);
    if (l.carrier < 0) return l.end;
    const int x = x_of(l.carrier);
    return {x + l.end.anchor, x + l.end.right};
}

void LayoutLevels::place_word(int terminal, int half) {
    const int level = node(terminal).depth + 1;
    place(level, terminal, half);
    leave_word_behind(level + 1);
}

void LayoutLevels::place_node(int i, int half, bool ends_list) {
    const int level = node(i).depth;
    place(level, i, half);
    if (at(level + 1).carrier != i) leave_word_behind(level + 1);
    if (ends_list) at(level).list_ends.push_back(i);
}

void LayoutLevels::place(int level, int i, int half) {
    Level &l = at(level);
    if (!l.list_ends.empty() && x_of(l.list_ends.back()) > node(i).x) l.out_of_order = true;
    l.carrier = i;
    l.end = {0, half};
    if (l.watched) watched_.erase(level);
    l.watched = false;
    if (l.out_of_order) watch(level);
}

// A text has come on the level above: a word that is the latest text of this one moves on without its end.
void LayoutLevels::leave_word_behind(int level) {
    if (word_carrying(level) >= 0) watch(level);
}

void LayoutLevels::watch(int level) {
    Level &l = at(level);
    l.end = end(level);
    l.carrier = -1;
    l.watched = true;
    watched_.insert(level);
}

void LayoutLevels::close(int mother, int reach, int delta) {
    const int depth = node(mother).depth;
    int done = depth;
    // Of the level done last: the terminals whose words take the end of the next one along.
    std::vector<int> words;
    for (auto it = watched_.upper_bound(depth); delta > 0 && it != watched_.end() && *it <= reach;) {
        const int level = *it;
        if (done < level - 1) words = just(word_carried_by(level - 1));
        words = go_through(level, mother, delta, words);
        done = level;
        if (level < reach && !at(level + 1).watched && words != just(word_carrying(level + 1)))
            watch(level + 1);
        it = at(level).watched ? std::next(it) : watched_.erase(it);
    }
    moves(mother).below = delta;
}

// On a level that is not watched the list that ends in the carrier takes the end along, and no other. Returns
// the carrier if that makes its word take the end of the level below along, else -1.
int LayoutLevels::word_carried_by(int level) {
    const int i = at(level).carrier;
    return i >= 0 && node(i).depth == level && node(i).node->lex() ? i : -1;
}

// The terminal one level above whose word takes the level's end along, if the level is not watched; else -1.
int LayoutLevels::word_carrying(int level) {
    const int i = at(level).carrier;
    return i >= 0 && node(i).depth < level ? i : -1;
}

// A watched level: the lists under the mover by the rule, and between them the words of the given terminals,
// from right to left. Returns the terminals at ends of lists that have taken the level's end along.
std::vector<int> LayoutLevels::go_through(int level, int mother, int delta, const std::vector<int> &words) {
    Level &l = at(level);
    int taken_by = -1;
    std::vector<int> terminals;
    auto word = words.begin();
    const auto take_along = [&] {
        l.end.anchor += delta;
        l.end.right += delta;
    };
    for (auto list = l.list_ends.rbegin(); list != l.list_ends.rend() && *list > mother; ++list) {
        for (; word != words.end() && *word > *list; ++word) take_along();
        if (x_of(*list) != l.end.anchor) continue;
        take_along();
        taken_by = *list;
        if (node(*list).node->lex()) terminals.push_back(*list);
    }
    for (; word != words.end(); ++word) take_along();

    // As long as lists end in order from left to right, all that are right of the end stay there, and from
    // the first one that takes the end along it goes with that one.
    if (l.out_of_order || !words.empty()) return terminals;
    if (taken_by >= 0) {
        l.carrier = taken_by;
        l.end = {0, l.end.right - l.end.anchor};
        l.watched = false;
    } else {
        l.watched = !l.list_ends.empty() && x_of(l.list_ends.front()) <= l.end.anchor;
    }
    return terminals;
}

}  // namespace brindle
