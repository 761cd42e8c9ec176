#include "support/corpus.hpp"

#include <fstream>
#include <iterator>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "corpus/readtrees.hpp"
#include "model/path.hpp"
#include "model/request.hpp"
#include "stats/verify.hpp"

namespace brindle::test {
namespace {

std::string_view name_of(const Label *label) {
    return label ? label->view() : "-";
}
std::string_view name_of(const LabelEntry *entry) {
    return name_of(entry->name);
}

// The elements of a list joined by blanks, each written as its name says.
template <class T, class Name>
std::string join(const T *first, Name &&name) {
    std::string out;
    for (; first; first = first->next)
        out += fmt::format("{}{}:{}({})", out.empty() ? "" : " ", name(first), first->count,
                           first->checked_count);
    return out;
}

void write(const Node *node, std::string &out) {
    const bool bare = node->lex && node->mother;
    if (!bare) out += '(';
    out += node->syn->view();
    if (node->sem) out += fmt::format("|{}", node->sem->view());
    if (node->lex) out += fmt::format("/{}", node->lex->view());
    for (const Node *d = node->dtrs; d; d = d->sister) {
        out += ' ';
        write(d, out);
    }
    if (!bare) out += ')';
}

}  // namespace

void reset_all() {
    reset_request();
    tables_init();
    reset_forest();
}

Corpus::Corpus(std::string_view text) {
    reset_all();
    try {
        read_forest(text, "");
    } catch (const FormatError &fault) {
        fmt::print(stderr, "this corpus cannot be read: {}\n{}\n", fault.message, text);
        std::abort();
    }
}

Corpus::~Corpus() {
    EXPECT_EQ(verify_tables(), "");
    reset_all();
}

Node *Corpus::at(std::string_view path, int t) const {
    Node *node = node_at(tree(t).root, path);
    if (!node) {
        fmt::print(stderr, "no node {} in tree {}\n", path, t);
        std::abort();
    }
    return node;
}

void Corpus::tag(std::string_view path, std::string_view tag, int t) const {
    TreeCheckedScope scope(tree(t));
    new_label(at(path, t), tag, nullptr);
}

void Corpus::category(std::string_view path, std::string_view category, int t) const {
    TreeCheckedScope scope(tree(t));
    change_cat(at(path, t), category, nullptr);
}

std::string Corpus::text(int t) const {
    std::string out;
    write(tree(t).root, out);
    return out;
}

std::string entries(LabelKind kind) {
    std::string out;
    for (const auto &bucket : table)
        for (const LabelEntry *e = bucket.first; e; e = e->next)
            if (e->kind == kind)
                out += fmt::format("{}{}:{}({})", out.empty() ? "" : " ", name_of(e), e->count,
                                   e->checked_count);
    return out;
}

std::string links(const LabelEntry *entry) {
    return join(entry->links.first(), [](const LabelLink *l) { return name_of(l->label); });
}

std::string links(const LexEntry *entry) {
    return join(entry->links.first(),
                [](const LexLink *l) { return fmt::format("{}|{}", name_of(l->syn), name_of(l->sem)); });
}

std::string contexts(const Parents &parents) {
    return join(parents.first(), [](const ParentRecord *r) {
        return fmt::format("{}|{} {}/{}", name_of(r->syn), name_of(r->sem), r->dtr_nr, r->nr_of_dtrs);
    });
}

namespace {

std::string file_beside_source(const std::string &name) {
    std::ifstream file(BRINDLE_SOURCE_DIR "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::string shared_corpus(const std::string &name) {
    return file_beside_source("../shared/corpora/" + name);
}

std::string example(const std::string &name) {
    return file_beside_source("examples/" + name);
}

std::string example_folder() {
    return BRINDLE_SOURCE_DIR "/examples";
}

std::string_view first_trees(std::string_view text, int n) {
    std::size_t at = 0;
    for (; n >= 0 && at != text.npos; --n) at = text.find("\n(", at + 1);
    return text.substr(0, at == text.npos ? at : at + 1);
}

}  // namespace brindle::test
