#pragma once
// What Prolog has written: text that comes in pieces, at any rate.
#include <QPlainTextEdit>
#include <QTimer>

#include <string_view>

#include "base/backlog.hpp"

namespace brindle {

class OutputWindow final : public QPlainTextEdit {
    Q_OBJECT
  public:
    OutputWindow();

    // Puts text in the locale's encoding at the end, and scrolls there, when the loop is next idle. The last
    // megabyte stays.
    void append_text(std::string_view bytes);

  private:
    bool show_some();
    void make_room(int characters);
    void show_end();

    Backlog waiting_;
    std::size_t column_ = 0;  // of the last line
    QTimer timer_;
};

}  // namespace brindle
