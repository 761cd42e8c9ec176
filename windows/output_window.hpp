#pragma once
// What Prolog has written: text that comes in pieces, at any rate.
#include <QPlainTextEdit>
#include <QTimer>

#include <string>
#include <string_view>

namespace brindle {

class OutputWindow final : public QPlainTextEdit {
    Q_OBJECT
  public:
    OutputWindow();

    // Puts text in the locale's encoding at the end, and scrolls there, when the loop is next idle. The last
    // megabyte stays; a line of more than 2,000 characters is broken, as long ones would take long to draw.
    void append_text(std::string_view bytes);
    // Shows at once what has come.
    void flush();

  private:
    void make_room(int characters);
    void show_end();

    std::string waiting_;
    int column_ = 0;  // of the last line
    QTimer timer_;
};

}  // namespace brindle
