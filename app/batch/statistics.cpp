#include "app/batch/statistics.hpp"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "app/batch/session.hpp"
#include "model/forest.hpp"
#include "model/traversal.hpp"
#include "stats/tables.hpp"

namespace brindle::batch {
namespace {

using Out = std::back_insert_iterator<std::string>;

// What `info` counts, node by node.
struct TreeCounts {
    long checked_trees = 0, nodes = 0, terminals = 0;
    long depth = 0;  // levels of the deepest tree

    void add(const TreeEntry &tree) {
        checked_trees += tree.checked;
        long level = 1;
        for (const Node *n = tree.root; n;) {
            ++nodes;
            terminals += n->lex != nullptr;
            depth = std::max(depth, level);
            if (n->dtrs) {
                n = n->dtrs;
                ++level;
                continue;
            }
            while (n && !n->sister) n = n->mother, --level;
            if (n) n = n->sister;
        }
    }
};

struct LabelCounts {
    long terminal = 0, nonterminal = 0, tags = 0, words = 0;

    LabelCounts() {
        for (const auto &bucket : table)
            for (const LabelEntry *e = bucket.first; e; e = e->next) count(e);
        for (const auto &bucket : lex_table)
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

void write_parents(Out out, const Parents &parents) {
    for (const ParentRecord *p = parents.first(); p; p = p->next)
        fmt::format_to(out, "parent\t{}\t{}\t{}\t{}\t{}\t{}\n", p->count, p->checked_count, p->dtr_nr,
                       p->nr_of_dtrs, text_of(p->syn), text_of(p->sem));
}

void write_label(Out out, std::size_t bucket, const LabelEntry *e) {
    fmt::format_to(out, "label\t{}\t{}\t{}\t{}\t{}\n", bucket, static_cast<int>(e->kind), e->count,
                   e->checked_count, text_of(e->name));
    for (const LabelLink *l = e->links.first(); l; l = l->next) {
        fmt::format_to(out, "link\t{}\t{}\t{}\t{}\n", l->count, l->checked_count,
                       static_cast<int>(l->label->kind), text_of(l->label->name));
        write_parents(out, l->parents);
    }
}

void write_word(Out out, std::size_t bucket, const LexEntry *e) {
    fmt::format_to(out, "word\t{}\t{}\t{}\t{}\n", bucket, e->count, e->checked_count, text_of(e->name));
    for (const LexLink *l = e->links.first(); l; l = l->next) {
        fmt::format_to(out, "lexlink\t{}\t{}\t{}\t{}\n", l->count, l->checked_count, text_of(l->syn->name),
                       text_of(l->sem->name));
        write_parents(out, l->parents);
    }
}

}  // namespace

int run_info(const Options &options) {
    load(options);
    TreeCounts trees;
    for (const TreeEntry &tree : forest) trees.add(tree);
    const LabelCounts labels;
    std::string text;
    const auto line = [&](std::string_view name, long value) {
        fmt::format_to(std::back_inserter(text), "{}\t{}\n", name, value);
    };
    line("trees", amount);
    line("checked_trees", trees.checked_trees);
    line("nodes", trees.nodes);
    line("terminals", trees.terminals);
    line("nonterminals", trees.nodes - trees.terminals);
    line("terminal_categories", labels.terminal);
    line("nonterminal_categories", labels.nonterminal);
    line("tags", labels.tags);
    line("words", labels.words);
    line("depth", trees.depth);
    return put_out(options, text);
}

std::string tables_text() {
    std::string text;
    const Out out(text);
    for (std::size_t b = 0; b < table.size(); ++b)
        for (const LabelEntry *e = table[b].first; e; e = e->next) write_label(out, b, e);
    for (std::size_t b = 0; b < lex_table.size(); ++b)
        for (const LexEntry *e = lex_table[b].first; e; e = e->next) write_word(out, b, e);
    return text;
}

int run_tables(const Options &options) {
    load(options);
    return put_out(options, tables_text());
}

}  // namespace brindle::batch
