#include "windows/main_window.hpp"

#include <algorithm>

#include "base/text.hpp"
#include "drawing/text.hpp"
#include "windows/output_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {
namespace {

constexpr std::size_t longest_name = 34;
constexpr std::size_t cut_name = 31;

// The longest beginning of the text of at most `size` bytes that cuts no character in two.
std::string_view beginning(std::string_view text, std::size_t size) {
    if (text_mode() == TextMode::utf8)
        while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80) --size;
    return text.substr(0, size);
}

}  // namespace

std::string edit_label(std::string_view corpus) {
    if (corpus.size() <= longest_name) return "Edit " + std::string(corpus);
    return "Edit " + std::string(beginning(corpus, cut_name)) + "...";
}

void set_footer(QMainWindow &window, std::string_view text) {
    const QString shown = to_qstring(clean_message(text));
    window.statusBar()->showMessage(shown);
    window.setProperty("footer", shown);
}

MainWindow::MainWindow(Workbench &workbench)
    : workbench_(workbench),
      query_label_(new QLabel),
      query_(new QLineEdit),
      edit_(new QPushButton),
      output_(new OutputWindow) {
    setWindowTitle("BRINDLE");
    auto *whole = new QWidget;
    auto *column = new QVBoxLayout(whole);
    auto *row = new QHBoxLayout;
    auto *quit = new QPushButton("Quit");
    connect(quit, &QPushButton::clicked, this, [this] { workbench_.quit(); });
    connect(edit_, &QPushButton::clicked, this, [this] { workbench_.open_tree_window(); });
    connect(query_, &QLineEdit::returnPressed, this,
            [this] { workbench_.prolog().type_query(to_locale(query_->text())); });
    query_label_->setTextFormat(Qt::PlainText);
    query_label_->setBuddy(query_);
    query_->setMaxLength(1 << 20);
    query_->setMinimumWidth(20 * fontMetrics().averageCharWidth());
    query_->setEnabled(false);
    for (QWidget *widget : std::initializer_list<QWidget *>{quit, query_label_, query_, edit_})
        row->addWidget(widget);
    row->setStretchFactor(query_, 1);
    column->addLayout(row);
    column->addWidget(output_, 1);
    setCentralWidget(whole);
    set_query_label("query:  ?-");
    edit_->setText(to_qstring(edit_label(workbench.corpus().name)).replace("&", "&&"));
    set_footer("Output window");
    resize(workbench.settings().window_size("main", {std::max(560, row->sizeHint().width() + 40), 400}));
}

void MainWindow::set_query_label(std::string_view label) {
    query_label_->setText(to_qstring(label));
    query_->setAccessibleName(query_label_->text());
}

void MainWindow::set_footer(std::string_view text) {
    brindle::set_footer(*this, text);
}

void MainWindow::show_corpus_name() {
    edit_->setText(to_qstring(edit_label(workbench_.corpus().name)).replace("&", "&&"));
    setWindowTitle(to_qstring(workbench_.corpus().name));
}

void MainWindow::remember() {
    workbench_.settings().remember_size("main", *this);
}

// Closing it is "Quit".
void MainWindow::closeEvent(QCloseEvent *event) {
    event->setAccepted(workbench_.quit());
}

}  // namespace brindle
