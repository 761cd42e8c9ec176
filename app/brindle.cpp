// The workbench: reads a corpus and opens its main window.
#include <cstdio>
#include <cstring>
#include <string>

#include <fmt/printf.h>

#include "base/error.hpp"
#include "base/text.hpp"
#include "commands/install.hpp"
#include "commands/prolog_window.hpp"
#include "corpus/lattices.hpp"
#include "corpus/reader.hpp"
#include "gui/dialogs.hpp"
#include "gui/main_window.hpp"
#include "gui/the_corpus.hpp"
#include "toolkit/display.hpp"
#include "toolkit/frame.hpp"
#include "toolkit/notifier.hpp"

namespace {

using namespace brindle;

constexpr const char *help =
    "Usage: brindle [-w <wordgraphfile>] [X-options] <corpusname>\n"
    "\n"
    "Opens the treebank <corpusname> for annotation. Press \"Edit\" for a tree window.\n"
    "\n"
    "  -w <wordgraphfile>      attach a word graph to each tree, in the order of the file\n"
    "  -h, --help              show this help and stop\n"
    "  --version               show the version and stop\n"
    "\n"
    "X-options:\n"
    "  -display <display>      the X server (default: $DISPLAY)\n"
    "  -geometry <WxH+X+Y>     size and place of the main window\n"
    "  -scale <factor>         factor for all sizes and fonts, 0.5 to 4\n"
    "  -title <text>           title of the main window\n"
    "  -name <name>            name of the program to the window manager\n"
    "  -fn <font>              font of labels and buttons\n"
    "  -fg <colour>, -bg <colour>, -rv\n"
    "                          colours of texts and of their ground; both swapped\n"
    "  -iconic                 start as an icon\n"
    "\n"
    "Environment:\n"
    "  BRINDLE_SCALE           as -scale\n"
    "  BRINDLE_PROLOG          command that starts the Prolog system\n"
    "  BRINDLE_FORMULA_CHECKER program that checks formulas for the information format\n"
    "  BRINDLE_FORMULA_DIR     directory it runs in\n"
    "\n"
    "'man brindle' tells more; brindle-batch does the same work from a shell.\n";

// Answers --help and --version, when one is all there is on the command line.
bool answered(int argc, char **argv) {
    if (argc != 2) return false;
    if (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0)
        std::fputs(help, stdout);
    else if (std::strcmp(argv[1], "--version") == 0)
        std::puts("brindle " BRINDLE_VERSION);
    else
        return false;
    return true;
}

void read_everything(int argc, char **argv) {
    const bool with_wordgraphs = argc == 4 && std::strcmp(argv[1], "-w") == 0;
    if (argc != 2 && !with_wordgraphs)
        error(fmt::sprintf("Usage:\n\t%s [-w <wordgraphfile>][X-options] <corpusname>", argv[0]));
    Corpus &corpus = the_corpus();
    read_corpus(corpus, argv[argc - 1]);
    if (with_wordgraphs) read_wordgraphs(corpus, argv[2]);
    corpus.name = argv[argc - 1];
}

}  // namespace

int main(int argc, char **argv) {
    set_text_locale();
    tk::init(argc, argv);
    if (answered(argc, argv)) return 0;
    read_everything(argc, argv);

    install_commands();
    repaint_on_changes();
    tk::Frame main_frame("BRINDLE");
    create_main_window(main_frame);
    MainProlog prolog(main_frame);
    prolog.start();
    main_frame.show();
    tk::main_loop();
    return 0;
}
