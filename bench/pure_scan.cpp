// What the hardware can do at best: every byte of a corpus file looked at once, its brackets counted.
// bench/run states the time of every command as a multiple of this.
#include <cstdio>
#include <ctime>

#include "base/input_file.hpp"

namespace {

struct Scan {
    long brackets = 0;
    long deepest = 0;
};

Scan scan(std::string_view text) {
    Scan result;
    long depth = 0;
    for (const char c : text) {
        if (c == '(') {
            ++result.brackets;
            if (++depth > result.deepest) result.deepest = depth;
        } else if (c == ')') {
            ++result.brackets;
            --depth;
        }
    }
    return result;
}

}  // namespace

int main(int argc, char **argv) {
    if (argc != 2) return std::fputs("usage: bench-scan FILE\n", stderr), 2;
    const brindle::InputFile file(argv[1]);
    if (!file.ok()) return std::perror(argv[1]), 1;
    const Scan found = scan(file.text());
    std::timespec time = {};  // all of this process's time on a processor
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    std::printf("seconds\t%.6f\nbytes\t%zu\nbrackets\t%ld\ndeepest\t%ld\n",
                static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec),
                file.text().size(), found.brackets, found.deepest);
    return 0;
}
