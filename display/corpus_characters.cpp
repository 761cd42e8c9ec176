#include "display/corpus_characters.hpp"

#include <fmt/format.h>

namespace brindle {

CharacterSet characters_of(const Corpus &corpus) {
    CharacterSet set;
    const Units &units = corpus.units;
    for (std::uint32_t n = 1; n < units.end(); ++n)
        for (const Label *label : {units[n].syn, units[n].sem, units[n].lex})
            if (label) set.add(label->view());
    return set;
}

std::string tell_missing_characters(std::u32string_view missing) {
    constexpr std::size_t most = 8;
    if (missing.empty()) return {};
    std::string shown;
    for (const char32_t c : missing.substr(0, most))
        shown += fmt::format(" U+{:04X}", static_cast<std::uint32_t>(c));
    return fmt::format("No installed font has {} characters of this corpus:{}{}", missing.size(), shown,
                       missing.size() > most ? " ..." : "");
}

}  // namespace brindle
