// The workbench: reads a corpus and opens its main window.
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <QApplication>

#include <fmt/printf.h>

#include "app/ui_map.hpp"
#include "app/x_options.hpp"
#include "base/error.hpp"
#include "base/text.hpp"
#include "corpus/lattices.hpp"
#include "corpus/reader.hpp"
#include "drawing/text.hpp"
#include "windows/appearance.hpp"
#include "windows/main_window.hpp"
#include "windows/workbench.hpp"

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

void read_everything(Corpus &corpus, int argc, char **argv) {
    const bool with_wordgraphs = argc == 4 && std::strcmp(argv[1], "-w") == 0;
    if (argc != 2 && !with_wordgraphs)
        error(fmt::sprintf("Usage:\n\t%s [-w <wordgraphfile>][X-options] <corpusname>", argv[0]));
    read_corpus(corpus, argv[argc - 1]);
    if (with_wordgraphs) read_wordgraphs(corpus, argv[2]);
    corpus.name = argv[argc - 1];
}

// What Qt has to say beside errors is for developers: that a font lacks a script, that the locale is not its
// own.
void tell_errors_only(QtMsgType type, const QMessageLogContext &, const QString &text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) fmt::print(stderr, "{}\n", text.toStdString());
}

// The application takes the locale of the environment; the program's own choice is to stay.
std::unique_ptr<QApplication> start_application(int &argc, char **argv) {
    const std::string characters = std::setlocale(LC_CTYPE, nullptr);
    if (!std::getenv("QT_LOGGING_RULES")) qInstallMessageHandler(tell_errors_only);
    auto application = std::make_unique<QApplication>(argc, argv);
    std::setlocale(LC_CTYPE, characters.c_str());
    std::setlocale(LC_NUMERIC, "C");
    return application;
}

// Shows the main window as the options say. A place is given as WxH+X+Y, each part may be missing.
void show_main_window(MainWindow &window, const XOptions &options) {
    if (!options.title.empty()) window.setWindowTitle(to_qstring(options.title));
    int width = 0, height = 0, x = 0, y = 0;
    const char *geometry = options.geometry.c_str();
    if (std::sscanf(geometry, "%dx%d", &width, &height) == 2 && width > 0 && height > 0)
        window.resize(width, height);
    const std::size_t place = options.geometry.find_first_of("+-");
    if (place != std::string::npos && std::sscanf(geometry + place, "%d%d", &x, &y) == 2) window.move(x, y);
    if (options.iconic)
        window.showMinimized();
    else
        window.show();
}

}  // namespace

int main(int argc, char **argv) {
    set_text_locale();
    const XOptions options = take_x_options(argc, argv);
    if (answered(argc, argv)) return 0;
    Corpus corpus;
    read_everything(corpus, argc, argv);

    apply_before_start(options);
    if (const std::string reason = why_no_display(options); !reason.empty()) {
        fmt::print(stderr, "{}: {}\n", argv[0], reason);
        return 1;
    }
    const auto application = start_application(argc, argv);
    QApplication::setApplicationName("brindle");
    QGuiApplication::setDesktopFileName("io.brindle.Workbench");
    QApplication::setQuitOnLastWindowClosed(false);
    Workbench workbench(corpus);
    set_up_appearance({options.foreground, options.background, options.font, options.reverse},
                      workbench.settings());
    workbench.run().on_dispatched = start_ui_map();
    workbench.start_prolog();
    show_main_window(workbench.main_window(), options);
    return QApplication::exec();
}
