#include "support/test_corpus.hpp"

#include <fstream>
#include <iterator>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "corpus/reader.hpp"
#include "edit/change.hpp"
#include "model/path.hpp"
#include "stats/verify.hpp"

namespace brindle::test {
namespace {

std::string_view name_of(const Label *label) {
    return label ? label->view() : "-";
}

void write(const Node *node, std::string &out) {
    const bool bare = node->lex() && node->mother();
    if (!bare) out += '(';
    out += node->syn()->view();
    if (node->sem()) out += fmt::format("|{}", node->sem()->view());
    if (node->lex()) out += fmt::format("/{}", node->lex()->view());
    for (const Node *d = node->dtrs(); d; d = d->sister()) {
        out += ' ';
        write(d, out);
    }
    if (!bare) out += ')';
}

template <class T>
T *existing(T *it, std::string_view name) {
    if (it) return it;
    fmt::print(stderr, "nothing is called {}\n", name);
    std::abort();
}

template <class Counted>
std::string counted(std::string_view name, const Counted &c) {
    return fmt::format("{}:{}({})", name, c.count, c.checked_count);
}

std::string contexts(const Corpus &corpus, const Unit *unit) {
    const Contexts &contexts = corpus.statistics->contexts;
    std::string out;
    for (std::uint32_t n = unit->contexts.first; n; n = contexts[n].by_unit.next) {
        const Context &c = contexts[n];
        const Unit &mother = corpus.units[c.mother];
        const std::string name =
            fmt::format("{}|{} {}/{}", name_of(mother.syn), name_of(mother.sem), c.dtr_nr, c.nr_of_dtrs);
        out += (out.empty() ? "" : " ") + counted(name, c);
    }
    return " [" + out + "]";
}

std::string line_of(const Corpus &corpus, const LabelEntry *e) {
    Statistics &statistics = *corpus.statistics;
    const bool is_tag = e->kind == LabelKind::SEM;
    std::string out = fmt::format("{} {}:", static_cast<int>(e->kind), counted(name_of(e->name), *e));
    for (const Unit *u = statistics.first_of(e->pairs); u;
         u = is_tag ? statistics.next_of_tag(u) : statistics.next_of_owner(u))
        out +=
            ' ' +
            (is_tag ? counted(fmt::format("{}/{}", name_of(u->syn), static_cast<int>(u->category_kind())), *u)
                    : counted(name_of(u->sem), *u) + contexts(corpus, u));
    return out + '\n';
}

std::string line_of(const Corpus &corpus, const LexEntry *e) {
    std::string out = fmt::format("0 {}:", counted(name_of(e->name), *e));
    for (const Unit *u = corpus.statistics->first_of(e->units); u; u = corpus.statistics->next_of_owner(u))
        out +=
            ' ' + counted(fmt::format("{}|{}", name_of(u->syn), name_of(u->sem)), *u) + contexts(corpus, u);
    return out + '\n';
}

}  // namespace

TestCorpus::TestCorpus(std::string_view text) {
    try {
        read_trees(*this, text);
    } catch (const FormatError &fault) {
        fmt::print(stderr, "this corpus cannot be read: {}\n{}\n", fault.message, text);
        std::abort();
    }
}

TestCorpus::~TestCorpus() {
    EXPECT_EQ(verify(*this), "");
}

Node *TestCorpus::at(std::string_view path, int t) const {
    return existing(node_at(tree(t).root, path), path);
}

std::optional<std::string> TestCorpus::tag(std::string_view path, std::string_view tag, int t) {
    return set_tag(*this, at(path, t), tag);
}

std::optional<std::string> TestCorpus::category(std::string_view path, std::string_view category, int t) {
    return set_category(*this, at(path, t), category);
}

std::string TestCorpus::text(int t) const {
    std::string out;
    write(tree(t).root, out);
    return out;
}

LabelEntry *TestCorpus::nonterm(std::string_view label) const {
    return existing(statistics->find(label, LabelKind::NONTERM), label);
}
LabelEntry *TestCorpus::term(std::string_view label) const {
    return existing(statistics->find(label, LabelKind::TERM), label);
}
LabelEntry *TestCorpus::sem(std::string_view label) const {
    return existing(statistics->find(label, LabelKind::SEM), label);
}
LexEntry *TestCorpus::word(std::string_view label) const {
    return existing(statistics->find_word(label), label);
}

std::string tables(const Corpus &corpus) {
    std::string out;
    for (const auto &bucket : corpus.statistics->table)
        for (const LabelEntry *e = bucket.first; e; e = e->next) out += line_of(corpus, e);
    for (const auto &bucket : corpus.statistics->lex_table)
        for (const LexEntry *e = bucket.first; e; e = e->next) out += line_of(corpus, e);
    return out;
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
