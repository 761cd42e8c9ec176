#pragma once
// What a label may not be. Commands ask here before they change a label, so that whatever a person or Prolog
// gives can be written to a corpus file and read back as it is.
#include <optional>
#include <string>
#include <string_view>

namespace brindle {

// Why the text cannot be a semantic tag, as the notice to show; no value: it can. Spaces are allowed (they
// become '_'), and so is the empty text, which stands for no tag.
std::optional<std::string> refuse_tag(std::string_view text);

// The same for a syntactic category; what an empty text means is the caller's business.
std::optional<std::string> refuse_category(std::string_view text);

// The notices for the two characters that a category cannot hold, and for the one that a tag cannot hold.
extern const std::string_view no_tag_mark_in_category;
extern const std::string_view no_word_mark_in_category;
extern const std::string_view no_word_mark_in_tag;

}  // namespace brindle
