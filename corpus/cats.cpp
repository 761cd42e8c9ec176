#include "corpus/cats.hpp"

#include <span>

namespace brindle {
namespace {

struct Category {
    std::string_view key;
    std::string_view description;
};

constexpr Category leaves[] = {
    {"NIL", "Null element"},
    {"T", "Trace"},
    {"CC", "Coordinating conjunction"},
    {"CD", "Cardinal number"},
    {"DT", "Determiner"},
    {"EX", "Existential \"there\""},
    {"FW", "Foreign word"},
    {"IN", "Preposition or subordinating conjunction"},
    {"JJ", "Adjective"},
    {"JJR", "Adjective, comparative"},
    {"JJS", "Adjective, superlative"},
    {"LS", "List item marker"},
    {"MD", "Modal"},
    {"NN", "Noun, singular or mass"},
    {"NNS", "Noun, plural"},
    {"NP1", "Proper noun, singular"},
    {"NP", "Proper noun, singular"},
    {"NPS", "Proper noun, plural"},
    {"PDT", "Predeterminer"},
    {"POS", "Possessive ending"},
    {"PP", "Personal pronoun"},
    {"PP$", "Possessive pronoun"},
    {"RB", "Adverb"},
    {"RBR", "Adverb, comparative"},
    {"RBS", "Adverb, superlative"},
    {"RP", "Particle"},
    {"SYM", "Symbol"},
    {"TO", "\"to\""},
    {"UH", "Interjection"},
    {"VB", "Verb, base form"},
    {"VBD", "Verb, past tense"},
    {"VBG", "Verb, gerund or present particle"},
    {"VBN", "Verb, past participle"},
    {"VBP", "Verb, non-3rd person singular present"},
    {"VBZ", "Verb, 3rd person singular present"},
    {"WDT", "Wh-determiner"},
    {"WP", "Wh-pronoun"},
    {"WP$", "Possessive wh-pronoun"},
    {"WRB", "Wh-adverb"},
    {"0", "Zero complementizer"},
    {"*", "Zero pronoun"},
    {"?", "Question mark"},
    {".", "Full stop"},
};

constexpr Category phrases[] = {
    {"ADJP", "Adjective phrase"},
    {"ADVP", "Adverb phrase"},
    {"NP", "Noun phrase"},
    {"PNP", "Proper noun phrase"},
    {"PP", "Prepositional phrase"},
    {"S", "Simple declarative clause"},
    {"SBAR", "Clause introduced by a (possibly empty) subordinating conjunction"},
    {"SBARQ", "Direct question introduced by a wh-word or wh-phrase"},
    {"SINV", "Inverted declarative sentence"},
    {"SQ", "That part of an SBARQ that excludes the wh-word or wh-phrase"},
    {"VP", "Verb phrase"},
    {"WHADVP", "Wh-adverb phrase"},
    {"WHNP", "Wh-noun phrase"},
    {"WHPP", "Wh-prepositional phrase"},
    {"X", "Constituent of uncertain type"},
    {"?", "Unsure attachment of constituent"},
};

}  // namespace

std::string_view transl(std::string_view category, bool has_daughters) {
    const std::span<const Category> list =
        has_daughters ? std::span<const Category>(phrases) : std::span<const Category>(leaves);
    for (const Category &c : list)
        if (c.key == category) return c.description;
    return "Unknown label?!";
}

}  // namespace brindle
