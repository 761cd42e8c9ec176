// How long the windows keep a person waiting: the longest time in which nothing was painted and no key would
// have been taken, while something long goes on. Without a screen.
//
//     bench-windows CORPUS
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <functional>

#include <fmt/format.h>

#include "base/text.hpp"
#include "corpus/reader.hpp"
#include "display/search.hpp"
#include "propose/run.hpp"
#include "windows/batch_box.hpp"
#include "windows/main_window.hpp"
#include "windows/output_window.hpp"
#include "windows/search_box.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace {

using namespace brindle;

// Beats each millisecond, as far as the event loop lets it.
class Heart {
  public:
    Heart() {
        QObject::connect(&timer_, &QTimer::timeout,
                         [this] { longest_ = std::max(longest_, since_.restart()); });
        timer_.start(1);
        since_.start();
    }
    long long longest() const { return std::max<long long>(longest_, since_.elapsed()); }

  private:
    QTimer timer_;
    QElapsedTimer since_;
    qint64 longest_ = 0;
};

void measure(const char *what, const std::function<void()> &work) {
    QCoreApplication::processEvents();
    QElapsedTimer whole;
    whole.start();
    const Heart heart;
    work();
    fmt::print("| {} | {:.1f} s | {} ms |\n", what, static_cast<double>(whole.elapsed()) / 1000,
               heart.longest());
}

void run_loop(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

}  // namespace

int main(int argc, char **argv) {
    if (argc != 2) return fmt::print(stderr, "Usage: bench-windows CORPUS\n"), 2;
    const QTemporaryDir state;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("XDG_STATE_HOME", state.path().toLocal8Bit().constData(), 1);
    setenv("BRINDLE_PROLOG", "sh -c 'echo \"?- \"; exec yes an answer that never ends'", 1);
    QApplication application(argc, argv);
    brindle::set_text_locale();
    std::setlocale(LC_NUMERIC, "C");
    Corpus corpus;
    corpus.name = argv[1];
    read_corpus(corpus, corpus.name, false);
    Workbench workbench(corpus);
    workbench.main_window().show();
    TreeWindow &window = workbench.open_tree_window();
    run_loop(300);

    fmt::print("| while | lasted | longest wait |\n|---|---|---|\n");
    measure("Prolog floods the output window", [&] {
        workbench.start_prolog();
        run_loop(3000);
    });
    workbench.prolog().quit();
    run_loop(600);
    measure("\"Propose an annotation\" on all trees",
            [&] { window.batch_box->run("Proposing away...", brindle::propose_all); });
    measure("\"Expand\" of nothing: a run of short steps", [&] {
        window.batch_box->run("Working...", [](Run &run) { return run.for_each_tree([](int) {}); });
    });
    measure("500 pages turned", [&] {
        for (int n = 0; n < 500; ++n) {
            window.turn_to((n * 7919) % corpus.amount());
            QCoreApplication::processEvents();
        }
    });
    return 0;
}
