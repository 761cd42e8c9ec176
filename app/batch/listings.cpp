// What tells about a corpus and changes nothing.
#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "app/batch/actions.hpp"
#include "app/batch/session.hpp"
#include "app/batch/shell.hpp"
#include "display/layout.hpp"
#include "edit/bracketing.hpp"
#include "model/path.hpp"
#include "model/traversal.hpp"
#include "prolog/latex.hpp"
#include "stats/statistics.hpp"

namespace brindle::batch {
namespace {

using Out = std::back_insert_iterator<std::string>;

// Levels of the tree.
long levels_of(const Tree &tree) {
    long deepest = 0, level = 1;
    for (const Node *n = tree.root; n;) {
        deepest = std::max(deepest, level);
        if (n->dtrs()) {
            n = n->dtrs();
            ++level;
            continue;
        }
        while (n && !n->sister()) n = n->mother(), --level;
        if (n) n = n->sister();
    }
    return deepest;
}

struct TreeCounts {
    long checked_trees = 0, depth = 0;

    explicit TreeCounts(const Corpus &corpus) {
        for (const Tree &tree : corpus.trees) {
            checked_trees += tree.checked;
            depth = std::max(depth, levels_of(tree));
        }
    }
};

struct NodeCounts {
    long terminal = 0, nonterminal = 0;

    explicit NodeCounts(const Units &units) {
        for (std::uint32_t number = 1; number < units.end(); ++number) {
            const Unit &unit = units[number];
            if (unit.lex)
                terminal += unit.count;
            else if (!unit.terminal)
                nonterminal += unit.count;
        }
    }
};

struct LabelCounts {
    long terminal = 0, nonterminal = 0, tags = 0, words = 0;

    explicit LabelCounts(const Statistics &statistics) {
        for (const auto &bucket : statistics.table)
            for (const LabelEntry *e = bucket.first; e; e = e->next) count(e);
        for (const auto &bucket : statistics.lex_table)
            for (const LexEntry *e = bucket.first; e; e = e->next) ++words;
    }
    void count(const LabelEntry *e) {
        if (e->kind == LabelKind::TERM)
            ++terminal;
        else if (e->kind == LabelKind::NONTERM)
            ++nonterminal;
        else if (e->name)
            ++tags;
    }
};

// The lines of `tables`.
class TableWriter {
  public:
    TableWriter(Corpus &corpus, std::string &text) : statistics_(*corpus.statistics), out_(text) {}

    void write_label(std::size_t bucket, const LabelEntry *e) {
        fmt::format_to(out_, "label\t{}\t{}\t{}\t{}\t{}\n", bucket, static_cast<int>(e->kind), e->count,
                       e->checked_count, text_of(e->name));
        if (e->kind == LabelKind::SEM) {
            for (const Unit *u = statistics_.first_of(e->pairs); u; u = statistics_.next_of_tag(u))
                write_link(u, u->category_kind(), u->syn);
            return;
        }
        for (const Unit *u = statistics_.first_of(e->pairs); u; u = statistics_.next_of_owner(u)) {
            write_link(u, LabelKind::SEM, u->sem);
            write_contexts(u);
        }
    }

    void write_word(std::size_t bucket, const LexEntry *e) {
        fmt::format_to(out_, "word\t{}\t{}\t{}\t{}\n", bucket, e->count, e->checked_count, text_of(e->name));
        for (const Unit *u = statistics_.first_of(e->units); u; u = statistics_.next_of_owner(u)) {
            fmt::format_to(out_, "lexlink\t{}\t{}\t{}\t{}\n", u->count, u->checked_count, text_of(u->syn),
                           text_of(u->sem));
            write_contexts(u);
        }
    }

  private:
    void write_link(const Unit *pair, LabelKind kind, const Label *label) {
        fmt::format_to(out_, "link\t{}\t{}\t{}\t{}\n", pair->count, pair->checked_count,
                       static_cast<int>(kind), text_of(label));
    }

    void write_contexts(const Unit *unit) {
        const Contexts &contexts = statistics_.contexts;
        for (auto number = unit->contexts.first; number; number = contexts[number].by_unit.next) {
            const Context &c = contexts[number];
            const Unit &mother = statistics_.unit(c.mother);
            fmt::format_to(out_, "parent\t{}\t{}\t{}\t{}\t{}\t{}\n", c.count, c.checked_count, c.dtr_nr,
                           c.nr_of_dtrs, text_of(mother.syn), text_of(mother.sem));
        }
    }

    Statistics &statistics_;
    Out out_;
};

}  // namespace

int run_info(const Options &options) {
    const Session session(options);
    const TreeCounts trees(session.corpus);
    const NodeCounts nodes(session.corpus.units);
    const LabelCounts labels(*session.corpus.statistics);
    std::string text;
    const auto line = [&](std::string_view name, long value) {
        fmt::format_to(std::back_inserter(text), "{}\t{}\n", name, value);
    };
    line("trees", session.corpus.amount());
    line("checked_trees", trees.checked_trees);
    line("nodes", nodes.terminal + nodes.nonterminal);
    line("terminals", nodes.terminal);
    line("nonterminals", nodes.nonterminal);
    line("terminal_categories", labels.terminal);
    line("nonterminal_categories", labels.nonterminal);
    line("tags", labels.tags);
    line("words", labels.words);
    line("depth", trees.depth);
    return session.put_out(text);
}

std::string tables_text(Corpus &corpus) {
    std::string text;
    TableWriter writer(corpus, text);
    const Statistics &statistics = *corpus.statistics;
    for (std::size_t b = 0; b < statistics.table.size(); ++b)
        for (const LabelEntry *e = statistics.table[b].first; e; e = e->next) writer.write_label(b, e);
    for (std::size_t b = 0; b < statistics.lex_table.size(); ++b)
        for (const LexEntry *e = statistics.lex_table[b].first; e; e = e->next) writer.write_word(b, e);
    return text;
}

int run_tables(const Options &options) {
    Session session(options);
    return session.put_out(tables_text(session.corpus));
}

// ---------------------------------------------------------------- one tree

int run_latex(const Options &options) {
    Session session(options);
    const int tree = session.tree_index(options.tree);
    Node *node = node_at(session.corpus.tree(tree).root, options.node);
    if (!node) throw UsageError{fmt::format("no node {} in tree {}", options.node, options.tree)};
    for_each_in_subtree(node, [](Node *n) { n->select(true); });
    return session.put_out(latex_document(node, tree, session.corpus.name, options.punctuation));
}

namespace {

constexpr int pixels_a_byte = 8;
constexpr std::string_view sizes[nr_of_font_scales] = {"small", "medium", "default", "large"};

int scale_of(std::string_view size) {
    return static_cast<int>(std::find(std::begin(sizes), std::end(sizes), size) - std::begin(sizes));
}

// An x position, or nothing where there is no text.
std::string position(const Label *label, int x) {
    return label ? std::to_string(x) : std::string();
}

}  // namespace

int run_layout(const Options &options) {
    Session session(options);
    const Tree &tree = session.corpus.tree(session.tree_index(options.tree));
    LayoutParams params;
    choose_font_scale(params, scale_of(options.size));
    ByteMeasure measure(pixels_a_byte);
    const TreeLayout layout = lay_out(tree.root, params, measure, options.punctuation);

    std::string text = fmt::format("tree\t{}\t{}\n", layout.width, layout.height);
    for (const PlacedNode &placed : layout.nodes)
        fmt::format_to(std::back_inserter(text), "node\t{}\t{}\t{}\t{}\t{}\n", path_of(placed.node), placed.x,
                       placed.syn_x, position(placed.node->sem(), placed.sem_x),
                       position(placed.node->lex(), placed.lex_x));
    return session.put_out(text);
}

int run_validate(const Options &options) {
    std::string text;
    if (!take_in(options.corpus, text)) return failed;
    const std::string message = check_bracketing(text);
    if (message.empty()) return done;
    fmt::print(stderr, "{}\n", message);
    return failed;
}

}  // namespace brindle::batch
