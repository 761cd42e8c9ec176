#include "model/corpus.hpp"

namespace brindle {

UndoTags Corpus::undo_of(const Node *node) const {
    const std::uint32_t number = nodes.number_of(node);
    return number < undo_.size() ? undo_[number] : UndoTags{};
}

UndoTags &Corpus::undo_for_change(const Node *node) {
    const std::uint32_t number = nodes.number_of(node);
    undo_.cover(number);
    return undo_[number];
}

std::string_view Corpus::wordgraph(int t) const {
    const auto found = wordgraphs.find(t);
    return found == wordgraphs.end() ? std::string_view() : found->second;
}

}  // namespace brindle
