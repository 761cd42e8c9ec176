#pragma once
// Makes the nodes of a corpus out of a text.
#include <array>
#include <string_view>
#include <vector>

#include "base/hash_index.hpp"
#include "corpus/flat_tree.hpp"
#include "corpus/grammar.hpp"
#include "model/corpus.hpp"

namespace brindle {

// The units of tokens that have come before, by their whole texts.
class KnownTokens {
  public:
    KnownTokens() : memory_(Pages::huge) {}

    // The number of the token's unit; 0: it has not come before. `likely` is what fetch_token has returned.
    std::uint32_t find(std::string_view text, std::uint32_t hash, std::uint32_t likely) const {
        const auto is_it = [&](std::uint32_t number) {
            return at(number)->size == text.size() && same_text(text, at(number)->text());
        };
        const std::uint32_t number = likely && is_it(likely) ? likely : index_.find(hash, is_it);
        return number ? at(number)->unit : 0;
    }
    void add(std::string_view text, std::uint32_t hash, std::uint32_t unit);
    // Ask memory for what find will look at: first the slot, some time later the token that it names.
    void fetch_slot(std::uint32_t hash) const { index_.fetch_slot(hash); }
    std::uint32_t fetch_token(std::uint32_t hash) const {
        const std::uint32_t number = index_.guess(hash);
        fetch_ahead(at(number));
        return number;
    }

  private:
    struct KnownToken {
        std::uint32_t unit;
        std::uint32_t size;
        const char *text() const { return reinterpret_cast<const char *>(this + 1); }
    };
    const KnownToken *at(std::uint32_t number) const {
        return reinterpret_cast<const KnownToken *>(&memory_[number]);
    }

    GrowingArray<std::uint64_t> memory_;  // a token's number is that of its first word of memory
    HashIndex index_;
};

// Most tokens of a corpus have come before, so a token's unit is looked up by its whole text; only a new one
// is taken apart. And as most looks would wait for memory, first a whole tree's tokens are found where they
// probably are, and what looking them up needs is asked for. If a new one turns out to be another than was
// thought, the tree is read again, token by token.
class NodeBuilder {
  public:
    explicit NodeBuilder(Corpus &corpus) : corpus_(corpus) {}

    // Reads one node with everything below it from p on, and leaves p behind it. Its nodes belong to that
    // tree (0-based), their labels are not counted. After a fault there are none.
    SyntaxFault read(const char *&p, const char *end, int tree);
    // The same, with nothing guessed.
    SyntaxFault read_exactly(const char *&p, const char *end, int tree);

    // What was read last, and its top.
    const FlatTree &tree() const { return tree_; }
    Node *top() const { return tree_.nodes.front().node; }

  private:
    struct NewLabel {
        std::string_view text;  // empty: none
        std::uint32_t hash;
        Label *label;
    };
    struct NewToken {
        FlatNode &flat;
        std::array<NewLabel, 3> labels;  // category, tag, word
    };

    bool find_units(const char *end);
    bool parse_new_token(FlatNode &flat, const char *end);
    void make_units();
    void make_nodes(int tree);

    Corpus &corpus_;
    FlatTree tree_;
    KnownTokens known_;
    std::vector<NewToken> new_tokens_;
};

}  // namespace brindle
