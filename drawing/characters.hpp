#pragma once
// Which characters of a corpus the installed fonts can show.
#include <QFont>

#include <string>
#include <string_view>
#include <vector>

namespace brindle {

// The characters above ASCII that some texts are made of, each once.
class CharacterSet {
  public:
    void add(std::string_view locale_text);
    // In the order of their numbers. Bytes that are no character are left out.
    std::u32string characters() const;

  private:
    std::vector<bool> has_ = std::vector<bool>(0x110000);
};

// Those that no installed font has, so that they would be drawn as boxes. What is not drawn by itself
// (blanks, joiners, marks of direction) is never among them. The font given is asked first.
std::u32string characters_without_font(const CharacterSet &set, const QFont &usual);

}  // namespace brindle
