#include "corpus/node_builder.hpp"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include <array>
#include <bit>

namespace brindle {
namespace {

// Bytes that end a token wherever it is not inside the brackets of a tag.
constexpr std::array<bool, 256> ends_token = [] {
    std::array<bool, 256> ends{};
    for (unsigned c = 0; c <= 0x20; ++c) ends[c] = true;
    ends[0x7f] = ends['('] = ends[')'] = true;
    return ends;
}();

bool ends(const char *p) {
    return ends_token[static_cast<unsigned char>(*p)];
}

// The first byte at or behind p that ends a token, or that does not.
template <bool wanted>
const char *first_that(const char *p, const char *end) {
#ifdef __SSE2__
    const __m128i blank = _mm_set1_epi8(0x20), even = _mm_set1_epi8(static_cast<char>(0xfe)),
                  open = _mm_set1_epi8('('), del = _mm_set1_epi8(0x7f);
    for (; end - p >= 16; p += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(p));
        const __m128i is_blank = _mm_cmpeq_epi8(_mm_min_epu8(bytes, blank), bytes);
        const __m128i is_bracket = _mm_cmpeq_epi8(_mm_and_si128(bytes, even), open);
        const __m128i found = _mm_or_si128(_mm_or_si128(is_blank, is_bracket), _mm_cmpeq_epi8(bytes, del));
        const auto mask = static_cast<unsigned>(_mm_movemask_epi8(found)) ^ (wanted ? 0u : 0xffffu);
        if (mask) return p + std::countr_zero(mask);
    }
#endif
    while (p != end && ends(p) != wanted) ++p;
    return p;
}

// Where a token that has come before would end: beyond its tag's brackets, before the next blank. Bytes above
// 127 count as graphic, and brackets as those of a tag if there is a tag at all: a token of which that is not
// true is never known.
const char *likely_end(const char *p, const char *end) {
    const char *const start = p;
    p = first_that<true>(p, end);
    if (p == end || *p != '(' || std::string_view(start, p).find(START_SEM_TAG) == std::string_view::npos)
        return p;
    for (long nesting = 0; p != end; ++p) {
        if (*p == '(')
            ++nesting;
        else if (*p == ')' ? nesting-- == 0 : ends(p))
            break;
    }
    return p;
}

}  // namespace

void KnownTokens::add(std::string_view text, std::uint32_t hash, Unit *unit) {
    const std::size_t bytes = sizeof(KnownToken) + text.size() + 7;
    const std::uint32_t number = memory_.add(static_cast<std::uint32_t>(bytes / sizeof(std::uint64_t)));
    auto *const token = new (&memory_[number])
        KnownToken{unit, static_cast<std::uint32_t>(text.size()), unit->lex != nullptr};
    std::memcpy(reinterpret_cast<char *>(token + 1), text.data(), text.size());
    index_.insert(number, hash);
}

SyntaxFault NodeBuilder::read(const char *&p, const char *end, int tree) {
    if (end != end_) ahead_.fill({p, p, 0});
    end_ = end;
    tree_ = tree;
    completed_.clear();
    const SyntaxFault fault = parse_node(p, end, *this);
    if (fault.kind != FaultKind::none) drop();
    return fault;
}

void NodeBuilder::drop() {
    for (Node *node : completed_) corpus_.nodes.release(node);
    for (const OpenNode &open : open_) corpus_.nodes.release(open.node);
    completed_.clear();
    open_.clear();
}

const char *NodeBuilder::add(const char *p, bool bracketed, bool &has_word, SyntaxFault &fault) {
    Unit *const unit = unit_at(p, bracketed, has_word, fault);
    if (!unit) return nullptr;
    last_ = corpus_.nodes.make();
    last_->set_unit(unit);
    last_->set_tree(tree_);
    if (!open_.empty()) {
        auto &[mother, last_dtr] = open_.back();
        last_->set_mother(mother);
        if (last_dtr)
            last_dtr->set_sister(last_);
        else
            mother->set_dtrs(last_);
        last_dtr = last_;
        mother->set_nr_of_dtrs(static_cast<std::uint32_t>(mother->nr_of_dtrs()) + 1);
        last_->set_position(static_cast<std::uint32_t>(mother->nr_of_dtrs()));
    }
    return p;
}

// The token at p, or the first behind the blanks and brackets there.
NodeBuilder::LikelyToken NodeBuilder::likely_token(const char *p) {
    p = first_that<false>(p, end_);
    const char *const end = likely_end(p, end_);
    return {p, end, text_hash({p, end})};
}

// The ring loses the one at its front, and gets another at its back.
void NodeBuilder::look_ahead() {
    const LikelyToken &last = ahead_[(next_ahead_ + tokens_ahead - 1) % tokens_ahead];
    ahead_[next_ahead_] = likely_token(last.end);
    known_.fetch_slot(ahead_[next_ahead_].hash);
    next_ahead_ = (next_ahead_ + 1) % tokens_ahead;
    known_.fetch_token(ahead_[(next_ahead_ + tokens_ahead / 2) % tokens_ahead].hash);
}

// The token at p. What was taken for tokens between two trees is passed over.
NodeBuilder::LikelyToken NodeBuilder::take_likely_token(const char *p) {
    for (std::size_t i = 0; i < tokens_ahead && ahead_[next_ahead_].start < p; ++i) look_ahead();
    if (ahead_[next_ahead_].start != p) {
        ahead_.fill({p, p, 0});
        for (std::size_t i = 0; i < tokens_ahead; ++i) look_ahead();
    }
    const LikelyToken token = ahead_[next_ahead_];
    look_ahead();
    return token;
}

// The unit of the token at p, which is left behind it; null after a fault.
Unit *NodeBuilder::unit_at(const char *&p, bool bracketed, bool &has_word, SyntaxFault &fault) {
    const LikelyToken likely = take_likely_token(p);
    const auto *const known = known_.find({likely.start, likely.end}, likely.hash);
    if (!known || likely.start != p || likely.end == end_) {
        Unit *const unit = parsed_unit_at(p, bracketed, likely, fault);
        has_word = unit && unit->lex;
        return unit;
    }
    p = likely.end;
    has_word = known->has_word;
    fetch_ahead(&known->unit->count);
    return known->unit;
}

// A token that begins with a mark means one thing in brackets and another without, so it is never known.
Unit *NodeBuilder::parsed_unit_at(const char *&p, bool bracketed, const LikelyToken &likely,
                                  SyntaxFault &fault) {
    Token token;
    fault = parse_token(p, end_, bracketed, BracketedWords::allowed, token);
    if (fault.kind != FaultKind::none) return nullptr;
    Unit *const unit = unit_of(token);
    if (token.end == likely.end && *p != START_SEM_TAG && *p != START_LEX_TAG)
        known_.add({likely.start, likely.end}, likely.hash, unit);
    p = token.end;
    return unit;
}

Unit *NodeBuilder::unit_of(const Token &token) {
    Labels &labels = corpus_.labels;
    Label *const syn = labels.intern(token.category);
    Label *const sem = token.tag.empty() ? nullptr : labels.intern(token.tag);
    Label *const lex = token.word.empty() ? nullptr : labels.intern(token.word);
    return corpus_.units.intern(syn, sem, lex);
}

}  // namespace brindle
