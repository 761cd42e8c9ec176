#pragma once
// Which characters some texts are made of.
#include <string>
#include <string_view>
#include <vector>

namespace brindle {

// The characters above ASCII of texts in the locale's encoding, each once.
class CharacterSet {
  public:
    void add(std::string_view text);
    // In the order of their numbers. Bytes that are no character are left out.
    std::u32string characters() const;

  private:
    std::vector<bool> has_ = std::vector<bool>(0x110000);
};

}  // namespace brindle
