#include "corpus/codeer.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <deque>
#include <functional>
#include <span>
#include <vector>

#include <fmt/format.h>
#include <tsl/robin_map.h>
#include <tsl/robin_set.h>

#include "corpus/word_codes.hpp"
#include "model/error.hpp"
#include "model/output_file.hpp"
#include "model/punctuation.hpp"
#include "model/record_index.hpp"
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
    const Production *production = nullptr;
    const Label *tag = nullptr;
    bool operator==(const TaggedProduction &) const = default;
    std::size_t hash() const { return mix_hash(production, tag); }
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

// A node's production before it is looked up.
struct PlannedProduction {
    const Node *node;
    std::size_t key_begin, key_size;  // in the plan's text
    std::uint32_t hash;
    Production *production;  // once it has been looked up
};

// The productions that will be asked for, in their order.
class Plan {
  public:
    void clear() {
        keys_.clear();
        planned_.clear();
        next_ = 0;
    }

    // Plans the node's production; returns the hash of its key.
    std::uint32_t add(const Node *node) {
        const std::size_t begin = keys_.size();
        keys_ += node->syn->view();
        for (const Node *daughter = node->dtrs; daughter; daughter = daughter->sister)
            (keys_ += '_') += daughter->syn->view();
        const std::string_view key(keys_.data() + begin, keys_.size() - begin);
        const auto h = static_cast<std::uint32_t>(std::hash<std::string_view>()(key) >> 32);
        planned_.push_back({node, begin, key.size(), h, nullptr});
        return h;
    }

    // The next one, if it is that node's.
    const PlannedProduction *take(const Node *node) {
        return next_ < planned_.size() && planned_[next_].node == node ? &planned_[next_++] : nullptr;
    }

    std::span<PlannedProduction> all() { return planned_; }
    std::string_view key_of(const PlannedProduction &planned) const {
        return {keys_.data() + planned.key_begin, planned.key_size};
    }

  private:
    std::string keys_;
    std::vector<PlannedProduction> planned_;
    std::size_t next_ = 0;
};

}  // namespace

struct EncodingRun::Tables {
    OutputFile encoding{".encoding"};
    std::unique_ptr<OutputFile> grammar;

    tsl::robin_map<const Label *, std::string, HashOfAddress> tag_codes;

    std::deque<Production> productions;                            // in order of first use
    RecordIndex<Production> codes_table;                           // by key
    FetchedMap<TaggedProduction, int, HashOf> tagged_productions;  // the number of the tag
    Plan plan;

    WordCodes word_codes;
    std::vector<const LexLink *> links;     // of the words of the tree in hand
    tsl::robin_set<std::string> word_keys;  // those that two words may come to

    TextBuffer lines{encoding};

    Production &production_of(const PlannedProduction &planned);
    Production &production_of(const Node *node);
    void look_up_plan();
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

Production &EncodingRun::Tables::production_of(const PlannedProduction &planned) {
    const std::string_view key = plan.key_of(planned);
    Production *found = codes_table.find(planned.hash, [key](const Production *p) { return p->key == key; });
    if (!found) {
        found = &productions.emplace_back(Production{std::string(key), hash(key)});
        codes_table.insert(found, planned.hash);
    }
    return *found;
}

Production &EncodingRun::Tables::production_of(const Node *node) {
    if (const PlannedProduction *planned = plan.take(node)) return *planned->production;
    plan.clear();
    plan.add(node);
    return production_of(*plan.take(node));
}

// Three rounds, each of which asks memory for what the next one will look at.
void EncodingRun::Tables::look_up_plan() {
    for (const PlannedProduction &planned : plan.all()) codes_table.prefetch_record(planned.hash);
    for (PlannedProduction &planned : plan.all()) {
        planned.production = &production_of(planned);
        fetch_ahead(&planned.production->ranks);
        tagged_productions.prefetch({planned.production, planned.node->sem});
    }
}

void EncodingRun::begin_tree(const Node *root, bool by_rule) {
    Plan &plan = tables_->plan;
    plan.clear();
    tables_->links.clear();
    for (const Node *node = root; node; node = next_shown(node, root, false)) {
        if (node->lexlink) {
            fetch_ahead(node->lex);
            if (!node->sem) continue;
            tables_->word_codes.prefetch(node->lexlink);
            tables_->links.push_back(node->lexlink);
        } else if (by_rule && node->sem && node->dtrs) {
            tables_->codes_table.prefetch_slot(plan.add(node));
        }
    }
    tables_->look_up_plan();
    tables_->word_codes.prefetch_words(tables_->links);
}

std::string EncodingRun::codeer(const Node *node, int tree) {
    Production &production = tables_->production_of(node);
    production.occurs_in(tree);
    const auto [number, is_new] =
        tables_->tagged_productions.insert({&production, node->sem}, production.nr_of_tags);
    const std::string code = letters(*number);
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
