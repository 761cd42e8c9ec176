#include "support/trees.hpp"

#include <cstdlib>
#include <string>

#include <fmt/format.h>

#include "model/forest.hpp"
#include "model/traversal.hpp"
#include "stats/links.hpp"

namespace brindle::test {
namespace {

class TreeReader {
  public:
    explicit TreeReader(std::string_view text) : text_(text) {}

    // True if a tree was read into the entry.
    bool tree(TreeEntry &entry) {
        while (blank() && !text_.empty() && text_.front() == '*') {
            entry.checked = true;
            text_.remove_prefix(1);
        }
        if (text_.empty()) return false;
        TreeCheckedScope scope(entry);
        take('(');
        blank();
        if (text_.front() != '(') {  // "(S ...)" is a tree without brackets of its own
            entry.root = node_after_bracket(nullptr);
        } else {
            entry.root = node(nullptr);
            blank();
            take(')');
        }
        return true;
    }

  private:
    bool blank() {
        while (!text_.empty() && (text_.front() == ' ' || text_.front() == '\n')) text_.remove_prefix(1);
        return true;
    }

    void take(char c) {
        if (text_.empty() || text_.front() != c) {
            fmt::print(stderr, "'{}' expected before: {}\n", c, text_);
            std::abort();
        }
        text_.remove_prefix(1);
    }

    Label *label(const char *ends) {
        std::size_t length = 0;
        for (int level = 0; length < text_.size(); ++length) {
            const char c = text_[length];
            const bool in_tag = std::string_view(ends) == " \n/)";
            if (in_tag && c == ')' && level > 0)
                --level;
            else if (std::string_view(ends).find(c) != std::string_view::npos)
                break;
            level += in_tag && c == '(';
        }
        Label *result = intern(text_.substr(0, length));
        text_.remove_prefix(length);
        return result;
    }

    Node *node(Node *mother) {
        blank();
        if (text_.front() != '(') return labels(mother, false);
        text_.remove_prefix(1);
        return node_after_bracket(mother);
    }

    Node *node_after_bracket(Node *mother) { return labels(mother, true); }

    Node *labels(Node *mother, bool bracketed) {
        Node *n = new_node();
        n->mother = mother;
        Label *syn = label(" \n()|/"), *sem = nullptr, *lex = nullptr;
        if (text_.front() == '|') take('|'), sem = label(" \n/)");
        if (text_.front() == '/') take('/'), lex = label(" \n()|");
        if (bracketed) daughters(n);
        store(syn, sem, lex, n);
        return n;
    }

    void daughters(Node *mother) {
        Node **place = &mother->dtrs;
        for (blank(); text_.front() != ')'; blank()) {
            *place = node(mother);
            (*place)->position = ++mother->nr_of_dtrs;
            place = &(*place)->sister;
        }
        take(')');
    }

    std::string_view text_;
};

}  // namespace

void read_trees(std::string_view text) {
    TreeReader reader(text);
    for (TreeEntry entry; reader.tree(entry); entry = TreeEntry()) {
        TreeCheckedScope scope(entry);
        do_with(entry.root, parent);
        register_root(entry.root, amount++);
        forest.push_back(std::move(entry));
    }
}

}  // namespace brindle::test
