#include "corpus/codeer.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <deque>
#include <vector>

#include <fmt/format.h>
#include <tsl/robin_map.h>
#include <tsl/robin_set.h>

#include "corpus/word_codes.hpp"
#include "model/error.hpp"
#include "model/output_file.hpp"
#include "model/traversal.hpp"
#include "stats/tables.hpp"

namespace brindle {
namespace {

// A category with those of its daughters, and how often nodes with any tag had them.
struct Production {
    std::string key;  // the categories, joined by '_'
    std::uint32_t bucket;
    int nr_of_tags = 0;
    int count = 0;
    std::array<int, 10> ranks = {};  // trees of the first occurrences; once full, the last is the latest tree

    void occurs_in(int tree) {
        ++count;
        const auto free = std::find(ranks.begin(), ranks.end() - 1, 0);
        *free = tree;
    }
};

// A tag at a production.
struct TaggedProduction {
    const Production *production;
    const Label *tag;
    bool operator==(const TaggedProduction &) const = default;
    std::size_t hash() const { return mix_hash(production, tag); }
};

// The low bits of addresses are alike, so tables must not use them as they are.
struct HashOfAddress {
    std::size_t operator()(const void *record) const { return mix_hash(record, nullptr); }
};

void append_production(std::string &line, const Production &production) {
    line += fmt::format("{}\t", production.count);
    const std::string &key = production.key;
    const std::size_t mother_end = std::min(key.find('_'), key.size());
    line.append(key, 0, mother_end) += " ->";
    for (std::size_t i = mother_end; i < key.size(); ++i) line += key[i] == '_' ? ' ' : key[i];
    const char *before = "\t";
    for (const int tree : production.ranks) {
        if (tree == 0) break;
        line += fmt::format("{}{}", before, tree);
        before = ", ";
    }
    line += '\n';
}

}  // namespace

struct EncodingRun::Tables {
    OutputFile encoding{".encoding"};
    std::unique_ptr<OutputFile> grammar;

    tsl::robin_map<const Label *, std::string, HashOfAddress> tag_codes;

    std::deque<Production> productions;                                // in order of first use
    tsl::robin_map<std::string_view, Production *> codes_table;        // by key, which lives in `productions`
    tsl::robin_map<TaggedProduction, int, HashOf> tagged_productions;  // the number of the tag
    std::string key;                                                   // room for the one in hand

    WordCodes word_codes;
    tsl::robin_set<std::string> word_keys;  // those that two words may come to

    TextBuffer lines{encoding};

    Production &production_of(const Node *node);
    bool is_listed(const Node *node, std::string_view code);
};

std::string letters(int index) {
    if (index < 26) return std::string(1, static_cast<char>('a' + index));
    std::string text;
    for (int rest = index + 1; rest > 0; rest = (rest - 1) / 26)
        text.insert(text.begin(), static_cast<char>('a' + (rest - 1) % 26));
    return text;
}

EncodingRun::EncodingRun() : tables_(std::make_unique<Tables>()) {
    if (tables_->encoding.ok()) return;
    errno = tables_->encoding.fault();
    system_error_exit(".encoding");
}

EncodingRun::~EncodingRun() = default;

std::string EncodingRun::codeer_old(const Label *tag) {
    std::string &code = tables_->tag_codes[tag];
    if (code.empty()) {
        code = letters(static_cast<int>(tables_->tag_codes.size()) - 1) + 'y';
        tables_->lines << code << '\t' << tag->view() << '\n';
    }
    return code;
}

Production &EncodingRun::Tables::production_of(const Node *node) {
    key.assign(node->syn->view());
    for (const Node *daughter = node->dtrs; daughter; daughter = daughter->sister)
        (key += '_') += daughter->syn->view();
    if (const auto found = codes_table.find(key); found != codes_table.end()) return *found->second;
    productions.push_back({key, hash(key)});
    Production &production = productions.back();
    codes_table[production.key] = &production;
    return production;
}

std::string EncodingRun::codeer(const Node *node, int tree) {
    Production &production = tables_->production_of(node);
    production.occurs_in(tree);
    const auto [tagged, is_new] =
        tables_->tagged_productions.try_emplace({&production, node->sem}, production.nr_of_tags);
    const std::string code = letters(tagged->second);
    if (is_new) {
        ++production.nr_of_tags;
        tables_->lines << production.key << '_' << code << '\t' << node->sem->view() << '\n';
    }
    return code;
}

// Whether another word has come to the key already. Only labels with a '_' can make two words meet.
bool EncodingRun::Tables::is_listed(const Node *node, std::string_view code) {
    const auto has_line = [](const Label *label) {
        return label->view().find('_') != std::string_view::npos;
    };
    if (!has_line(node->syn) && !has_line(node->lex)) return false;
    return !word_keys.insert(fmt::format("{}_{}_{}", node->syn->view(), node->lex->view(), code)).second;
}

void EncodingRun::fetch_ahead_of_codes(const Node *root) const {
    for (const Node *node = root; node; node = next_in_document(node, root)) {
        if (!node->lexlink) continue;
        fetch_ahead(node->lex);
        if (node->sem) tables_->word_codes.prefetch(node->lexlink);
    }
}

std::string EncodingRun::codeerlex(const Node *node) {
    WordCodes::Code &word_code = tables_->word_codes.code_of(node->lexlink, word_entry(node));
    std::string code = letters(static_cast<int>(word_code.index));
    if (!word_code.used) {
        word_code.used = true;
        if (!tables_->is_listed(node, code))
            tables_->lines << node->syn->view() << '_' << node->lex->view() << '_' << code << '\t'
                           << node->sem->view() << '\n';
    }
    return code;
}

void EncodingRun::write_grammar() {
    tables_->grammar = std::make_unique<OutputFile>("underlying_CFG");
    if (!tables_->grammar->ok()) {
        tables_->grammar.reset();
        return;
    }
    std::vector<const Production *> in_order;
    for (const Production &production : tables_->productions) in_order.push_back(&production);
    std::stable_sort(in_order.begin(), in_order.end(),
                     [](const Production *a, const Production *b) { return a->bucket < b->bucket; });
    std::string line;
    for (const Production *production : in_order) {
        line.clear();
        append_production(line, *production);
        tables_->grammar->write(line);
    }
}

bool EncodingRun::complete() {
    return tables_->lines.flush() && tables_->encoding.complete() &&
           (!tables_->grammar || tables_->grammar->complete());
}

bool EncodingRun::commit() {
    return complete() && tables_->encoding.commit() && (!tables_->grammar || tables_->grammar->commit());
}

WriteFault EncodingRun::fault() const {
    if (!tables_->encoding.ok()) return {".encoding", tables_->encoding.error()};
    if (tables_->grammar && !tables_->grammar->ok()) return {"underlying_CFG", tables_->grammar->error()};
    return {};
}

}  // namespace brindle
