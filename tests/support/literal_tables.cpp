#include "support/literal_tables.hpp"

#include <algorithm>

#include <fmt/format.h>

#include "model/traversal.hpp"

namespace brindle::test {
namespace {

constexpr int sem_kind = static_cast<int>(LabelKind::SEM);

std::string shown(const std::string &name) {
    return name.empty() ? "-" : name;
}

// The nodes in the order of do_with.
std::vector<Node *> in_order(Node *root) {
    std::vector<Node *> nodes;
    do_with(root, [&](Node *node) { nodes.push_back(node); });
    return nodes;
}

void store_order(Node *node, std::vector<Node *> &nodes) {
    for (Node *d = node->dtrs(); d; d = d->sister()) store_order(d, nodes);
    nodes.push_back(node);
}

template <class Element>
void bubble_sort(std::vector<Element> &list) {
    for (bool exchanged = true; exchanged;) {
        exchanged = false;
        for (std::size_t i = 1; i < list.size(); ++i)
            if (list[i].checked_count > list[i - 1].checked_count) {
                std::swap(list[i], list[i - 1]);
                exchanged = true;
            }
    }
}

}  // namespace

LiteralTables::LiteralTables(const Corpus &corpus) : corpus_(corpus) {
    for (const Tree &tree : corpus.trees) store_tree(tree.root, tree.checked);
}

LiteralTables::Labels LiteralTables::labels_of(const Node *node) {
    return {std::string(node->syn()->view()), std::string(text_of(node->sem())),
            std::string(text_of(node->lex())),
            static_cast<int>(node->lex() ? LabelKind::TERM : LabelKind::NONTERM)};
}

std::string LiteralTables::context_of(const Node *node, const Labels &mother) {
    return fmt::format("{}|{} {}/{}", mother.syn, shown(mother.sem), node->position(),
                       node->mother()->nr_of_dtrs());
}

LiteralTables::Chain &LiteralTables::chain(const std::string &name, int kind) {
    return (kind ? table_ : lex_table_)[hash(name)];
}

LiteralTables::Entry &LiteralTables::entry(const std::string &name, int kind) {
    for (Entry &e : chain(name, kind))
        if (e.name == name && e.kind == kind) return e;
    return chain(name, kind).emplace_back(Entry{name, kind, 0, 0, {}});
}

void LiteralTables::count_entry(const std::string &name, int kind, int by, int checked_by) {
    Entry &e = entry(name, kind);
    e.count += by;
    e.checked_count += checked_by;
    if (e.count == 0) chain(name, kind).erase(chain(name, kind).begin() + (&e - chain(name, kind).data()));
}

LiteralTables::Element *LiteralTables::count(std::vector<Element> &list, const std::string &name, int by,
                                             int checked_by) {
    const auto place = [&] {
        return std::find_if(list.begin(), list.end(), [&](const Element &e) { return e.name == name; });
    };
    if (place() == list.end()) list.push_back({name, 0, 0, {}});
    place()->count += by;
    place()->checked_count += checked_by;
    if (place()->count == 0) {
        list.erase(place());
        return nullptr;
    }
    bubble_sort(list);
    return &*place();
}

void LiteralTables::count_links(const Labels &l, int by, int checked_by) {
    const auto name_of_category = l.syn + "/" + std::to_string(l.kind);
    count(entry(l.syn, l.kind).links, shown(l.sem), by, checked_by);
    count(entry(l.sem, sem_kind).links, name_of_category, by, checked_by);
    if (!l.lex.empty()) count(entry(l.lex, 0).links, l.syn + "|" + shown(l.sem), by, checked_by);
}

void LiteralTables::count_context(const Labels &l, const std::string &context, int by, int checked_by) {
    if (!l.lex.empty())
        count(count(entry(l.lex, 0).links, l.syn + "|" + shown(l.sem), 0, 0)->contexts, context, by,
              checked_by);
    count(count(entry(l.syn, l.kind).links, shown(l.sem), 0, 0)->contexts, context, by, checked_by);
}

void LiteralTables::count_contexts_around(const Node *node, const Labels &labels, int by) {
    const int checked_by = is_checked(node) ? by : 0;
    std::vector<const Node *> daughters;
    for (const Node *d = node->dtrs(); d; d = d->sister()) daughters.push_back(d);
    for (auto d = daughters.rbegin(); d != daughters.rend(); ++d)
        count_context(labels_of(*d), context_of(*d, labels), by, checked_by);
    if (node->mother()) count_context(labels, context_of(node, labels_of(node->mother())), by, checked_by);
}

void LiteralTables::store_tree(Node *root, bool checked) {
    std::vector<Node *> nodes;
    store_order(root, nodes);
    for (const Node *node : nodes) {
        const Labels l = labels_of(node);
        count_entry(l.syn, l.kind, 1, checked);
        count_entry(l.sem, sem_kind, 1, checked);
        if (!l.lex.empty()) count_entry(l.lex, 0, 1, checked);
        count_links(l, 1, checked);
    }
    for (const Node *node : in_order(root))
        if (node->mother())
            count_context(labels_of(node), context_of(node, labels_of(node->mother())), 1, checked);
}

void LiteralTables::handle_undo(const Label *release, const Label *retain) {
    if (release) count_entry(std::string(release->view()), sem_kind, -1, 0);
    if (retain) count_entry(std::string(retain->view()), sem_kind, 1, 0);
}

// The node gets its new tag or category, which the changed kind tells.
void LiteralTables::change(const Node *node, const Labels &to, int kind) {
    const Labels from = labels_of(node);
    const bool tag = kind == sem_kind;
    const int checked = is_checked(node);
    count_contexts_around(node, from, -1);
    count_links(from, -1, -checked);
    count_entry(tag ? from.sem : from.syn, kind, -1, -checked);
    count_entry(tag ? to.sem : to.syn, kind, 1, checked);
    count_links(to, 1, checked);
    count_contexts_around(node, to, 1);
}

void LiteralTables::change_tag(const Node *node, const std::string &tag) {
    handle_undo(corpus_.undo_of(node).undo_sem, node->sem());
    if (!node->changed()) handle_undo(nullptr, node->sem());
    Labels to = labels_of(node);
    to.sem = tag;
    change(node, to, sem_kind);
}

void LiteralTables::change_category(const Node *node, const std::string &category) {
    Labels to = labels_of(node);
    to.syn = category;
    change(node, to, to.kind);
}

void LiteralTables::undo_last(const Node *node) {
    const Label *const undo = corpus_.undo_of(node).undo_sem;
    if (node->changed() || undo) change_tag(node, std::string(text_of(undo)));
}

void LiteralTables::undo_all(const Node *node) {
    if (!node->changed()) return;
    const Label *const original = corpus_.undo_of(node).orig_sem;
    change_tag(node, std::string(text_of(original)));
    handle_undo(original, nullptr);
}

void LiteralTables::forget_edits() {
    for (const Tree &tree : corpus_.trees)
        for_each_in_subtree(tree.root, [this](const Node *node) {
            handle_undo(corpus_.undo_of(node).undo_sem, nullptr);
            handle_undo(corpus_.undo_of(node).orig_sem, nullptr);
        });
}

void LiteralTables::set_checked(int tree, bool checked) {
    if (corpus_.tree(tree).checked == checked) return;
    const int by = checked ? 1 : -1;
    for (const Node *node : in_order(corpus_.tree(tree).root)) {
        const Labels l = labels_of(node);
        count_links(l, 0, by);
        if (node->mother()) count_context(l, context_of(node, labels_of(node->mother())), 0, by);
        count_entry(l.sem, sem_kind, 0, by);
        count_entry(l.syn, l.kind, 0, by);
        if (!l.lex.empty()) count_entry(l.lex, 0, 0, by);
    }
}

std::string LiteralTables::text() const {
    std::string out;
    for (const auto *chains : {&table_, &lex_table_})
        for (const Chain &chain : *chains)
            for (const Entry &e : chain) {
                out += fmt::format("{} {}:{}({}):", e.kind, shown(e.name), e.count, e.checked_count);
                for (const Element &link : e.links) {
                    std::vector<std::string> contexts;
                    for (const Element &c : link.contexts)
                        contexts.push_back(fmt::format("{}:{}({})", c.name, c.count, c.checked_count));
                    out += fmt::format(" {}:{}({})", link.name, link.count, link.checked_count);
                    if (e.kind != sem_kind) out += fmt::format(" [{}]", fmt::join(contexts, " "));
                }
                out += '\n';
            }
    return out;
}

}  // namespace brindle::test
