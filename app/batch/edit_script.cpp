// `edit`: the operations of a script, a line each, carried out in order.
#include <charconv>
#include <stdexcept>

#include <fmt/format.h>

#include "app/batch/actions.hpp"
#include "app/batch/session.hpp"
#include "app/batch/shell.hpp"
#include "edit/change.hpp"
#include "edit/history.hpp"
#include "model/path.hpp"
#include "model/traversal.hpp"
#include "propose/run.hpp"

namespace brindle::batch {
namespace {

// Why a line cannot be carried out.
struct Refusal : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The fields of a line, taken one after another; fields are separated by one blank. Trees and nodes are those
// of the corpus that the line is for.
class Fields {
  public:
    Fields(Corpus &given, std::string_view line) : corpus(given), rest_(line) {}

    Corpus &corpus;

    std::string_view word(const char *what) {
        if (at_end_) throw Refusal(fmt::format("{} expected", what));
        const std::size_t blank = rest_.find(' ');
        const std::string_view field = rest_.substr(0, blank);
        at_end_ = blank == std::string_view::npos;
        rest_ = at_end_ ? std::string_view() : rest_.substr(blank + 1);
        if (field.empty()) throw Refusal(fmt::format("{} expected", what));
        return field;
    }

    // A tree's number; the result counts from 0.
    int tree() {
        const std::string_view field = word("TREE");
        int number = 0;
        const auto [end, fault] = std::from_chars(field.data(), field.data() + field.size(), number);
        if (fault != std::errc() || end != field.data() + field.size() || number < 1 ||
            number > corpus.amount())
            throw Refusal(fmt::format("no tree {} in this corpus", field));
        return number - 1;
    }

    Node *node(int tree) {
        const std::string_view field = word("PATH");
        if (Node *node = node_at(corpus.tree(tree).root, field)) return node;
        throw Refusal(fmt::format("no node {} in tree {}", field, tree + 1));
    }

    // The node of a tree, or null for "*", the whole tree.
    Node *node_or_all(int tree) {
        if (rest_ != "*") return node(tree);
        word("PATH");
        return nullptr;
    }

    // All that is left of the line.
    std::string_view text() {
        at_end_ = true;
        return rest_;
    }

    void end() const {
        if (!at_end_) throw Refusal(fmt::format("unexpected \"{}\"", rest_));
    }

  private:
    std::string_view rest_;
    bool at_end_ = false;
};

void refuse_if(const std::optional<std::string> &refusal) {
    if (refusal) throw Refusal(*refusal);
}

void do_tag(Fields &fields) {
    Node *node = fields.node(fields.tree());
    const std::string_view text = fields.text();
    if (text != text_of(node->sem())) refuse_if(set_tag(fields.corpus, node, text));
}

void do_category(Fields &fields) {
    Node *node = fields.node(fields.tree());
    const std::string_view text = fields.text();
    if (text != node->syn()->view()) refuse_if(set_category(fields.corpus, node, text));
}

void do_undo(Fields &fields) {
    Node *node = fields.node(fields.tree());
    fields.end();
    undo_last(fields.corpus, node);
}

// `undo-all` and `clear`: on a node, or on every node of a tree.
template <class Operation>
void on_node_or_tree(Fields &fields, const char *name, Operation operation) {
    const int tree = fields.tree();
    Node *node = fields.node_or_all(tree);
    fields.end();
    Corpus &corpus = fields.corpus;
    const HistoryStep step(corpus, fmt::format("{}, tree {}", name, tree + 1));
    if (node)
        operation(corpus, node);
    else
        do_with(corpus.tree(tree).root, [&](Node *n) { operation(corpus, n); });
}

void do_copy(Fields &fields) {
    const Node *from = fields.node(fields.tree());
    Node *to = fields.node(fields.tree());
    fields.end();
    if (from != to) refuse_if(set_tag(fields.corpus, to, text_of(from->sem())));
}

void do_bracket(Fields &fields) {
    Node *node = fields.node(fields.tree());
    refuse_if(replace_subtree(fields.corpus, node, std::string(fields.text()) + "\n"));
}

void do_propose(Fields &fields) {
    const int tree = fields.tree();
    fields.end();
    propose_tree(fields.corpus, tree);
}

void do_check(Fields &fields, bool checked) {
    const int tree = fields.tree();
    fields.end();
    set_checked(fields.corpus, tree, checked);
}

// `undo-step` and `redo-step`: nothing, if there is no step or nobody keeps them.
void do_step(Fields &fields, std::optional<StepInfo> (History::*go)()) {
    fields.end();
    if (fields.corpus.history) (fields.corpus.history->*go)();
}

struct Operation {
    std::string_view name;
    void (*run)(Fields &);
};

constexpr Operation operations[] = {
    {"tag", do_tag},
    {"category", do_category},
    {"undo", do_undo},
    {"undo-all", [](Fields &f) { on_node_or_tree(f, "Undo edits", undo_all); }},
    {"clear", [](Fields &f) { on_node_or_tree(f, "Clear", clear); }},
    {"copy", do_copy},
    {"bracket", do_bracket},
    {"check", [](Fields &f) { do_check(f, true); }},
    {"uncheck", [](Fields &f) { do_check(f, false); }},
    {"propose", do_propose},
    {"undo-step", [](Fields &f) { do_step(f, &History::undo); }},
    {"redo-step", [](Fields &f) { do_step(f, &History::redo); }},
    {"saved", [](Fields &f) { f.end(), f.corpus.forget_edits(); }},
};

}  // namespace

std::string carry_out(Corpus &corpus, std::string_view line) {
    Fields fields(corpus, line);
    try {
        const std::string_view name = fields.word("an operation");
        for (const Operation &operation : operations)
            if (operation.name == name) return operation.run(fields), std::string();
        return fmt::format("unknown operation \"{}\"", name);
    } catch (const Refusal &refusal) {
        return refusal.what();
    }
}

int run_edit(const Options &options) {
    Session session(options);
    const History history(session.corpus);
    std::string script;
    if (!take_in(options.script, script)) return failed;
    std::string_view rest = script;
    for (int line_nr = 1; !rest.empty(); ++line_nr) {
        const std::size_t end = rest.find('\n');
        std::string_view line = rest.substr(0, end);
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (line.empty() || line.front() == '#') continue;
        const std::string message = carry_out(session.corpus, line);
        if (message.empty()) continue;
        fmt::print(stderr, "{}:{}: {}\n", options.script, line_nr, for_terminal(message));
        return failed;
    }
    return options.tables ? session.put_out(tables_text(session.corpus)) : session.put_out_corpus();
}

}  // namespace brindle::batch
