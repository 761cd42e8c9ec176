#include "corpus/node_builder.hpp"

#include <algorithm>
#include <cstring>
#include <new>
#include <span>

#include "corpus/likely_tokens.hpp"

namespace brindle {
namespace {

// So many tokens are asked for at once.
constexpr std::size_t tokens_at_once = 64;

std::uint32_t unit_of(Corpus &corpus, const Token &token) {
    Labels &labels = corpus.labels;
    Label *const syn = labels.intern(token.category);
    Label *const sem = token.tag.empty() ? nullptr : labels.intern(token.tag);
    Label *const lex = token.word.empty() ? nullptr : labels.intern(token.word);
    return corpus.units.number_of(corpus.units.intern(syn, sem, lex));
}

// For parse_node: what both ways of reading do with a node.
struct FlatBuilder {
    FlatTree &tree;
    const char *end;

    void open() const { tree.open(); }
    void close() const { tree.close(); }
    void leaf() const { tree.leaf(); }
};

struct ExactBuilder : FlatBuilder {
    Corpus &corpus;

    const char *skip(const char *p) const { return skip_blanks(p, end); }
    const char *add(const char *p, bool bracketed, bool &has_word, SyntaxFault &fault) const {
        Token token;
        fault = parse_token(p, end, bracketed, BracketedWords::allowed, token);
        if (fault.kind != FaultKind::none) return nullptr;
        tree.add(p, 0, bracketed).unit = unit_of(corpus, token);
        has_word = !token.word.empty();
        return token.end;
    }
};

// Finds the tokens where they probably are.
struct LikelyBuilder : FlatBuilder {
    const KnownTokens &known;

    const char *skip(const char *p) const { return likely_start(p, end); }
    const char *add(const char *p, bool bracketed, bool &, SyntaxFault &fault) const {
        const char *const behind = likely_end(p, end);
        if (behind == end) {
            fault = {FaultKind::end_in_label, behind};
            return nullptr;
        }
        const std::string_view text(p, behind);
        FlatNode &flat = tree.add(p, static_cast<std::uint32_t>(text.size()), bracketed);
        flat.hash = text_hash(text);
        known.fetch_slot(flat.hash);
        return behind;
    }
};

}  // namespace

void KnownTokens::add(std::string_view text, std::uint32_t hash, std::uint32_t unit) {
    const std::size_t bytes = sizeof(KnownToken) + text.size() + 7;
    const std::uint32_t number = memory_.add(static_cast<std::uint32_t>(bytes / sizeof(std::uint64_t)));
    auto *const token = new (&memory_[number]) KnownToken{unit, static_cast<std::uint32_t>(text.size())};
    std::memcpy(reinterpret_cast<char *>(token + 1), text.data(), text.size());
    index_.insert(number, hash);
}

SyntaxFault NodeBuilder::read(const char *&p, const char *end, int tree) {
    const char *behind = p;
    tree_.clear();
    LikelyBuilder builder{{tree_, end}, known_};
    if (parse_node(behind, end, builder).kind != FaultKind::none || !find_units(end))
        return read_exactly(p, end, tree);
    p = behind;
    make_nodes(tree);
    return {};
}

SyntaxFault NodeBuilder::read_exactly(const char *&p, const char *end, int tree) {
    tree_.clear();
    ExactBuilder builder{{tree_, end}, corpus_};
    const SyntaxFault fault = parse_node(p, end, builder);
    if (fault.kind == FaultKind::none) make_nodes(tree);
    return fault;
}

// Finds the units of the likely tokens. False: the tree is another than was thought, or is at fault.
bool NodeBuilder::find_units(const char *end) {
    const std::span<FlatNode> nodes(tree_.nodes);
    for (std::size_t from = 0; from < nodes.size(); from += tokens_at_once) {
        const auto some = nodes.subspan(from, std::min(tokens_at_once, nodes.size() - from));
        new_tokens_.clear();
        std::array<std::uint32_t, tokens_at_once> likely;
        for (std::size_t i = 0; i < some.size(); ++i) likely[i] = known_.fetch_token(some[i].hash);
        for (std::size_t i = 0; i < some.size(); ++i) {
            FlatNode &flat = some[i];
            flat.unit = known_.find({flat.token, flat.size}, flat.hash, likely[i]);
            if (flat.unit)
                fetch_ahead(&corpus_.units[flat.unit].terminal);
            else if (!parse_new_token(flat, end))
                return false;
        }
        make_units();
    }
    return std::ranges::none_of(nodes, [&](const FlatNode &flat) {
        return flat.nr_of_dtrs > 0 && corpus_.units[flat.unit].terminal;
    });
}

bool NodeBuilder::parse_new_token(FlatNode &flat, const char *end) {
    const char *const p = flat.token;
    if (skip_blanks(p, end) != p) return false;
    Token token;
    if (parse_token(p, end, flat.bracketed, BracketedWords::allowed, token).kind != FaultKind::none)
        return false;
    NewToken made{flat, {}};
    const std::array<std::string_view, 3> texts{token.category, token.tag, token.word};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        made.labels[i] = {texts[i], text_hash(texts[i]), nullptr};
        corpus_.labels.fetch_slot(made.labels[i].hash);
    }
    new_tokens_.push_back(made);
    return token.end == p + flat.size;
}

// The units of new tokens; each step asks memory for what the next one looks at. A token that begins with a
// mark means one thing in brackets and another without, so it never becomes known.
void NodeBuilder::make_units() {
    Labels &labels = corpus_.labels;
    Units &units = corpus_.units;
    for (const NewToken &token : new_tokens_)
        for (const NewLabel &label : token.labels) labels.fetch_label(label.hash);
    for (NewToken &token : new_tokens_) {
        for (NewLabel &label : token.labels)
            if (!label.text.empty()) label.label = labels.intern(label.text, label.hash);
        const auto &[syn, sem, lex] = token.labels;
        units.fetch_slots(syn.label, sem.label, lex.label);
    }
    for (const auto &[flat, parts] : new_tokens_)
        units.fetch_pair(parts[0].label, parts[1].label, parts[2].label);
    for (const auto &[flat, parts] : new_tokens_) {
        const Unit *const unit = units.intern(parts[0].label, parts[1].label, parts[2].label);
        flat.unit = units.number_of(unit);
        if (*flat.token != START_SEM_TAG && *flat.token != START_LEX_TAG)
            known_.add({flat.token, flat.size}, flat.hash, flat.unit);
    }
}

void NodeBuilder::make_nodes(int tree) {
    for (FlatNode &flat : tree_.nodes) {
        Node *const node = flat.node = corpus_.nodes.make();
        node->set_unit(&corpus_.units[flat.unit]);
        node->set_tree(tree);
        node->set_position(flat.position);
        node->set_nr_of_dtrs(flat.nr_of_dtrs);
        if (flat.mother == FlatNode::none) continue;
        Node *const mother = tree_.nodes[flat.mother].node;
        node->set_mother(mother);
        if (flat.left == FlatNode::none)
            mother->set_dtrs(node);
        else
            tree_.nodes[flat.left].node->set_sister(node);
    }
}

}  // namespace brindle
