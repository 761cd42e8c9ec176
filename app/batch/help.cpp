#include "app/batch/help.hpp"

#include <string>
#include <string_view>

namespace brindle::batch {
namespace {

constexpr std::size_t columns = 79;
constexpr std::size_t text_column = 29;

// One line's words in lines that end before the last column: the first is begun at column `at`, the others
// are indented. Blanks at its start stay.
std::string wrapped_line(std::string_view line, std::size_t at, std::size_t indent) {
    const std::size_t blanks = std::min(line.find_first_not_of(' '), line.size());
    std::string text(line.substr(0, blanks));
    at += blanks;
    line.remove_prefix(blanks);
    while (!line.empty()) {
        const std::size_t length = std::min(line.find(' '), line.size());
        const bool first = text.size() == blanks;
        if (!first && at + 1 + length > columns) {
            text += '\n' + std::string(indent, ' ');
            at = indent;
        } else if (!first) {
            text += ' ';
            ++at;
        }
        text += line.substr(0, length);
        at += length;
        line.remove_prefix(std::min(length + 1, line.size()));
    }
    return text;
}

// The same for a text whose own newlines stay.
std::string wrapped(std::string_view text, std::size_t at, std::size_t indent) {
    std::string lines;
    while (true) {
        const std::size_t end = text.find('\n');
        lines += wrapped_line(text.substr(0, end), at, indent);
        if (end == std::string_view::npos) return lines;
        lines += '\n' + std::string(indent, ' ');
        at = indent;
        text.remove_prefix(end + 1);
    }
}

std::string entry(const std::string &name, const std::string &text) {
    const std::string start = "  " + name;
    const std::string gap = start.size() + 2 > text_column ? "\n" + std::string(text_column, ' ')
                                                           : std::string(text_column - start.size(), ' ');
    return start + gap + wrapped(text, text_column, text_column) + "\n";
}

class HelpLayout : public CLI::Formatter {
  public:
    std::string make_description(const CLI::App *app) const override {
        return "\n" + wrapped(app->get_description(), 0, 0) + "\n";
    }

    std::string make_usage(const CLI::App *app, std::string name) const override {
        std::string line = "Usage: " + name;
        if (!app->get_subcommands([](const CLI::App *) { return true; }).empty()) line += " ACTION";
        line += " [OPTION]...";
        const auto operands =
            app->get_options([](const CLI::Option *option) { return option->get_positional(); });
        for (const CLI::Option *operand : operands) line += " " + operand->get_name(true);
        return operands.empty() ? line + " CORPUS\n" : line + "\n";
    }

    std::string make_help(const CLI::App *app, std::string name, CLI::AppFormatMode mode) const override {
        return make_usage(app, name) + make_description(app) + make_positionals(app) +
               make_groups(app, mode) + make_subcommands(app, mode) + "\n" + make_footer(app);
    }

    std::string make_footer(const CLI::App *app) const override {
        return wrapped(app->get_footer(), 0, 0) + "\n";
    }

    std::string make_subcommand(const CLI::App *command) const override {
        return entry(command->get_name(), command->get_description());
    }

    std::string make_option(const CLI::Option *option, bool is_operand) const override {
        if (is_operand) return entry(option->get_name(true), option->get_description());
        std::string name = option->get_name(false, true);
        if (const std::size_t comma = name.find(','); comma != std::string::npos) name.insert(comma + 1, " ");
        if (!name.starts_with("-") || name.starts_with("--")) name = "    " + name;
        if (option->get_type_size() != 0) name += " " + option->get_type_name();
        return entry(name, option->get_description() + (option->get_required() ? "; must be given" : ""));
    }
};

}  // namespace

std::shared_ptr<CLI::FormatterBase> help_layout() {
    auto layout = std::make_shared<HelpLayout>();
    layout->label("Positionals", "Operand");
    return layout;
}

}  // namespace brindle::batch
