#include "corpus/codeer.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <deque>
#include <vector>

#include <fmt/format.h>
#include <tsl/robin_map.h>
#include <tsl/robin_set.h>

#include "base/error.hpp"
#include "base/output_file.hpp"
#include "model/punctuation.hpp"
#include "stats/statistics.hpp"

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

// A tag's number at a production.
struct TaggedProduction {
    const Production *production;
    const Label *tag;
    bool operator==(const TaggedProduction &) const = default;
};
struct TaggedProductionHash {
    std::size_t operator()(const TaggedProduction &key) const {
        return mix_hash(reinterpret_cast<std::uintptr_t>(key.production),
                        reinterpret_cast<std::uintptr_t>(key.tag));
    }
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

// The code of a unit with a word: the number of its tag among those of the word and the category.
struct WordCode {
    int number = -1;    // -1: not known yet
    bool used = false;  // some node has had it
};

// The node's category and those of its daughters.
std::string key_of(const Node *node) {
    std::string key(node->syn()->view());
    for (const Node *daughter = node->dtrs(); daughter; daughter = daughter->sister())
        (key += '_') += daughter->syn()->view();
    return key;
}

}  // namespace

struct EncodingRun::Tables {
    explicit Tables(Corpus &c) : corpus(c) {}

    Corpus &corpus;
    OutputFile encoding{".encoding"};
    std::unique_ptr<OutputFile> grammar;

    tsl::robin_map<const Label *, std::string> tag_codes;

    std::deque<Production> productions;  // in order of first use
    tsl::robin_map<std::string_view, Production *> production_of_key;
    tsl::robin_map<TaggedProduction, int, TaggedProductionHash> tagged_productions;

    std::vector<WordCode> word_codes;       // by the unit's number
    tsl::robin_set<std::string> word_keys;  // those that two words may come to

    TextBuffer lines{encoding};

    Production &production_of(const Node *node);
    WordCode &word_code_of(const Node *node);
    void number_tags_of(const LexEntry *word);
    bool is_listed(const Node *node, std::string_view code);
};

std::string letters(int index) {
    if (index < 26) return std::string(1, static_cast<char>('a' + index));
    std::string text;
    for (int rest = index + 1; rest > 0; rest = (rest - 1) / 26)
        text.insert(text.begin(), static_cast<char>('a' + (rest - 1) % 26));
    return text;
}

EncodingRun::EncodingRun(Corpus &corpus) : tables_(std::make_unique<Tables>(corpus)) {
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
    std::string key = key_of(node);
    const auto found = production_of_key.find(key);
    if (found != production_of_key.end()) return *found->second;
    const std::uint32_t bucket = hash(key);
    Production &production = productions.emplace_back(Production{std::move(key), bucket});
    production_of_key.emplace(production.key, &production);
    return production;
}

std::string EncodingRun::codeer(const Node *node, int tree) {
    Production &production = tables_->production_of(node);
    production.occurs_in(tree);
    const auto [number, is_new] = tables_->tagged_productions.emplace(
        TaggedProduction{&production, node->sem()}, production.nr_of_tags);
    const std::string code = letters(number->second);
    if (is_new) {
        ++production.nr_of_tags;
        tables_->lines << production.key << '_' << code << '\t' << node->sem()->view() << '\n';
    }
    return code;
}

// Whether another word has come to the key already. Only labels with a '_' can make two words meet.
bool EncodingRun::Tables::is_listed(const Node *node, std::string_view code) {
    const auto has_line = [](const Label *label) {
        return label->view().find('_') != std::string_view::npos;
    };
    if (!has_line(node->syn()) && !has_line(node->lex())) return false;
    return !word_keys.insert(fmt::format("{}_{}_{}", node->syn()->view(), node->lex()->view(), code)).second;
}

// The word's tags in each category, numbered as they stand in its list.
void EncodingRun::Tables::number_tags_of(const LexEntry *word) {
    Statistics &statistics = *corpus.statistics;
    tsl::robin_map<const Label *, int> numbers;
    for (const Unit *unit = statistics.first_of(word->units); unit; unit = statistics.next_of_owner(unit))
        if (unit->sem) word_codes[statistics.number_of(unit)].number = numbers[unit->syn]++;
}

WordCode &EncodingRun::Tables::word_code_of(const Node *node) {
    const std::uint32_t number = corpus.units.number_of(node->unit());
    if (number >= word_codes.size()) word_codes.resize(corpus.units.end());
    if (word_codes[number].number < 0) number_tags_of(corpus.statistics->word_entry(node->unit()));
    if (word_codes[number].number < 0) fault_in_hashtable();
    return word_codes[number];
}

std::string EncodingRun::codeerlex(const Node *node) {
    WordCode &word_code = tables_->word_code_of(node);
    std::string code = letters(word_code.number);
    if (!word_code.used) {
        word_code.used = true;
        if (!tables_->is_listed(node, code))
            tables_->lines << node->syn()->view() << '_' << node->lex()->view() << '_' << code << '\t'
                           << node->sem()->view() << '\n';
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
