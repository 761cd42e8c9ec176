#include "toolkit/x_options.hpp"

#include <algorithm>
#include <string_view>

#include "toolkit/display.hpp"

namespace brindle::tk {

namespace {

struct Option {
    std::string_view name;
    std::string XOptions::*value;  // takes the next word; null: a flag, or a word that means nothing here
    bool XOptions::*flag;
    bool takes_word;
};

constexpr Option value_option(std::string_view name, std::string XOptions::*member) {
    return {name, member, nullptr, true};
}
constexpr Option flag_option(std::string_view name, bool XOptions::*member) {
    return {name, nullptr, member, false};
}
constexpr Option ignored_option(std::string_view name, bool takes_word) {
    return {name, nullptr, nullptr, takes_word};
}

constexpr Option OPTIONS[] = {
    value_option("-display", &XOptions::display),
    value_option("-geometry", &XOptions::geometry),
    value_option("-title", &XOptions::title),
    value_option("-label", &XOptions::title),
    value_option("-name", &XOptions::name),
    value_option("-fg", &XOptions::foreground),
    value_option("-foreground", &XOptions::foreground),
    value_option("-bg", &XOptions::background),
    value_option("-background", &XOptions::background),
    value_option("-fn", &XOptions::font),
    value_option("-font", &XOptions::font),
    value_option("-scale", &XOptions::scale),
    flag_option("-iconic", &XOptions::iconic),
    flag_option("-rv", &XOptions::reverse),
    flag_option("-reverse", &XOptions::reverse),
    ignored_option("+rv", false),
    ignored_option("-sync", false),
    ignored_option("-synchronous", false),
    ignored_option("-xrm", true),
    ignored_option("-bd", true),
    ignored_option("-bordercolor", true),
    ignored_option("-bw", true),
    ignored_option("-borderwidth", true),
    ignored_option("-selectionTimeout", true),
    ignored_option("-xnllanguage", true),
    ignored_option("-visual", true),
    ignored_option("-depth", true),
};

}  // namespace

XOptions &x_options() {
    static XOptions options;
    return options;
}

void init(int &argc, char **argv) {
    XOptions &options = x_options();
    if (argc > 0) options.program = argv[0];
    int kept = std::min(argc, 1);
    for (int i = 1; i < argc; ++i) {
        const auto *option = std::ranges::find(OPTIONS, std::string_view(argv[i]), &Option::name);
        const bool known = option != std::end(OPTIONS) && (!option->takes_word || i + 1 < argc);
        if (!known) {
            argv[kept++] = argv[i];
            continue;
        }
        if (option->flag) options.*(option->flag) = true;
        if (option->takes_word) ++i;
        if (option->value) options.*(option->value) = argv[i];
    }
    argc = kept;
    argv[kept] = nullptr;
}

}  // namespace brindle::tk
