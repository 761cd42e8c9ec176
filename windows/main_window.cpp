#include "windows/main_window.hpp"

#include <algorithm>

#include "base/text.hpp"
#include "drawing/text.hpp"
#include "windows/output_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {

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
    show_edit_label();
    set_footer(*this, "Output window");
    resize(workbench.settings().window_size("main", {std::max(560, row->sizeHint().width() + 40), 400}));
}

void MainWindow::set_query_label(std::string_view label) {
    query_label_->setText(to_qstring(label));
    query_->setAccessibleName(query_label_->text());
}

void MainWindow::show_corpus_name() {
    show_edit_label();
    setWindowTitle(to_qstring(workbench_.corpus().name));
}

// A long name is cut.
void MainWindow::show_edit_label() {
    constexpr std::size_t longest = 34, cut = 31;
    std::string name = workbench_.corpus().name;
    if (name.size() > longest) name = std::string(beginning(name, cut)) + "...";
    edit_->setText("Edit " + to_qstring(name).replace("&", "&&"));
}

// Closing it is "Quit".
void MainWindow::closeEvent(QCloseEvent *event) {
    event->setAccepted(workbench_.quit());
}

}  // namespace brindle
