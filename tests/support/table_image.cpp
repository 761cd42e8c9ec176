#include "support/table_image.hpp"

#include <fmt/format.h>

#include "model/forest.hpp"
#include "model/traversal.hpp"
#include "stats/links.hpp"

namespace brindle::test {
namespace {

std::string_view name_of(const LabelEntry *entry) {
    return entry->name ? entry->name->view() : "";
}

template <class Record>
std::string counts_of(const Record *record, int without = 0) {
    return fmt::format("{}({})", record->count - without, record->checked_count);
}

void add_contexts(TableImage &image, const std::string &owner, const Parents &parents) {
    for (const ParentRecord *r = parents.first(); r; r = r->next)
        image[fmt::format("{} below {}|{} at {}/{}", owner, text_of(r->syn), text_of(r->sem), r->dtr_nr,
                          r->nr_of_dtrs)] = counts_of(r);
}

std::map<const Label *, int> undo_references() {
    std::map<const Label *, int> references;
    for (const TreeEntry &tree : forest)
        for_each_in_subtree(tree.root, [&](const Node *node) {
            if (node->undo_sem) ++references[node->undo_sem];
            if (node->orig_sem) ++references[node->orig_sem];
        });
    return references;
}

void add_entry(TableImage &image, const LabelEntry *e, int references) {
    if (e->count == references) return;
    const std::string own = fmt::format("{} {}", static_cast<int>(e->kind), name_of(e));
    image[own] = counts_of(e, references);
    for (const LabelLink *l = e->links.first(); l; l = l->next) {
        const std::string link =
            fmt::format("{} - {} {}", own, static_cast<int>(l->label->kind), name_of(l->label));
        image[link] = counts_of(l);
        add_contexts(image, link, l->parents);
    }
}

void add_entry(TableImage &image, const LexEntry *e) {
    const std::string own = fmt::format("word {}", e->name->view());
    image[own] = counts_of(e);
    for (const LexLink *l = e->links.first(); l; l = l->next) {
        const std::string link = fmt::format("{} - {}|{}", own, name_of(l->syn), name_of(l->sem));
        image[link] = counts_of(l);
        add_contexts(image, link, l->parents);
    }
}

}  // namespace

TableImage table_image() {
    TableImage image;
    const auto references = undo_references();
    for (const auto &bucket : table)
        for (const LabelEntry *e = bucket.first; e; e = e->next) {
            const auto found = e->kind == LabelKind::SEM ? references.find(e->name) : references.end();
            add_entry(image, e, found == references.end() ? 0 : found->second);
        }
    for (const auto &bucket : lex_table)
        for (const LexEntry *e = bucket.first; e; e = e->next) add_entry(image, e);
    return image;
}

std::string difference(const TableImage &is, const TableImage &should_be) {
    std::string out;
    for (const auto &[name, counts] : is) {
        const auto other = should_be.find(name);
        if (other == should_be.end())
            out += fmt::format("{}: {}, should not be there\n", name, counts);
        else if (other->second != counts)
            out += fmt::format("{}: {}, should be {}\n", name, counts, other->second);
    }
    for (const auto &[name, counts] : should_be)
        if (!is.contains(name)) out += fmt::format("{}: missing, should be {}\n", name, counts);
    return out;
}

}  // namespace brindle::test
