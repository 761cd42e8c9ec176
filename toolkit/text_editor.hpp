#pragma once
// FLTK's text editor with undo of any depth, and keys of our own.
#include <FL/Fl_Text_Buffer.H>
#include <FL/Fl_Text_Editor.H>

#include <functional>
#include <string>
#include <vector>

#include "toolkit/history.hpp"

namespace brindle::tk {

class TextEditor : public Fl_Text_Editor {
  public:
    TextEditor();
    ~TextEditor() override;

    bool editable = true;
    std::function<void()> on_change;  // someone has typed

    Fl_Text_Buffer &text_buffer() { return buffer_; }
    // Replaces the text without a trace in the history.
    void load(const std::string &utf8);
    // Inserts or removes without a trace (output).
    void append_quietly(const std::string &utf8, int most_bytes);
    void undo();
    void redo();
    void again();  // the last change once more, at the insertion point
    void go_to(int position);

    std::vector<std::string> lines_in_view() const;  // UTF-8
    int handle(int event) override;

  private:
    void bind_keys();
    void look_for_long_lines(int at, int end);
    void wrap_long_lines();
    std::string with_bearable_lines(const std::string &utf8) const;
    void changed(int at, int inserted, int deleted, const char *deleted_text);
    void apply(const TextEdit &edit, bool forward);

    Fl_Text_Buffer buffer_;
    History history_;
    bool recording_ = true;
    bool too_long_ = false;  // a line cannot be drawn in one piece
};

}  // namespace brindle::tk
