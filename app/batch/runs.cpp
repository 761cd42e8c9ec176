#include "app/batch/runs.hpp"

#include "app/batch/progress.hpp"
#include "app/batch/session.hpp"
#include "stats/changes.hpp"

namespace brindle::batch {
namespace {

int mark(const Options &options, bool checked) {
    load(options);
    for (const int t : selected_trees(options)) set_checked(t, checked);
    return put_out_corpus(options);
}

}  // namespace

int run_check(const Options &options) {
    return mark(options, true);
}

int run_uncheck(const Options &options) {
    return mark(options, false);
}

}  // namespace brindle::batch
