#include "prolog/latex.hpp"

#include <fmt/format.h>

#include "model/punctuation.hpp"
#include "prolog/expansion.hpp"

namespace brindle {
namespace {

constexpr std::string_view preamble =
    R"(\documentclass{article}
%\usepackage[dvips]{graphics} % Uncomment this if you use \resizebox below 
\usepackage{epic,eepic,ecltree} % Don't change the order of these packages in your preamble!
\begin{document}
% here you can give the fontstyle for syntactic , semantic and lexical labels.
\newcommand{\synstyle}[1]{\textbf{#1}}
\newcommand{\lexstyle}[1]{\textsl{#1}}
\newcommand{\semstyle}[1]{\textsf{#1}}
% ecltree.sty positions the node labels too low, therefore the '\raisebox'es.
\newcommand{\synlabel}[1]{\raisebox{.7ex}{\synstyle{#1}}}
\newcommand{\synsemlabel}[2]{\raisebox{.3ex}{\shortstack{\synstyle{#1}\\\semstyle{#2}}}}
\newcommand{\lexlabel}[1]{\raisebox{.7ex}{\lexstyle{#1}}}
\Thicklines
{
%\tiny
%\scriptsize
%\footnotesize
%\small  %The size of the tree is dependent on the fontsize, so uncomment an appropriate
%\normalsize %size if the tree is too large or too small. (Alternatively, use resizebox below)
%\large
%\Large
%\huge
%If lables cross each other, or are too far apart, 
%fiddle with the amount of 'em' for 'GapWidth' just above the mother node
%of the label(s) that cause(s) problems.
%Increasing or decreasing the height of edges is done by adjusting the amount of 'ex',
%also just above the mother node of those edges.
\begin{figure}
\centering
%Uncomment this to resize to the width of the text (dvips required).
%\resizebox{\textwidth}{!}
{)";

// Drawn as a bundle: a node with its word, or with its daughters if the first of them is selected.
bool has_daughters_to_write(const Node *node) {
    return node->dtrs() && node->dtrs()->selected();
}

std::string node_label(const Node *node) {
    const std::string syn = latexlabel(node->syn()->view());
    if (!node->sem()) return fmt::format("\\synlabel{{{}}}", syn);
    return fmt::format("\\synsemlabel{{{}}}{{{}}}", syn, latexlabel(node->sem()->view()));
}

// Writes the node up to where its daughters come; a node without any to write, as a whole.
void open_node(std::string &out, const Node *node, int depth) {
    if (!node->lex() && !has_daughters_to_write(node)) {
        out += node_label(node);
        return;
    }
    out += "\\setlength{\\GapDepth}{5.5ex}";
    latextabs(out, depth);
    if (node->dtrs()) {
        out += "\\setlength{\\GapWidth}{1.8em}";
        latextabs(out, depth);
    }
    out += fmt::format("\\begin{{bundle}}{{{}}}", node_label(node));
    latextabs(out, depth + 1);
    if (!node->lex()) {
        out += "\\chunk{";
        return;
    }
    out += fmt::format("\\chunk{{\\lexlabel{{{}}}}}", latexlabel(node->lex()->view()));
    latextabs(out, depth);
    out += "\\end{bundle}";
}

const Node *next_to_write(const Node *node, bool show_punctuation) {
    const Node *sister = next_shown_sister(node, show_punctuation);
    return sister && sister->selected() ? sister : nullptr;
}

}  // namespace

void latexheader(std::string &out) {
    out += preamble;
}

void latexbody(std::string &out, const Node *node, int depth, bool show_punctuation) {
    const int top = depth;
    for (;;) {
        open_node(out, node, depth);
        if (has_daughters_to_write(node)) {
            node = node->dtrs();
            ++depth;
            continue;
        }
        const Node *next = nullptr;
        for (;;) {
            if (node->mother() && node->mother()->selected()) out += '}';
            next = next_to_write(node, show_punctuation);
            if (next || depth == top) break;
            node = node->mother();
            latextabs(out, --depth);
            out += "\\end{bundle}";
        }
        if (!next) return;
        latextabs(out, depth);
        out += "\\chunk{";
        node = next;
    }
}

void latextabs(std::string &out, int depth) {
    out += '\n';
    if (depth > 0) out.append(static_cast<std::size_t>(depth), '\t');
}

void latexend(std::string &out, int tree_number, std::string_view corpus) {
    out += fmt::format(
        "}}\n\\caption{{(subtree of) tree nr: {} in corpus {}}}\n\\end{{figure}}\n}}\n\\end{{document}}\n",
        tree_number + 1, latexlabel(corpus));
}

std::string latexlabel(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (std::string_view("#$%&\\^_{}~").find(c) != std::string_view::npos) escaped += '\\';
        escaped += c;
    }
    return escaped;
}

std::string latex_document(Node *node, int tree_number, std::string_view corpus, bool show_punctuation) {
    std::string out;
    latexheader(out);
    latexbody(out, top_of_selection(node), 0, show_punctuation);
    latexend(out, tree_number, corpus);
    return out;
}

}  // namespace brindle
