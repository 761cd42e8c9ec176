#pragma once
// Makes the nodes of a corpus out of a text, for parse_node (corpus/grammar.hpp).
#include <array>
#include <span>
#include <string_view>
#include <vector>

#include "base/hash_index.hpp"
#include "corpus/grammar.hpp"
#include "model/corpus.hpp"

namespace brindle {

// The units of tokens that have come before, by their whole texts.
class KnownTokens {
  public:
    KnownTokens() : memory_(Pages::huge) {}

    struct KnownToken {
        Unit *unit;
        std::uint32_t size;
        bool has_word;
        const char *text() const { return reinterpret_cast<const char *>(this + 1); }
    };

    // The token; null: it has not come before. Good until the next call of add.
    const KnownToken *find(std::string_view text, std::uint32_t hash) const {
        const std::uint32_t number = index_.find(hash, [&](std::uint32_t n) {
            return at(n)->size == text.size() && same_text(text, at(n)->text());
        });
        return number ? at(number) : nullptr;
    }
    void add(std::string_view text, std::uint32_t hash, Unit *unit);
    // Ask memory for what find will look at: first the slot, some time later the token that it names.
    void fetch_slot(std::uint32_t hash) const { index_.fetch_slot(hash); }
    void fetch_token(std::uint32_t hash) const { fetch_ahead(at(index_.guess(hash))); }

  private:
    const KnownToken *at(std::uint32_t number) const {
        return reinterpret_cast<const KnownToken *>(&memory_[number]);
    }

    GrowingArray<std::uint64_t> memory_;  // a token's number is that of its first word of memory
    HashIndex index_;
};

// Most tokens of a corpus have come before, so a token's unit is looked up by its whole text; only a new one
// is taken apart. And as most looks would wait for memory, the tokens that will probably follow are sought a
// few ahead, and what looking them up needs is asked for: so a builder reads parts of one text only, from its
// start to its end.
class NodeBuilder {
  public:
    explicit NodeBuilder(Corpus &corpus) : corpus_(corpus) {}

    // Reads one node with everything below it from p on, and leaves p behind it. Its nodes belong to that
    // tree (0-based), their labels are not counted. On a fault nothing is left of it.
    SyntaxFault read(const char *&p, const char *end, int tree);
    // The top of what was read last, and all its nodes in the order in which they were complete.
    Node *top() const { return completed_.back(); }
    std::span<Node *const> completed() const { return completed_; }

    // For parse_node.
    const char *add(const char *p, bool bracketed, bool &has_word, SyntaxFault &fault);
    void open() { open_.push_back({last_, nullptr}); }
    void close() {
        completed_.push_back(open_.back().node);
        open_.pop_back();
    }
    void leaf() { completed_.push_back(last_); }

  private:
    struct OpenNode {
        Node *node;
        Node *last_dtr;
    };
    // A token as it will probably be.
    struct LikelyToken {
        const char *start = nullptr;
        const char *end = nullptr;
        std::uint32_t hash = 0;
    };
    static constexpr std::size_t tokens_ahead = 8;  // a power of two

    LikelyToken likely_token(const char *p);
    void look_ahead();
    LikelyToken take_likely_token(const char *p);
    Unit *unit_at(const char *&p, bool bracketed, bool &has_word, SyntaxFault &fault);
    Unit *parsed_unit_at(const char *&p, bool bracketed, const LikelyToken &likely, SyntaxFault &fault);
    Unit *unit_of(const Token &token);
    void drop();

    Corpus &corpus_;
    const char *end_ = nullptr;  // of the text
    int tree_ = 0;
    std::vector<OpenNode> open_;
    Node *last_ = nullptr;  // the node added last
    std::vector<Node *> completed_;
    KnownTokens known_;
    std::array<LikelyToken, tokens_ahead> ahead_;  // a ring
    std::size_t next_ahead_ = 0;                   // the place of the next one
};

}  // namespace brindle
