#include "gui/the_corpus.hpp"

namespace brindle {

Corpus &the_corpus() {
    static Corpus corpus;
    return corpus;
}

}  // namespace brindle
